// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Picture.h"
#include "ui/Result.h"

#include <string_view>

namespace artwork {

// Decoders of the picture files that games and paint programs of their time use. Pictures are at most 1024
// pixels a side. The alpha of pixels comes out as the file has it; files without it yield opaque pixels. A
// failure says what is wrong, without a file name.

/// A PCX picture of 256 colours (version 5, 8 bits, 1 plane). Colour 255 is transparent, as in Quake2.
[[nodiscard]] ui::Result<ui::Picture> DecodePcx(std::string_view bytes);

/// A BMP picture of 8, 24 or 32 bits a pixel, not compressed.
[[nodiscard]] ui::Result<ui::Picture> DecodeBmp(std::string_view bytes);

/// A TGA picture: palette (8 bits), true colour (15, 16, 24 or 32 bits) or grey (8 bits), run-length coded or
/// not.
[[nodiscard]] ui::Result<ui::Picture> DecodeTga(std::string_view bytes);

} // namespace artwork
