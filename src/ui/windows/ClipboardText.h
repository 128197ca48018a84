// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace ui::native {

/// Clears the clipboard and puts bytes on it as text: unchanged for programs that ask for bytes, and one
/// Latin-1 character a byte for those that ask for Unicode. Whether that was done; another program may have
/// the clipboard open.
bool PutClipboardBytes(std::string_view bytes);

} // namespace ui::native
