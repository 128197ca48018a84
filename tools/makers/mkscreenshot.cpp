// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT

// mkscreenshot SCENE CHARSET OUTPUT: draws the default screenshot, a board of rankings in a vaulted hall, and
// writes it as a 24-bit BMP. CHARSET is the source of the glyphs' artwork.
#include "makers/Backdrop.h"
#include "makers/Board.h"
#include "makers/CharSetSource.h"
#include "makers/SourceText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <iostream>
#include <limits>
#include <string>
#include <vector>

namespace {

// The picture is drawn small and doubled, as the games of the time did on large screens.
constexpr int Width = makers::BoardWidth;
constexpr int Height = makers::BoardHeight;
constexpr int Doubled = 2;

// The backdrop's colours: ramps from black over a middle tone to a light one, as narrow as a game's palette.
struct Ramp {
    makers::Vec3 middle;
    makers::Vec3 light;
    int steps = 0;
};

constexpr std::array<Ramp, 9> Ramps = {{
    {{0.36, 0.24, 0.14}, {0.86, 0.66, 0.42}, 26}, // lit brick
    {{0.30, 0.24, 0.18}, {0.74, 0.64, 0.50}, 22}, // stone
    {{0.24, 0.21, 0.20}, {0.60, 0.56, 0.52}, 16}, // grey stone
    {{0.55, 0.28, 0.06}, {1.00, 0.80, 0.40}, 22}, // glow
    {{0.40, 0.06, 0.04}, {0.80, 0.28, 0.16}, 14}, // cloth
    {{0.44, 0.30, 0.08}, {0.86, 0.64, 0.24}, 12}, // gilding
    {{0.20, 0.17, 0.32}, {0.60, 0.54, 0.86}, 18}, // night
    {{0.20, 0.17, 0.18}, {0.52, 0.46, 0.50}, 12}, // night on stone
    {{1.00, 0.42, 0.05}, {1.00, 1.00, 0.86}, 14}, // fire
}};

std::vector<makers::Vec3> backdropPalette() {
    std::vector<makers::Vec3> palette = {{}};
    for (const Ramp& ramp : Ramps) {
        for (int step = 1; step <= ramp.steps; ++step) {
            const double part = 2.0 * step / ramp.steps;
            palette.push_back(
                part <= 1 ? ramp.middle * part : ramp.middle * (2 - part) + ramp.light * (part - 1));
        }
    }
    return palette;
}

ui::Pixel pixelOf(const makers::Vec3& colour) {
    const auto byte = [](double part) {
        return static_cast<unsigned>(std::lround(std::clamp(part, 0.0, 1.0) * 255));
    };
    return ui::OpaquePixel(byte(colour.x), byte(colour.y), byte(colour.z));
}

const makers::Vec3& nearestColour(const std::vector<makers::Vec3>& palette, const makers::Vec3& colour) {
    const makers::Vec3* nearest = palette.data();
    double least = std::numeric_limits<double>::max();
    for (const makers::Vec3& entry : palette) {
        const makers::Vec3 apart = entry - colour;
        const double distance = 3 * apart.x * apart.x + 5 * apart.y * apart.y + 2 * apart.z * apart.z;
        if (distance < least) {
            least = distance;
            nearest = &entry;
        }
    }
    return *nearest;
}

// The backdrop in its few colours, with an ordered dither between them.
ui::Picture reduceColours(makers::LightPicture& light) {
    constexpr std::array<std::array<int, 4>, 4> Dither = {{
        {0, 8, 2, 10},
        {12, 4, 14, 6},
        {3, 11, 1, 9},
        {15, 7, 13, 5},
    }};
    constexpr double DitherDepth = 0.045;
    constexpr double Gamma = 1 / 1.45;
    const std::vector<makers::Vec3> palette = backdropPalette();
    ui::Picture picture(light.width(), light.height());
    for (int y = 0; y < light.height(); ++y) {
        for (int x = 0; x < light.width(); ++x) {
            const makers::Vec3 colour = light.at(x, y);
            const double offset =
                (Dither[static_cast<std::size_t>(y % 4)][static_cast<std::size_t>(x % 4)] - 7.5) / 16 *
                DitherDepth;
            const auto shown = [&](double part) {
                return std::pow(std::clamp(part, 0.0, 1.0), Gamma) + offset;
            };
            picture.setPixel(
                x, y, pixelOf(nearestColour(palette, {shown(colour.x), shown(colour.y), shown(colour.z)})));
        }
    }
    return picture;
}

// The picture at double size as a BMP: 24 bits a pixel, the lowest row first.
std::string bitmap(const ui::Picture& picture) {
    constexpr std::uint32_t HeaderSize = 14 + 40;
    const auto width = static_cast<std::uint32_t>(picture.width() * Doubled);
    const auto height = static_cast<std::uint32_t>(picture.height() * Doubled);
    static_assert(Width * Doubled * 3 % 4 == 0, "rows need no padding");
    const std::uint32_t dataSize = width * height * 3;
    std::string bytes = "BM";
    makers::AppendNumber(bytes, HeaderSize + dataSize, 4);
    makers::AppendNumber(bytes, 0, 4);
    makers::AppendNumber(bytes, HeaderSize, 4);
    makers::AppendNumber(bytes, 40, 4);
    makers::AppendNumber(bytes, width, 4);
    makers::AppendNumber(bytes, height, 4);
    makers::AppendNumber(bytes, 1, 2);  // planes
    makers::AppendNumber(bytes, 24, 2); // bits a pixel
    makers::AppendNumber(bytes, 0, 4);  // not compressed
    makers::AppendNumber(bytes, dataSize, 4);
    makers::AppendNumber(bytes, 2835, 4); // pixels a metre, both ways
    makers::AppendNumber(bytes, 2835, 4);
    makers::AppendNumber(bytes, 0, 4);
    makers::AppendNumber(bytes, 0, 4);
    for (int y = static_cast<int>(height) - 1; y >= 0; --y) {
        for (int x = 0; x < static_cast<int>(width); ++x) {
            makers::AppendNumber(bytes, picture.pixel(x / Doubled, y / Doubled), 3);
        }
    }
    return bytes;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "usage: mkscreenshot SCENE CHARSET OUTPUT\n";
        return 2;
    }
    return makers::RunTool([&] {
        const makers::Board board = makers::ReadBoard(argv[1]);
        const makers::CharSetDrawing glyphs = makers::DrawCharSet(argv[2]);
        makers::LightPicture light(Width, Height);
        makers::DrawBackdrop(light);
        makers::ShadePanel(board, light);
        ui::Picture picture = reduceColours(light);
        makers::DrawBoard(board, glyphs.artwork, picture);
        makers::WriteOutput(argv[3], bitmap(picture));
    });
}
