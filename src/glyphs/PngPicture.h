// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"
#include "ui/Picture.h"

#include <string_view>

namespace glyphs {

/// Sides of pictures that are decoded, in pixels.
constexpr int MaxPictureSide = 1024;

/// The picture of a PNG file of at most MaxPictureSide a side, with the alpha of its pixels as it is. The
/// failure says what is wrong, without a file name.
[[nodiscard]] ui::Result<ui::Picture> DecodePng(std::string_view bytes);

/// A PNG file of a picture; with an alpha channel unless all of its pixels are opaque.
[[nodiscard]] ui::Result<ui::Bytes> EncodePng(const ui::Picture& picture);

} // namespace glyphs
