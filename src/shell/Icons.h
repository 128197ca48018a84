// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

class QWidget;

namespace shell {

/// The icon of a toolbar button, 24 pixels a side and sharp on screens of twice the density; null when the
/// program was built without one of that key.
[[nodiscard]] QIcon ToolIcon(const QString& key);

/// The program's own icon, 16 to 64 pixels a side.
[[nodiscard]] QIcon ProgramIcon();

/// The icon of a button that stands for those without room: two angles, as a widget's text is coloured. It
/// follows the palette of the widget, which outlives it.
[[nodiscard]] QIcon MoreIcon(const QWidget& widget);

} // namespace shell
