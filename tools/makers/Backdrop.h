// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

namespace makers {

/// A colour or a point or direction in space.
struct Vec3 {
    double x = 0;
    double y = 0;
    double z = 0;

    friend Vec3 operator+(const Vec3& a, const Vec3& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }

    friend Vec3 operator-(const Vec3& a, const Vec3& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }

    friend Vec3 operator*(const Vec3& a, const Vec3& b) { return {a.x * b.x, a.y * b.y, a.z * b.z}; }

    friend Vec3 operator*(const Vec3& a, double factor) { return {a.x * factor, a.y * factor, a.z * factor}; }
};

/// A picture of colours whose parts go from 0 (dark) to 1 (full) and beyond.
class LightPicture {
public:
    LightPicture(int width, int height)
        : m_width(width)
        , m_height(height)
        , m_pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

    [[nodiscard]] int width() const { return m_width; }

    [[nodiscard]] int height() const { return m_height; }

    [[nodiscard]] Vec3& at(int x, int y) {
        return m_pixels
            [static_cast<std::size_t>(y) * static_cast<std::size_t>(m_width) + static_cast<std::size_t>(x)];
    }

private:
    int m_width;
    int m_height;
    std::vector<Vec3> m_pixels;
};

/// Draws the vaulted hall: stone walls with niches, columns with torches, a flagged floor and a window at
/// the far end. Always the same picture.
void DrawBackdrop(LightPicture& picture);

} // namespace makers
