// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/GameFiles.h"

#include <algorithm>

namespace support {

namespace {

std::string Padded(const std::string& text, std::size_t width) {
    std::string padded = text;
    padded.resize(width, '\0');
    return padded;
}

ui::Bytes Channels(ui::Pixel pixel, int bits) {
    ui::Bytes bytes = Long(pixel);
    bytes.resize(static_cast<std::size_t>(bits / 8));
    return bytes;
}

ui::Bytes BmpHeader(int width, int height, int bits, std::size_t colours, std::size_t pixels) {
    const std::size_t offset = 54 + 4 * colours;
    return "BM" + Long(static_cast<std::uint32_t>(offset + pixels)) + Long(0) +
           Long(static_cast<std::uint32_t>(offset)) + Long(40) + Long(static_cast<std::uint32_t>(width)) +
           Long(static_cast<std::uint32_t>(height)) + Word(1) + Word(static_cast<unsigned>(bits)) + Long(0) +
           Long(0) + Long(0) + Long(0) + Long(static_cast<std::uint32_t>(colours)) + Long(0);
}

} // namespace

ui::Bytes Word(unsigned value) {
    return {static_cast<char>(value & 0xFFU), static_cast<char>((value >> 8U) & 0xFFU)};
}

ui::Bytes Long(std::uint32_t value) {
    return Word(value & 0xFFFFU) + Word(value >> 16U);
}

ui::Bytes Changed(ui::Bytes bytes, std::size_t at, const ui::Bytes& change) {
    return bytes.replace(at, change.size(), change);
}

ui::Bytes MakePack(const std::vector<Part>& parts) {
    ui::Bytes contents;
    ui::Bytes directory;
    for (const Part& part : parts) {
        directory += Padded(part.name, 56) + Long(static_cast<std::uint32_t>(12 + contents.size())) +
                     Long(static_cast<std::uint32_t>(part.bytes.size()));
        contents += part.bytes;
    }
    return "PACK" + Long(static_cast<std::uint32_t>(12 + contents.size())) +
           Long(static_cast<std::uint32_t>(directory.size())) + contents + directory;
}

ui::Bytes MakeWad(const std::vector<Part>& lumps, char compression) {
    ui::Bytes contents;
    ui::Bytes directory;
    for (const Part& lump : lumps) {
        const ui::Bytes size = Long(static_cast<std::uint32_t>(lump.bytes.size()));
        directory += Long(static_cast<std::uint32_t>(12 + contents.size())) + size + size + 'D' +
                     compression + Word(0) + Padded(lump.name, 16);
        contents += lump.bytes;
    }
    return "WAD2" + Long(static_cast<std::uint32_t>(lumps.size())) +
           Long(static_cast<std::uint32_t>(12 + contents.size())) + contents + directory;
}

ui::Bytes MakePalette() {
    ui::Bytes bytes;
    for (unsigned index = 0; index < 256; ++index) {
        bytes.push_back(static_cast<char>(index));
        bytes.push_back(static_cast<char>(255 - index));
        bytes.push_back(static_cast<char>(index / 2));
    }
    return bytes;
}

ui::Pixel PaletteColour(unsigned index) {
    return ui::OpaquePixel(index, 255 - index, index / 2);
}

ui::Bytes MakeLump(int side, const IndexAt& indexAt) {
    ui::Bytes bytes;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            bytes.push_back(static_cast<char>(indexAt(x, y)));
        }
    }
    return bytes;
}

ui::Bytes MakePcx(int width, int height, const IndexAt& indexAt) {
    const int stride = width + width % 2;
    ui::Bytes bytes = std::string("\x0A\x05\x01\x08", 4) + Word(0) + Word(0) +
                      Word(static_cast<unsigned>(width - 1)) + Word(static_cast<unsigned>(height - 1)) +
                      Word(320) + Word(200) + std::string(49, '\0') + '\1' +
                      Word(static_cast<unsigned>(stride)) + Word(1) + std::string(58, '\0');
    for (int y = 0; y < height; ++y) {
        const auto at = [&](int x) {
            return x < width ? indexAt(x, y) : 0U;
        };
        for (int x = 0; x < stride;) {
            int run = 1;
            while (x + run < stride && run < 63 && at(x + run) == at(x)) {
                ++run;
            }
            if (run > 1 || at(x) >= 0xC0) {
                bytes.push_back(static_cast<char>(0xC0 | run));
            }
            bytes.push_back(static_cast<char>(at(x)));
            x += run;
        }
    }
    return bytes + '\x0C' + MakePalette();
}

ui::Bytes MakeBmp8(int width, int height, const IndexAt& indexAt) {
    ui::Bytes colours;
    for (unsigned index = 0; index < 256; ++index) {
        colours += Long(PaletteColour(index) & 0xFFFFFFU);
    }
    ui::Bytes pixels;
    for (int y = height - 1; y >= 0; --y) {
        for (int x = 0; x < width; ++x) {
            pixels.push_back(static_cast<char>(indexAt(x, y)));
        }
        pixels.resize((pixels.size() + 3) / 4 * 4, '\0');
    }
    return BmpHeader(width, height, 8, 256, pixels.size()) + colours + pixels;
}

ui::Bytes MakeBmp(int width, int height, int bits, const PixelAt& pixelAt) {
    ui::Bytes pixels;
    for (int y = height - 1; y >= 0; --y) {
        for (int x = 0; x < width; ++x) {
            pixels += Channels(pixelAt(x, y), bits);
        }
        pixels.resize((pixels.size() + 3) / 4 * 4, '\0');
    }
    return BmpHeader(width, height, bits, 0, pixels.size()) + pixels;
}

ui::Bytes MakeTga(int width, int height, const PixelAt& pixelAt) {
    ui::Bytes bytes = std::string("\0\0\2\0\0\0\0\0\0\0\0\0", 12) + Word(static_cast<unsigned>(width)) +
                      Word(static_cast<unsigned>(height)) + '\x20' + '\x28';
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            bytes += Long(pixelAt(x, y));
        }
    }
    return bytes;
}

ui::Picture MakePicture(int width, int height, const PixelAt& pixelAt) {
    ui::Picture picture(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            picture.setPixel(x, y, pixelAt(x, y));
        }
    }
    return picture;
}

ui::Picture MakeArtwork(unsigned shade) {
    return MakePicture(128, 128, [shade](int x, int y) {
        if (x % 8 == 7 || y % 8 == 7) {
            return ui::Pixel(0);
        }
        return ui::OpaquePixel(static_cast<unsigned>(x / 8) * 16, static_cast<unsigned>(y / 8) * 16, shade);
    });
}

} // namespace support
