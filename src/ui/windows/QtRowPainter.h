// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

namespace ui::native {

/// Has the toolkit make the hidden window that it draws chosen rows of the first screen with, for Wine, which
/// hands the keyboard to it when it is made: made before all other windows, it takes the keyboard from none.
void MakeRowPainter();

} // namespace ui::native
