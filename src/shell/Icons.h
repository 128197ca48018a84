// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace shell {

/// The icon of a toolbar button, 24 pixels a side and sharp on screens of twice the density; null when the
/// program was built without one of that key.
[[nodiscard]] QIcon ToolIcon(const QString& key);

/// The program's own icon, 16 to 64 pixels a side.
[[nodiscard]] QIcon ProgramIcon();

} // namespace shell
