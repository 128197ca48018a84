// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/windows/ShellOpen.h"

#include <system_error>
#include <windows.h>

#include <objbase.h>
#include <shellapi.h>

namespace ui::native {

int ShellOpen(const Path& document) {
    std::error_code error;
    const Path found = std::filesystem::absolute(document, error);
    const Path& path = error ? document : found;
    // Some of what opens documents needs this.
    const HRESULT ready = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE);
    SHELLEXECUTEINFOW order{};
    order.cbSize = sizeof order;
    // The thread that asks may end at once.
    order.fMask = SEE_MASK_NOASYNC | SEE_MASK_FLAG_NO_UI;
    order.hwnd = ::GetDesktopWindow();
    order.lpVerb = L"Open";
    order.lpFile = path.c_str();
    order.nShow = SW_SHOWNORMAL;
    ::ShellExecuteExW(&order);
    if (SUCCEEDED(ready)) {
        ::CoUninitialize();
    }
    return static_cast<int>(reinterpret_cast<INT_PTR>(order.hInstApp));
}

} // namespace ui::native
