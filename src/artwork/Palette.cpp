// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "artwork/Palette.h"

#include "artwork/LittleEndian.h"

namespace artwork {

Palette PaletteOf(std::string_view bytes) {
    assert(bytes.size() == PaletteBytes);
    Palette palette{};
    for (std::size_t index = 0; index < palette.size(); ++index) {
        palette[index] = ui::OpaquePixel(
            ByteAt(bytes, 3 * index), ByteAt(bytes, 3 * index + 1), ByteAt(bytes, 3 * index + 2));
    }
    return palette;
}

void MakeTransparent(Palette& palette, std::size_t index) {
    palette[index] = 0;
}

} // namespace artwork
