// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "artwork/LittleEndian.h"
#include "artwork/OldPictures.h"
#include "artwork/PictureParts.h"

#include <array>
#include <bit>
#include <optional>
#include <string>
#include <vector>

namespace artwork {

namespace {

constexpr std::size_t FileHeaderSize = 14;
constexpr std::size_t InfoHeaderSize = 40;
constexpr std::size_t MasksOffset = FileHeaderSize + InfoHeaderSize;
constexpr std::uint32_t Uncompressed = 0;
constexpr std::uint32_t Masked = 3;

ui::Failure NotUsableBmp(const std::string& cause) {
    return {"not a usable BMP picture: " + cause};
}

/// Which bits of a pixel of 32 bits hold a channel of 8; 32: none.
using Shifts = std::array<unsigned, 4>; // red, green, blue, alpha

constexpr Shifts PlainShifts{16, 8, 0, 24};
constexpr unsigned NoChannel = 32;

/// The shifts of the masks that follow the header; nothing when they are not whole bytes.
std::optional<Shifts> MaskShifts(std::string_view bytes, bool withAlpha) {
    Shifts shifts{NoChannel, NoChannel, NoChannel, NoChannel};
    for (std::size_t channel = 0; channel < (withAlpha ? 4U : 3U); ++channel) {
        const std::uint32_t mask = LongAt(bytes, MasksOffset + 4 * channel);
        if (mask == 0 && channel == 3) {
            continue;
        }
        const auto shift = static_cast<unsigned>(std::countr_zero(mask));
        if (mask == 0 || mask >> shift != 0xFFU) {
            return std::nullopt;
        }
        shifts[channel] = shift;
    }
    return shifts;
}

unsigned Channel(std::uint32_t value, unsigned shift) {
    return shift == NoChannel ? 0 : (value >> shift) & 0xFFU;
}

/// What the fields of the headers say.
struct Layout {
    int width = 0;
    int height = 0;
    bool topDown = false;
    unsigned bits = 0;
    std::size_t pixels = 0; ///< offset of the first row that is stored
    std::size_t stride = 0; ///< bytes from row to row
    Shifts shifts = PlainShifts;
    std::vector<ui::Pixel> colours;
};

ui::Result<Layout> ReadLayout(std::string_view bytes) {
    if (bytes.size() < MasksOffset || !bytes.starts_with("BM")) {
        return NotUsableBmp("it ends too early");
    }
    const std::uint32_t headerSize = LongAt(bytes, FileHeaderSize);
    if (headerSize < InfoHeaderSize || !Within(bytes.size(), FileHeaderSize, headerSize)) {
        return NotUsableBmp("it has an unknown header");
    }
    Layout layout;
    const auto width = static_cast<std::int32_t>(LongAt(bytes, 18));
    const std::int64_t height = static_cast<std::int32_t>(LongAt(bytes, 22));
    layout.topDown = height < 0;
    if (!IsDecodedSize(width, layout.topDown ? -height : height)) {
        return NotUsableBmp("its size is out of range");
    }
    layout.width = width;
    layout.height = static_cast<int>(layout.topDown ? -height : height);
    layout.bits = WordAt(bytes, 28);
    const std::uint32_t compression = LongAt(bytes, 30);
    const bool isMasked = compression == Masked && layout.bits == 32;
    if (compression != Uncompressed && !isMasked) {
        return NotUsableBmp("it is compressed");
    }
    if (layout.bits != 8 && layout.bits != 24 && layout.bits != 32) {
        return NotUsableBmp("it has " + std::to_string(layout.bits) + " bits a pixel, not 8, 24 or 32");
    }
    layout.pixels = LongAt(bytes, 10);
    layout.stride = (static_cast<std::size_t>(layout.width) * layout.bits + 31) / 32 * 4;
    if (!Within(bytes.size(), layout.pixels, layout.stride * static_cast<std::size_t>(layout.height))) {
        return NotUsableBmp("it ends too early");
    }
    if (isMasked) {
        // The masks of red, green and blue follow the old header; longer ones include them, and that of
        // alpha.
        const bool withAlpha = headerSize >= InfoHeaderSize + 16;
        if (!Within(bytes.size(), MasksOffset, withAlpha ? 16 : 12)) {
            return NotUsableBmp("it ends too early");
        }
        const auto shifts = MaskShifts(bytes, withAlpha);
        if (!shifts) {
            return NotUsableBmp("its colors are not of 8 bits");
        }
        layout.shifts = *shifts;
    }
    if (layout.bits == 8) {
        const std::uint32_t used = LongAt(bytes, 46);
        const std::size_t count = used == 0 ? 256 : used;
        const std::size_t table = FileHeaderSize + headerSize;
        if (count > 256 || !Within(bytes.size(), table, count * 4)) {
            return NotUsableBmp("it has no palette");
        }
        for (std::size_t index = 0; index < count; ++index) {
            const std::uint32_t colour = LongAt(bytes, table + 4 * index);
            layout.colours.push_back(ui::OpaqueBlack | colour);
        }
        layout.colours.resize(256, ui::OpaqueBlack);
    }
    return layout;
}

ui::Pixel PixelAt(std::string_view row, int x, const Layout& layout) {
    const std::size_t at = static_cast<std::size_t>(x) * (layout.bits / 8);
    switch (layout.bits) {
    case 8:
        return layout.colours[ByteAt(row, at)];
    case 24:
        return ui::OpaquePixel(ByteAt(row, at + 2), ByteAt(row, at + 1), ByteAt(row, at));
    default: {
        const std::uint32_t value = LongAt(row, at);
        return PixelOf(
            Channel(value, layout.shifts[0]), Channel(value, layout.shifts[1]),
            Channel(value, layout.shifts[2]), Channel(value, layout.shifts[3]));
    }
    }
}

} // namespace

ui::Result<ui::Picture> DecodeBmp(std::string_view bytes) {
    const auto read = ReadLayout(bytes);
    if (!read) {
        return read.failure();
    }
    const Layout& layout = read.value();
    ui::Picture picture(layout.width, layout.height);
    for (int line = 0; line < layout.height; ++line) {
        const std::string_view row =
            bytes.substr(layout.pixels + static_cast<std::size_t>(line) * layout.stride, layout.stride);
        const int y = layout.topDown ? line : layout.height - 1 - line;
        for (int x = 0; x < layout.width; ++x) {
            picture.setPixel(x, y, PixelAt(row, x, layout));
        }
    }
    DropEmptyAlpha(picture);
    return picture;
}

} // namespace artwork
