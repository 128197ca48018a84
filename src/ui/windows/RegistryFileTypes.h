// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"

#include <string>

namespace ui::native {

/// Registers file types in the registry, among the user's own classes and nowhere else: for each type the
/// class of its extension and, of the class, its description, flags, icon and command. Values that are the
/// same already are not written, and the desktop is told only of others.
class RegistryFileTypes final : public FileTypes {
public:
    /// Below `classes`, a key of the user's part of the registry.
    explicit RegistryFileTypes(std::wstring classes = LR"(Software\Classes)");

    void registerTypes(const std::vector<FileType>& types, const Path& program) override;

    /// Whether the last call has changed anything.
    [[nodiscard]] bool hasChanged() const { return m_hasChanged; }

private:
    void setText(const std::wstring& key, const std::string& text);
    void setNumber(const std::wstring& key, const wchar_t* name, std::uint32_t number);
    void setValue(const std::wstring& key, const wchar_t* name, unsigned long type, std::string_view bytes);

    std::wstring m_classes;
    bool m_hasChanged = false;
};

} // namespace ui::native
