// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "artwork/ArtworkSlot.h"

#include "artwork/PictureParts.h"
#include "artwork/Quantise.h"
#include "glyphs/GifPicture.h"

#include <array>
#include <string>

namespace artwork {

ui::Result<SlotImage> MakeSlotImage(const ui::Picture& picture, std::size_t room) {
    const std::size_t originalColours = CountColours(picture);
    // Transparent is one of the colours of a GIF.
    const std::size_t reserved = HasTransparentPixel(picture) ? 1 : 0;
    std::size_t smallest = 0;
    for (const std::size_t most : std::array<std::size_t, 4>{256, 128, 64, 32}) {
        const ui::Picture reduced = WithFewerColours(picture, most - reserved);
        auto gif = glyphs::EncodeGif(reduced);
        if (!gif) {
            return gif.failure();
        }
        smallest = gif.value().size();
        if (smallest <= room) {
            return SlotImage{
                .gif = std::move(gif).value(),
                .colours = CountColours(reduced),
                .originalColours = originalColours};
        }
    }
    return ui::Failure{
        "its picture takes " + std::to_string(smallest) + " bytes even with 32 colors, more than the " +
        std::to_string(room) + " that there is room for; simpler shading makes it smaller"};
}

} // namespace artwork
