// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "artwork/Quantise.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <span>
#include <unordered_map>
#include <vector>

namespace artwork {

namespace {

constexpr ui::Pixel Transparent = 0;

struct Colour {
    std::array<std::uint8_t, 3> channels{}; ///< red, green, blue
    std::uint64_t pixels = 0;               ///< how many pixels have it
};

/// Colours that become one.
struct Box {
    std::span<Colour> colours;
    std::size_t axis = 0; ///< the channel in which they differ most
    int extent = 0;       ///< by how much; 0: a box of one colour
    std::uint64_t pixels = 0;

    /// How much cutting the box would better the picture.
    [[nodiscard]] std::uint64_t gain() const { return static_cast<std::uint64_t>(extent) * pixels; }
};

std::map<ui::Pixel, std::uint64_t> Histogram(const ui::Picture& picture) {
    std::map<ui::Pixel, std::uint64_t> counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != Transparent) {
                ++counts[picture.pixel(x, y)];
            }
        }
    }
    return counts;
}

ui::Pixel PixelOf(const Colour& colour) {
    return ui::OpaquePixel(colour.channels[0], colour.channels[1], colour.channels[2]);
}

Box Measured(std::span<Colour> colours) {
    Box box{.colours = colours};
    for (const Colour& colour : colours) {
        box.pixels += colour.pixels;
    }
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const auto [low, high] =
            std::ranges::minmax(colours, {}, [axis](const Colour& colour) { return colour.channels[axis]; });
        const int extent = high.channels[axis] - low.channels[axis];
        if (extent > box.extent) {
            box.extent = extent;
            box.axis = axis;
        }
    }
    return box;
}

/// Cuts a box of several colours where half of its pixels lie on either side.
std::array<Box, 2> Halves(const Box& box) {
    const auto channel = [&box](const Colour& colour) {
        return colour.channels[box.axis];
    };
    std::ranges::stable_sort(box.colours, {}, channel);
    std::uint64_t before = 0;
    std::size_t first = 0;
    while (first + 1 < box.colours.size() && (first == 0 || 2 * before < box.pixels)) {
        before += box.colours[first++].pixels;
    }
    return {Measured(box.colours.first(first)), Measured(box.colours.subspan(first))};
}

/// The mean of a box's pixels.
ui::Pixel MeanOf(const Box& box) {
    std::array<std::uint64_t, 3> sums{};
    for (const Colour& colour : box.colours) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            sums[axis] += colour.channels[axis] * colour.pixels;
        }
    }
    const auto mean = [&](std::size_t axis) {
        return static_cast<unsigned>((sums[axis] + box.pixels / 2) / box.pixels);
    };
    return ui::OpaquePixel(mean(0), mean(1), mean(2));
}

} // namespace

std::size_t CountColours(const ui::Picture& picture) {
    return Histogram(picture).size();
}

ui::Picture WithFewerColours(const ui::Picture& picture, std::size_t most) {
    const auto counts = Histogram(picture);
    if (counts.size() <= most) {
        return picture;
    }
    std::vector<Colour> colours;
    colours.reserve(counts.size());
    for (const auto& [pixel, count] : counts) {
        colours.push_back(
            {{static_cast<std::uint8_t>(pixel >> 16U), static_cast<std::uint8_t>(pixel >> 8U),
              static_cast<std::uint8_t>(pixel)},
             count});
    }
    std::vector<Box> boxes{Measured(colours)};
    while (boxes.size() < most) {
        const auto widest = std::ranges::max_element(boxes, {}, &Box::gain);
        const auto halves = Halves(*widest);
        *widest = halves[0];
        boxes.push_back(halves[1]);
    }
    std::unordered_map<ui::Pixel, ui::Pixel> means;
    for (const Box& box : boxes) {
        const ui::Pixel mean = MeanOf(box);
        for (const Colour& colour : box.colours) {
            means.emplace(PixelOf(colour), mean);
        }
    }
    ui::Picture reduced = picture;
    for (int y = 0; y < reduced.height(); ++y) {
        for (int x = 0; x < reduced.width(); ++x) {
            if (reduced.pixel(x, y) != Transparent) {
                reduced.setPixel(x, y, means.at(reduced.pixel(x, y)));
            }
        }
    }
    return reduced;
}

} // namespace artwork
