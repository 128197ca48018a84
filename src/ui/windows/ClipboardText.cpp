// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/windows/ClipboardText.h"

#include "ui/TryFor.h"

#include <algorithm>
#include <chrono>
#include <string>
#include <windows.h>

namespace ui::native {

namespace {

/// The window that the clipboard belongs to: nothing can be put on it without one.
class ClipboardOwner {
public:
    ClipboardOwner()
        : m_window(::CreateWindowExW(
              0, L"STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr)) {}

    ClipboardOwner(const ClipboardOwner&) = delete;
    ClipboardOwner& operator=(const ClipboardOwner&) = delete;
    ClipboardOwner(ClipboardOwner&&) = delete;
    ClipboardOwner& operator=(ClipboardOwner&&) = delete;

    ~ClipboardOwner() {
        if (m_isOpen) {
            ::CloseClipboard();
        }
        if (m_window != nullptr) {
            ::DestroyWindow(m_window);
        }
    }

    /// Programs have the clipboard open for moments.
    bool open() {
        constexpr std::chrono::milliseconds Patience(200);
        constexpr std::chrono::milliseconds Pause(10);
        m_isOpen = m_isOpen || TryFor(Patience, Pause, [&] { return ::OpenClipboard(m_window) != FALSE; });
        return m_isOpen;
    }

private:
    HWND m_window;
    bool m_isOpen = false;
};

bool Put(UINT format, std::string_view bytes) {
    HGLOBAL memory = ::GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    void* place = memory == nullptr ? nullptr : ::GlobalLock(memory);
    if (place == nullptr) {
        ::GlobalFree(memory);
        return false;
    }
    std::ranges::copy(bytes, static_cast<char*>(place));
    ::GlobalUnlock(memory);
    // What is on the clipboard belongs to the system.
    const bool isPut = ::SetClipboardData(format, memory) != nullptr;
    if (!isPut) {
        ::GlobalFree(memory);
    }
    return isPut;
}

template <class Character>
std::string_view BytesOf(const std::basic_string<Character>& text) {
    // With the zero that ends it.
    return {reinterpret_cast<const char*>(text.c_str()), (text.size() + 1) * sizeof(Character)};
}

} // namespace

bool PutClipboardBytes(std::string_view bytes) {
    ClipboardOwner owner;
    if (!owner.open() || ::EmptyClipboard() == FALSE) {
        return false;
    }
    std::wstring wide;
    for (const char byte : bytes) {
        wide += static_cast<wchar_t>(static_cast<unsigned char>(byte));
    }
    // Both are put: the system would make each of the other through a code page.
    const LCID locale = ::GetUserDefaultLCID();
    const bool isPut = Put(CF_TEXT, BytesOf(std::string(bytes))) && Put(CF_UNICODETEXT, BytesOf(wide));
    return isPut && Put(CF_LOCALE, {reinterpret_cast<const char*>(&locale), sizeof locale});
}

} // namespace ui::native
