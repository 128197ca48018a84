// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>
#include <QString>

namespace animation {

/// The colours of the preview's window: black, and light texts, whatever the colours of the desktop.
[[nodiscard]] QPalette PlayerPalette();

/// The style sheet of its buttons: dark and flat.
[[nodiscard]] QString PlayerButtonStyle();

} // namespace animation
