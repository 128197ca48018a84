// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/PngPicture.h"
#include "ui/Picture.h"

#include <cstdint>

namespace artwork {

/// Whether a decoder takes pictures of this size.
[[nodiscard]] constexpr bool IsDecodedSize(std::int64_t width, std::int64_t height) {
    return width >= 1 && height >= 1 && width <= glyphs::MaxPictureSide && height <= glyphs::MaxPictureSide;
}

/// A colour with its alpha.
[[nodiscard]] constexpr ui::Pixel PixelOf(unsigned red, unsigned green, unsigned blue, unsigned alpha) {
    return (ui::OpaquePixel(red, green, blue) & ~ui::OpaqueBlack) | (alpha << 24U);
}

/// Makes a picture opaque if its alpha is 0 everywhere: then the file's fourth byte is no alpha.
void DropEmptyAlpha(ui::Picture& picture);

/// Whether any pixel is 0.
[[nodiscard]] bool HasTransparentPixel(const ui::Picture& picture);

} // namespace artwork
