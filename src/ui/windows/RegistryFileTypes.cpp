// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/windows/RegistryFileTypes.h"

#include "ui/windows/WideText.h"

#include <windows.h>

#include <shlobj.h>

namespace ui::native {

namespace {

/// A key of the registry that is closed when it goes out of scope.
class RegistryKey {
public:
    explicit RegistryKey(const std::wstring& path) {
        if (::RegCreateKeyExW(
                HKEY_CURRENT_USER, path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                KEY_QUERY_VALUE | KEY_SET_VALUE, nullptr, &m_key, nullptr) != ERROR_SUCCESS) {
            m_key = nullptr;
        }
    }

    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;
    RegistryKey(RegistryKey&&) = delete;
    RegistryKey& operator=(RegistryKey&&) = delete;

    ~RegistryKey() {
        if (m_key != nullptr) {
            ::RegCloseKey(m_key);
        }
    }

    [[nodiscard]] bool isOpen() const { return m_key != nullptr; }

    [[nodiscard]] bool holds(const wchar_t* name, DWORD type, std::string_view bytes) const {
        std::string found(bytes.size(), '\0');
        auto size = static_cast<DWORD>(found.size());
        DWORD foundType = 0;
        return ::RegQueryValueExW(
                   m_key, name, nullptr, &foundType, reinterpret_cast<BYTE*>(found.data()), &size) ==
                   ERROR_SUCCESS &&
               foundType == type && size == bytes.size() && found == bytes;
    }

    bool set(const wchar_t* name, DWORD type, std::string_view bytes) {
        return ::RegSetValueExW(
                   m_key, name, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                   static_cast<DWORD>(bytes.size())) == ERROR_SUCCESS;
    }

private:
    HKEY m_key = nullptr;
};

} // namespace

RegistryFileTypes::RegistryFileTypes(std::wstring classes)
    : m_classes(std::move(classes)) {}

void RegistryFileTypes::registerTypes(const std::vector<FileType>& types, const Path& /*program*/) {
    m_hasChanged = false;
    for (const FileType& type : types) {
        const std::wstring name = WideText(type.className);
        setText(WideText(type.extension), type.className);
        setText(name, type.description);
        setNumber(name, L"EditFlags", type.editFlags);
        setText(name + LR"(\DefaultIcon)", type.iconValue);
        setText(name + LR"(\shell\open\command)", type.commandValue);
    }
    if (m_hasChanged) {
        ::SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr);
    }
}

void RegistryFileTypes::setText(const std::wstring& key, const std::string& text) {
    const std::wstring wide = WideText(text);
    // The zero at its end is a part of the value.
    setValue(
        key, nullptr, REG_SZ,
        {reinterpret_cast<const char*>(wide.c_str()), (wide.size() + 1) * sizeof(wchar_t)});
}

void RegistryFileTypes::setNumber(const std::wstring& key, const wchar_t* name, std::uint32_t number) {
    setValue(key, name, REG_DWORD, {reinterpret_cast<const char*>(&number), sizeof number});
}

void RegistryFileTypes::setValue(
    const std::wstring& key, const wchar_t* name, unsigned long type, std::string_view bytes) {
    RegistryKey opened(m_classes + L'\\' + key);
    if (opened.isOpen() && !opened.holds(name, type, bytes)) {
        m_hasChanged |= opened.set(name, type, bytes);
    }
}

} // namespace ui::native
