// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace ui::qt {

/// Has a control drawn in the colors of its palette, also where the system's style has colors of its own.
void ShowOwnColors(QWidget& control);

} // namespace ui::qt
