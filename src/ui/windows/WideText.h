// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Windows' own texts are UTF-16, in which a name of a file may hold halves of characters; all other texts
/// are UTF-8.
namespace ui::native {

/// Half a character becomes the three bytes that UTF-8 would have for it, so that nothing is lost.
[[nodiscard]] std::string NarrowText(std::wstring_view text);

/// The other way round. What NarrowText() never yields becomes U+FFFD, once a byte.
[[nodiscard]] std::wstring WideText(std::string_view text);

} // namespace ui::native
