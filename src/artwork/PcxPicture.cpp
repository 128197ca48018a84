// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "artwork/LittleEndian.h"
#include "artwork/OldPictures.h"
#include "artwork/Palette.h"
#include "artwork/PictureParts.h"

#include <algorithm>
#include <string>

namespace artwork {

namespace {

constexpr std::size_t PcxHeaderSize = 128;
constexpr std::size_t TrailerSize = 1 + PaletteBytes; ///< a mark and the palette, at the very end
constexpr std::uint8_t PaletteMark = 12;
constexpr std::size_t TransparentIndex = 255;

/// Lines are filled up to an even number of bytes, by some programs to more.
constexpr std::size_t MaxBytesPerLine = 2 * glyphs::MaxPictureSide;

ui::Failure NotUsablePcx(const std::string& cause) {
    return {"not a usable PCX picture: " + cause};
}

/// Undoes the run-length coding: `count` bytes, or fewer if the code ends before.
std::string UnpackedPcx(std::string_view code, std::size_t count) {
    constexpr unsigned RunMark = 0xC0;
    std::string bytes;
    bytes.reserve(count);
    for (std::size_t at = 0; at < code.size() && bytes.size() < count; ++at) {
        const unsigned byte = ByteAt(code, at);
        if ((byte & RunMark) != RunMark) {
            bytes.push_back(code[at]);
        } else if (++at < code.size()) {
            const std::size_t run = byte & ~RunMark;
            bytes.append(std::min(run, count - bytes.size()), code[at]);
        }
    }
    return bytes;
}

} // namespace

ui::Result<ui::Picture> DecodePcx(std::string_view bytes) {
    if (bytes.size() < PcxHeaderSize + TrailerSize) {
        return NotUsablePcx("it ends too early");
    }
    if (ByteAt(bytes, 0) != 10 || ByteAt(bytes, 1) != 5 || ByteAt(bytes, 2) != 1 || ByteAt(bytes, 3) != 8 ||
        ByteAt(bytes, 65) != 1) {
        return NotUsablePcx("it is not of 256 colors");
    }
    const int width = WordAt(bytes, 8) - WordAt(bytes, 4) + 1;
    const int height = WordAt(bytes, 10) - WordAt(bytes, 6) + 1;
    const std::size_t bytesPerLine = WordAt(bytes, 66);
    if (!IsDecodedSize(width, height) || bytesPerLine < static_cast<std::size_t>(width) ||
        bytesPerLine > MaxBytesPerLine) {
        return NotUsablePcx("its size is out of range");
    }
    const std::string_view trailer = bytes.substr(bytes.size() - TrailerSize);
    if (ByteAt(trailer, 0) != PaletteMark) {
        return NotUsablePcx("it has no palette");
    }
    Palette palette = PaletteOf(trailer.substr(1));
    MakeTransparent(palette, TransparentIndex);

    const std::string_view code = bytes.substr(PcxHeaderSize, bytes.size() - PcxHeaderSize - TrailerSize);
    const std::size_t count = bytesPerLine * static_cast<std::size_t>(height);
    const std::string indexes = UnpackedPcx(code, count);
    if (indexes.size() < count) {
        return NotUsablePcx("it ends too early");
    }
    ui::Picture picture(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const std::size_t at = static_cast<std::size_t>(y) * bytesPerLine + static_cast<std::size_t>(x);
            picture.setPixel(x, y, palette[ByteAt(indexes, at)]);
        }
    }
    return picture;
}

} // namespace artwork
