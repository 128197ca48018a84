// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>

namespace ui {

/// Scales such as 1.1 are not exact. Much smaller than what is seen, much larger than their error.
constexpr double PixelTolerance = 1.0 / 4096;

/// The whole pixel nearest to a place between two of them; the half goes up.
inline int WholePixel(double place) {
    return static_cast<int>(std::floor(place + 0.5 + PixelTolerance));
}

} // namespace ui
