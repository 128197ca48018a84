// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <dlfcn.h>

namespace ui::native {

/// Points `function` to a function of a library that is loaded at run time; null, and false, where it has
/// none of that name.
template <class Function>
[[nodiscard]] bool FindSymbol(void* library, const char* name, Function& function) {
    function = reinterpret_cast<Function>(::dlsym(library, name));
    return function != nullptr;
}

} // namespace ui::native
