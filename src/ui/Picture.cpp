// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/Picture.h"

#include <algorithm>

namespace ui {

Rect Rect::united(const Rect& other) const {
    if (empty()) {
        return other;
    }
    if (other.empty()) {
        return *this;
    }
    const int left = std::min(x, other.x);
    const int top = std::min(y, other.y);
    const int right = std::max(x + width, other.x + other.width);
    const int bottom = std::max(y + height, other.y + other.height);
    return {left, top, right - left, bottom - top};
}

Picture::Picture(int width, int height, Pixel fill)
    : m_width(std::max(width, 0))
    , m_height(std::max(height, 0))
    , m_pixels(static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height), fill) {}

void Picture::fill(const Rect& rect, Pixel value) {
    const int left = std::max(rect.x, 0);
    const int right = std::min(rect.x + rect.width, m_width);
    const int top = std::max(rect.y, 0);
    const int bottom = std::min(rect.y + rect.height, m_height);
    for (int y = top; y < bottom; ++y) {
        std::fill(row(y) + left, row(y) + std::max(left, right), value);
    }
}

} // namespace ui
