// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "fuzz/Fuzz.h"
#include "glyphs/GifPicture.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto picture = glyphs::DecodeGif(fuzz::Bytes(data, size));
    if (!picture) {
        fuzz::Require(!picture.failure().message.empty(), "a failure has a reason");
        return 0;
    }
    const ui::Picture& pixels = picture.value();
    fuzz::Require(
        pixels.width() >= 1 && pixels.height() >= 1 && pixels.width() <= 1024 && pixels.height() <= 1024,
        "a picture has a size within bounds");
    for (int y = 0; y < pixels.height(); ++y) {
        for (int x = 0; x < pixels.width(); ++x) {
            const ui::Pixel pixel = pixels.pixel(x, y);
            fuzz::Require(pixel == 0 || (pixel >> 24U) == 0xFFU, "a pixel is opaque or nothing");
        }
    }
    // One image has 256 colours at most, but with transparent pixels beside them there may be one too many.
    const auto bytes = glyphs::EncodeGif(pixels);
    if (bytes) {
        const auto again = glyphs::DecodeGif(bytes.value());
        fuzz::Require(again && again.value() == pixels, "a picture reads back as it was written");
    }
    return 0;
}
