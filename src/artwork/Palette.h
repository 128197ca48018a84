// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Picture.h"
#include "ui/Result.h"

#include <array>
#include <string_view>

namespace artwork {

constexpr std::size_t PaletteBytes = 768;

/// The 256 colours of a game, opaque.
using Palette = std::array<ui::Pixel, 256>;

/// The palette in exactly 768 bytes: red, green and blue of each colour.
[[nodiscard]] Palette PaletteOf(std::string_view bytes);

/// Makes an index of the palette transparent.
void MakeTransparent(Palette& palette, std::size_t index);

} // namespace artwork
