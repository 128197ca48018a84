// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <algorithm>
#include <cmath>

namespace support {

/// How light a colour looks, from 0 to 1: the relative luminance of the Web Content Accessibility Guidelines.
inline double Luminance(const QColor& colour) {
    const auto part = [](double value) {
        return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF());
}

/// How well two colours are told apart, from 1 to 21, as the same guidelines reckon it.
inline double Contrast(const QColor& a, const QColor& b) {
    const double lighter = std::max(Luminance(a), Luminance(b));
    const double darker = std::min(Luminance(a), Luminance(b));
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace support
