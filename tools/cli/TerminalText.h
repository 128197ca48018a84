// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace cli {

/// A text of one line as it may be printed on a terminal. What the terminal would act on (control characters,
/// line ends and escapes among them, and marks that turn the direction of writing), and bytes that are not
/// UTF-8, each become '?': they come with the names of files, which others choose.
[[nodiscard]] std::string TerminalText(std::string_view text);

} // namespace cli
