// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Dialogs.h"
#include "ui/Files.h"

#include <string_view>

namespace editing {

/// Whether a script may be written to `path`. Asks when a file lies there that is not a script of the same
/// kind: its first line does not hold `header`; No is the default then. An empty file is nobody's.
[[nodiscard]] bool
MayReplaceFile(ui::Dialogs& dialogs, const ui::Files& files, const ui::Path& path, std::string_view header);

} // namespace editing
