// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT

// mkicons FOLDER NAME=PICTURE.png...: writes the pixels of square pictures, each to the file NAME of the
// folder: rows of 32-bit numbers as this machine stores them, 0xAARRGGBB with red, green and blue multiplied
// by alpha.
#include "makers/IconSource.h"
#include "makers/SourceText.h"

#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

namespace {

ui::Pixel Premultiplied(ui::Pixel pixel) {
    const ui::Pixel alpha = pixel >> 24U;
    ui::Pixel result = alpha << 24U;
    for (const unsigned shift : {0U, 8U, 16U}) {
        const ui::Pixel channel = pixel >> shift & 0xFFU;
        result |= (channel * alpha + 127) / 255 << shift;
    }
    return result;
}

std::string PixelsOf(const std::string& file) {
    const ui::Picture icon = makers::ReadIcon(file);
    std::string pixels;
    for (int y = 0; y < icon.height(); ++y) {
        for (int x = 0; x < icon.width(); ++x) {
            const ui::Pixel pixel = Premultiplied(icon.pixel(x, y));
            pixels.append(reinterpret_cast<const char*>(&pixel), sizeof pixel);
        }
    }
    return pixels;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> icons(argv + std::min(argc, 2), argv + argc);
    const auto isNamed = [](const std::string& icon) {
        return icon.find('=') != std::string::npos;
    };
    if (icons.empty() || !std::all_of(icons.begin(), icons.end(), isNamed)) {
        std::cerr << "usage: mkicons FOLDER NAME=PICTURE.png...\n";
        return 2;
    }
    return makers::RunTool([&] {
        for (const std::string& icon : icons) {
            const std::size_t sign = icon.find('=');
            const std::string output = std::string(argv[1]) + "/" + icon.substr(0, sign);
            makers::WriteOutput(output, PixelsOf(icon.substr(sign + 1)));
        }
    });
}
