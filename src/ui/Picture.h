// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace ui {

/// A pixel as 0xAARRGGBB. Pictures that are shown are opaque (0xFFRRGGBB).
using Pixel = std::uint32_t;

constexpr Pixel OpaqueBlack = 0xFF000000U;

/// Opaque pixel of the given red, green and blue (0 to 255 each).
constexpr Pixel OpaquePixel(unsigned red, unsigned green, unsigned blue) {
    return OpaqueBlack | ((red & 0xFFU) << 16U) | ((green & 0xFFU) << 8U) | (blue & 0xFFU);
}

/// A rectangle in pixels; empty when it has no area.
struct Rect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    [[nodiscard]] bool empty() const { return width <= 0 || height <= 0; }

    /// The smallest rectangle that covers both; an empty one adds nothing.
    [[nodiscard]] Rect united(const Rect& other) const;

    friend bool operator==(const Rect&, const Rect&) = default;
};

/// An off-screen picture of 32-bit pixels, stored row by row without gaps. Coordinates are 0-based pixels.
class Picture {
public:
    Picture() = default;
    Picture(int width, int height, Pixel fill = OpaqueBlack);

    [[nodiscard]] int width() const { return m_width; }

    [[nodiscard]] int height() const { return m_height; }

    [[nodiscard]] bool empty() const { return m_pixels.empty(); }

    [[nodiscard]] Rect bounds() const { return {0, 0, m_width, m_height}; }

    /// The pixels of row y (0 to height - 1), width() of them.
    [[nodiscard]] Pixel* row(int y) { return m_pixels.data() + index(0, y); }

    [[nodiscard]] const Pixel* row(int y) const { return m_pixels.data() + index(0, y); }

    [[nodiscard]] Pixel pixel(int x, int y) const { return m_pixels[index(x, y)]; }

    void setPixel(int x, int y, Pixel value) { m_pixels[index(x, y)] = value; }

    /// Fills a rectangle, clipped to the picture.
    void fill(const Rect& rect, Pixel value);

    friend bool operator==(const Picture&, const Picture&) = default;

private:
    [[nodiscard]] std::size_t index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) + static_cast<std::size_t>(x);
    }

    int m_width = 0;
    int m_height = 0;
    std::vector<Pixel> m_pixels;
};

} // namespace ui
