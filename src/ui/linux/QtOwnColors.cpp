// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/OwnColors.h"

namespace ui::qt {

// The styles of desktops take the colors from the palette.
void ShowOwnColors(QWidget& /*control*/) {}

} // namespace ui::qt
