// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"
#include "ui/Picture.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace support {

/// A named part of an archive.
struct Part {
    std::string name;
    ui::Bytes bytes;
};

/// Numbers as the games store them: low byte first.
[[nodiscard]] ui::Bytes Word(unsigned value);
[[nodiscard]] ui::Bytes Long(std::uint32_t value);

/// The bytes with others in their place from `at` on.
[[nodiscard]] ui::Bytes Changed(ui::Bytes bytes, std::size_t at, const ui::Bytes& change);

/// A .pak archive, its directory at the end.
[[nodiscard]] ui::Bytes MakePack(const std::vector<Part>& parts);

/// A .wad archive, its directory at the end; every lump is marked with `compression`.
[[nodiscard]] ui::Bytes MakeWad(const std::vector<Part>& lumps, char compression = 0);

/// 768 bytes: colour i is red i, green 255 - i, blue i / 2.
[[nodiscard]] ui::Bytes MakePalette();

/// Colour `index` of that palette.
[[nodiscard]] ui::Pixel PaletteColour(unsigned index);

using IndexAt = std::function<unsigned(int x, int y)>;
using PixelAt = std::function<ui::Pixel(int x, int y)>;

/// side * side indexes, row by row.
[[nodiscard]] ui::Bytes MakeLump(int side, const IndexAt& indexAt);

/// A run-length coded picture with the palette above.
[[nodiscard]] ui::Bytes MakePcx(int width, int height, const IndexAt& indexAt);

/// A picture of 8 bits with the palette above, rows from the bottom up.
[[nodiscard]] ui::Bytes MakeBmp8(int width, int height, const IndexAt& indexAt);

/// A picture of 24 or 32 bits.
[[nodiscard]] ui::Bytes MakeBmp(int width, int height, int bits, const PixelAt& pixelAt);

/// A picture of 32 bits, rows from the top down, not run-length coded.
[[nodiscard]] ui::Bytes MakeTga(int width, int height, const PixelAt& pixelAt);

/// A picture of the given size, pixel by pixel.
[[nodiscard]] ui::Picture MakePicture(int width, int height, const PixelAt& pixelAt);

/// The artwork of a set whose glyphs are told apart: cell c shows its code in colours, with transparent
/// pixels at its right and bottom edge. `shade` tells sets apart.
[[nodiscard]] ui::Picture MakeArtwork(unsigned shade);

} // namespace support
