// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace ui::native {

/// What follows the program's own name in a command line, without the blanks around it. The name is quoted,
/// or is the path `program`, in which there may be blanks, or ends at the first blank.
[[nodiscard]] std::wstring_view WithoutProgram(std::wstring_view commandLine, std::wstring_view program);

} // namespace ui::native
