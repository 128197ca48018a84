// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT

// mkico OUTPUT PICTURE.png...: puts square pictures of up to 256 pixels a side into an icon of Windows, in
// the order in which they are named. Source of the format: the documents of Windows on the ICONDIR and
// ICONDIRENTRY structures.
#include "glyphs/PngPicture.h"
#include "makers/IconSource.h"
#include "makers/SourceText.h"

#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

namespace {

using makers::AppendNumber;

constexpr int LargestSide = 256;
constexpr int EntrySize = 16;
constexpr int HeaderSize = 6;
constexpr int BitmapHeaderSize = 40;

/// The form that every reader of icons knows: rows from the bottom, and a mask, which nobody reads where
/// pixels have an alpha.
std::string BitmapOf(const ui::Picture& icon) {
    const int side = icon.width();
    std::string bytes;
    AppendNumber(bytes, BitmapHeaderSize, 4);
    AppendNumber(bytes, static_cast<std::uint32_t>(side), 4);
    AppendNumber(bytes, static_cast<std::uint32_t>(2 * side), 4); // with the mask
    AppendNumber(bytes, 1, 2);                                    // plane
    AppendNumber(bytes, 32, 2);                                   // bits of a pixel
    bytes.append(BitmapHeaderSize - bytes.size(), '\0');
    for (int y = side - 1; y >= 0; --y) {
        for (int x = 0; x < side; ++x) {
            AppendNumber(bytes, icon.pixel(x, y), 4);
        }
    }
    const auto maskRow = static_cast<std::size_t>((side + 31) / 32 * 4);
    bytes.append(maskRow * static_cast<std::size_t>(side), '\0');
    return bytes;
}

/// The largest would be a quarter of a megabyte as a bitmap.
std::string ImageOf(const ui::Picture& icon) {
    return icon.width() < LargestSide ? BitmapOf(icon) : glyphs::EncodePng(icon).value();
}

void MakeIcon(const std::string& output, const std::vector<std::string>& files) {
    std::string entries;
    std::string images;
    const auto count = static_cast<std::uint32_t>(files.size());
    for (const std::string& file : files) {
        const ui::Picture icon = makers::ReadIcon(file);
        if (icon.width() > LargestSide) {
            throw makers::SourceError{file + ": is larger than 256 x 256"};
        }
        const std::string image = ImageOf(icon);
        const auto side = static_cast<std::uint32_t>(icon.width() % LargestSide); // 0 says 256
        AppendNumber(entries, side, 1);
        AppendNumber(entries, side, 1);
        AppendNumber(entries, 0, 2); // no palette
        AppendNumber(entries, 1, 2);
        AppendNumber(entries, 32, 2);
        AppendNumber(entries, static_cast<std::uint32_t>(image.size()), 4);
        AppendNumber(
            entries, static_cast<std::uint32_t>(HeaderSize + EntrySize * files.size() + images.size()), 4);
        images += image;
    }
    std::string bytes;
    AppendNumber(bytes, 0, 2);
    AppendNumber(bytes, 1, 2); // an icon, no pointer
    AppendNumber(bytes, count, 2);
    makers::WriteOutput(output, bytes + entries + images);
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> files(argv + std::min(argc, 2), argv + argc);
    if (files.empty()) {
        std::cerr << "usage: mkico OUTPUT PICTURE.png...\n";
        return 2;
    }
    return makers::RunTool([&] { MakeIcon(argv[1], files); });
}
