// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "artwork/Artwork.h"
#include "artwork/ArtworkSlot.h"
#include "artwork/MemorySource.h"
#include "artwork/OldPictures.h"
#include "fuzz/Fuzz.h"
#include "glyphs/GifPicture.h"
#include "glyphs/PngPicture.h"

#include <array>
#include <string>

namespace {

/// What every decoder promises.
void Check(const ui::Result<ui::Picture>& decoded) {
    if (!decoded) {
        fuzz::Require(!decoded.failure().message.empty(), "what cannot be decoded has a reason");
        return;
    }
    const ui::Picture& picture = decoded.value();
    fuzz::Require(
        picture.width() >= 1 && picture.width() <= 1024 && picture.height() >= 1 && picture.height() <= 1024,
        "a picture has a size that was asked for");
}

void Check(const ui::Picture& picture) {
    fuzz::Require(picture.width() == 128 && picture.height() == 128, "artwork is 128 x 128");
    for (int y = 0; y < 128; ++y) {
        for (int x = 0; x < 128; ++x) {
            const ui::Pixel pixel = picture.pixel(x, y);
            fuzz::Require(pixel == 0 || pixel >> 24U == 0xFFU, "a pixel is opaque or 0");
        }
    }
    const auto image = artwork::MakeSlotImage(picture, 10000);
    if (image) {
        fuzz::Require(image.value().gif.size() <= 10000, "an image fits its slot");
        const auto again = glyphs::DecodeGif(image.value().gif);
        fuzz::Require(
            again && (image.value().colours < image.value().originalColours || again.value() == picture),
            "an image in its own colours is the artwork");
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes = fuzz::Bytes(data, size);
    const artwork::MemorySource source(bytes);
    artwork::Palette palette{};
    palette.fill(ui::OpaqueBlack);

    ui::Picture last;
    for (const char* extension : {"", ".tga", ".pcx", ".bmp"}) {
        const auto read = artwork::ReadArtwork(source, extension, palette);
        if (!read) {
            fuzz::Require(!read.failure().message.empty(), "what is of no use has a reason");
        } else if (read.value().picture != last) {
            last = read.value().picture;
            Check(last);
        }
    }
    Check(glyphs::DecodePng(bytes));
    Check(artwork::DecodeTga(bytes));
    Check(artwork::DecodePcx(bytes));
    Check(artwork::DecodeBmp(bytes));
    (void)artwork::ReadPalette(source);
    return 0;
}
