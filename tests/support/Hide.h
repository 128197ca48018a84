// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"

namespace support {

/// Hides a folder whose name begins with a dot, where the dot by itself does not.
void Hide(const ui::Path& folder);

} // namespace support
