// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "artwork/Palette.h"
#include "ui/ByteSource.h"
#include "ui/Picture.h"

#include <optional>
#include <string>
#include <vector>

namespace artwork {

/// The glyphs of a character set as they are drawn.
struct Artwork {
    ui::Picture picture;            ///< 128 x 128; a pixel is opaque or, transparent, 0
    int side = 0;                   ///< of the picture that was read, in pixels
    std::vector<std::string> notes; ///< what the user may want to know, a sentence each
};

/// Reads the 256 colours of a game: 768 bytes, or a pak0.pak that holds gfx/palette.lmp. The failure says
/// what is wrong, without a file name.
[[nodiscard]] ui::Result<Palette> ReadPalette(const ui::ByteSource& source);

/// Reads a character set's artwork out of whatever holds it: a picture of 128, 256 or 512 pixels a side (PNG,
/// GIF, PCX, BMP, TGA), the raw lump of Quake, a gfx.wad or the pak0.pak of Quake or Quake2. `extension` is
/// that of the file, with its dot; it decides where the bytes do not. `palette` are the colours of pictures
/// that have none of their own. The failure says what is wrong, without a file name.
[[nodiscard]] ui::Result<Artwork> ReadArtwork(
    const ui::ByteSource& source, const std::string& extension, const std::optional<Palette>& palette);

} // namespace artwork
