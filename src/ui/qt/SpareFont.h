// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"

namespace ui::qt {

/// Sets the program's texts in the font of the file if the system has no font at all: they would be shown as
/// boxes. Does nothing where there is no such file. Called once, after the application object is made.
void UseSpareFont(const Path& file);

} // namespace ui::qt
