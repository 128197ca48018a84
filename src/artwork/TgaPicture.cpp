// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "artwork/LittleEndian.h"
#include "artwork/OldPictures.h"
#include "artwork/PictureParts.h"

#include <algorithm>
#include <string>
#include <vector>

namespace artwork {

namespace {

constexpr std::size_t TgaHeaderSize = 18;

enum class TgaKind { Palette = 1, TrueColour = 2, Grey = 3 };

ui::Failure NotUsableTga(const std::string& cause) {
    return {"not a usable TGA picture: " + cause};
}

/// What the header says.
struct Header {
    TgaKind kind = TgaKind::TrueColour;
    bool isRunLengthCoded = false;
    std::size_t idLength = 0;
    std::size_t firstColour = 0; ///< index of the palette's first entry
    std::size_t colourCount = 0; ///< entries of the palette, whether it is used or not
    unsigned colourBits = 0;
    int width = 0;
    int height = 0;
    unsigned bits = 0;
    bool rightToLeft = false;
    bool topDown = false;
};

bool IsTrueColourDepth(unsigned bits) {
    return bits == 15 || bits == 16 || bits == 24 || bits == 32;
}

std::size_t ByteCount(unsigned bits) {
    return (bits + 7) / 8;
}

ui::Result<Header> ReadHeader(std::string_view bytes) {
    if (bytes.size() < TgaHeaderSize) {
        return NotUsableTga("it ends too early");
    }
    Header header;
    header.idLength = ByteAt(bytes, 0);
    const unsigned colourMapType = ByteAt(bytes, 1);
    const unsigned type = ByteAt(bytes, 2);
    header.isRunLengthCoded = (type & 8U) != 0;
    const unsigned kind = type & ~8U;
    if (kind < 1 || kind > 3 || colourMapType > 1) {
        return NotUsableTga("it is of an unknown type");
    }
    header.kind = static_cast<TgaKind>(kind);
    if (colourMapType == 1) {
        header.firstColour = WordAt(bytes, 3);
        header.colourCount = WordAt(bytes, 5);
        header.colourBits = ByteAt(bytes, 7);
        if (!IsTrueColourDepth(header.colourBits)) {
            return NotUsableTga("its palette has colors of " + std::to_string(header.colourBits) + " bits");
        }
    }
    header.width = WordAt(bytes, 12);
    header.height = WordAt(bytes, 14);
    if (!IsDecodedSize(header.width, header.height)) {
        return NotUsableTga("its size is out of range");
    }
    header.bits = ByteAt(bytes, 16);
    const bool isKnownDepth =
        header.kind == TgaKind::TrueColour ? IsTrueColourDepth(header.bits) : header.bits == 8;
    if (!isKnownDepth) {
        return NotUsableTga("it has pixels of " + std::to_string(header.bits) + " bits");
    }
    if (header.kind == TgaKind::Palette && colourMapType == 0) {
        return NotUsableTga("it has no palette");
    }
    const unsigned descriptor = ByteAt(bytes, 17);
    header.rightToLeft = (descriptor & 0x10U) != 0;
    header.topDown = (descriptor & 0x20U) != 0;
    return header;
}

/// Five bits as eight.
unsigned Widened(unsigned five) {
    return (five << 3U) | (five >> 2U);
}

ui::Pixel ColourAt(std::string_view bytes, std::size_t at, unsigned bits) {
    switch (bits) {
    case 24:
        return ui::OpaquePixel(ByteAt(bytes, at + 2), ByteAt(bytes, at + 1), ByteAt(bytes, at));
    case 32:
        return LongAt(bytes, at);
    default: {
        const unsigned word = WordAt(bytes, at);
        return ui::OpaquePixel(
            Widened((word >> 10U) & 31U), Widened((word >> 5U) & 31U), Widened(word & 31U));
    }
    }
}

/// Undoes the run-length coding of units of `unit` bytes: `count` bytes, or fewer if the code ends before.
std::string UnpackedTga(std::string_view code, std::size_t unit, std::size_t count) {
    std::string bytes;
    bytes.reserve(count);
    std::size_t at = 0;
    while (bytes.size() < count && at < code.size()) {
        const unsigned packet = ByteAt(code, at++);
        const std::size_t units = (packet & 0x7FU) + 1;
        const bool isRun = (packet & 0x80U) != 0;
        const std::size_t stored = unit * (isRun ? 1 : units);
        if (!Within(code.size(), at, stored)) {
            break;
        }
        const std::string_view part = code.substr(at, stored);
        at += stored;
        for (std::size_t copies = isRun ? units : 1; copies > 0; --copies) {
            bytes.append(part);
        }
    }
    bytes.resize(std::min(bytes.size(), count));
    return bytes;
}

} // namespace

ui::Result<ui::Picture> DecodeTga(std::string_view bytes) {
    const auto read = ReadHeader(bytes);
    if (!read) {
        return read.failure();
    }
    const Header& header = read.value();
    const std::size_t paletteOffset = TgaHeaderSize + header.idLength;
    const std::size_t paletteSize = header.colourCount * ByteCount(header.colourBits);
    if (!Within(bytes.size(), paletteOffset, paletteSize)) {
        return NotUsableTga("it ends too early");
    }
    std::vector<ui::Pixel> palette;
    if (header.kind == TgaKind::Palette) {
        palette.resize(header.firstColour + header.colourCount, ui::OpaqueBlack);
        for (std::size_t index = 0; index < header.colourCount; ++index) {
            palette[header.firstColour + index] =
                ColourAt(bytes, paletteOffset + index * ByteCount(header.colourBits), header.colourBits);
        }
    }
    const std::size_t unit = ByteCount(header.bits);
    const std::size_t count =
        unit * static_cast<std::size_t>(header.width) * static_cast<std::size_t>(header.height);
    const std::string_view stored = bytes.substr(paletteOffset + paletteSize);
    const std::string pixels =
        header.isRunLengthCoded ? UnpackedTga(stored, unit, count) : std::string(stored.substr(0, count));
    if (pixels.size() < count) {
        return NotUsableTga("it ends too early");
    }
    ui::Picture picture(header.width, header.height);
    std::size_t at = 0;
    for (int line = 0; line < header.height; ++line) {
        const int y = header.topDown ? line : header.height - 1 - line;
        for (int column = 0; column < header.width; ++column, at += unit) {
            const int x = header.rightToLeft ? header.width - 1 - column : column;
            ui::Pixel pixel = 0;
            if (header.kind == TgaKind::TrueColour) {
                pixel = ColourAt(pixels, at, header.bits);
            } else if (header.kind == TgaKind::Grey) {
                const unsigned grey = ByteAt(pixels, at);
                pixel = ui::OpaquePixel(grey, grey, grey);
            } else {
                const std::size_t index = ByteAt(pixels, at);
                if (index >= palette.size()) {
                    return NotUsableTga("a pixel has a color that is not in its palette");
                }
                pixel = palette[index];
            }
            picture.setPixel(x, y, pixel);
        }
    }
    DropEmptyAlpha(picture);
    return picture;
}

} // namespace artwork
