// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/GifPicture.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace glyphs {

namespace {

using ui::OpaqueBlack;
using ui::OpaquePixel;
using ui::Picture;

constexpr ui::Pixel Red = OpaquePixel(255, 0, 0);
constexpr ui::Pixel Green = OpaquePixel(0, 255, 0);
constexpr ui::Pixel Blue = OpaquePixel(0, 0, 255);
constexpr ui::Pixel White = OpaquePixel(255, 255, 255);

/// A picture of so many colours, which are those of its pixels in order, again and again.
Picture Coloured(int width, int height, int colours) {
    Picture picture(width, height);
    int next = 0;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x, ++next) {
            const auto value = static_cast<unsigned>(next % colours);
            picture.setPixel(x, y, OpaquePixel(value & 0xFFU, (value >> 4U) & 0xFFU, (value >> 8U) & 0xFFU));
        }
    }
    return picture;
}

ui::Bytes Encoded(const Picture& picture) {
    const auto bytes = EncodeGif(picture);
    EXPECT_TRUE(bytes) << bytes.failure().message;
    return bytes ? bytes.value() : ui::Bytes();
}

std::string FailureOf(std::string_view bytes) {
    const auto picture = DecodeGif(bytes);
    return picture ? std::string("it was read") : picture.failure().message;
}

void AppendWord(ui::Bytes& bytes, int value) {
    bytes.push_back(static_cast<char>(value & 0xFF));
    bytes.push_back(static_cast<char>(value >> 8));
}

/// What the head of a GIF and of its one image says; a test bends it.
struct Head {
    int screenWidth = 4;
    int screenHeight = 4;
    int left = 0;
    int top = 0;
    int width = 4;
    int height = 4;
    bool hasScreenColours = true;
    bool isInterlaced = false;
};

/// A GIF with a table of four colours (red, green, blue, white) whose pixels are written out one code a
/// pixel, without any compression.
ui::Bytes HandMade(const Head& head, const std::vector<int>& pixels, const ui::Bytes& extension = {}) {
    ui::Bytes bytes = "GIF89a";
    AppendWord(bytes, head.screenWidth);
    AppendWord(bytes, head.screenHeight);
    bytes.push_back(static_cast<char>(head.hasScreenColours ? 0x81 : 0x01));
    bytes += std::string(2, '\0');
    if (head.hasScreenColours) {
        bytes += std::string("\xFF\0\0\0\xFF\0\0\0\xFF\xFF\xFF\xFF", 12);
    }
    bytes += extension;
    bytes.push_back(',');
    for (const int value : {head.left, head.top, head.width, head.height}) {
        AppendWord(bytes, value);
    }
    bytes.push_back(static_cast<char>(head.isInterlaced ? 0x40 : 0));
    // Codes of three bits: 0 to 3 are colours, 4 clears the table, 5 ends the image. A clear code before
    // every second pixel keeps the codes from growing.
    std::vector<int> codes;
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        if (i % 2 == 0) {
            codes.push_back(4);
        }
        codes.push_back(pixels[i]);
    }
    codes.push_back(5);
    ui::Bytes data;
    unsigned bits = 0;
    unsigned count = 0;
    for (const int code : codes) {
        bits |= static_cast<unsigned>(code) << count;
        count += 3;
        for (; count >= 8; count -= 8, bits >>= 8U) {
            data.push_back(static_cast<char>(bits & 0xFFU));
        }
    }
    data.push_back(static_cast<char>(bits & 0xFFU));
    bytes.push_back(2);
    bytes.push_back(static_cast<char>(data.size()));
    bytes += data;
    bytes.push_back('\0');
    bytes.push_back(';');
    return bytes;
}

/// The extension that makes a colour of the table transparent.
ui::Bytes TransparentColour(int index) {
    ui::Bytes bytes("\x21\xF9\x04\x01\0\0", 6);
    bytes.push_back(static_cast<char>(index));
    bytes.push_back('\0');
    return bytes;
}

const std::vector<int> FourRows{0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3};

TEST(DecodeGif, ReadsBackWhatWasWritten) {
    for (const int colours : {1, 2, 3, 16, 17, 255, 256}) {
        const Picture picture = Coloured(128, 128, colours);
        const auto read = DecodeGif(Encoded(picture));
        ASSERT_TRUE(read) << colours << ": " << read.failure().message;
        EXPECT_EQ(read.value(), picture) << colours;
    }
}

TEST(DecodeGif, ReadsPicturesOfOtherSizes) {
    for (const auto& [width, height] : std::vector<std::pair<int, int>>{{1, 1}, {256, 256}, {3, 200}}) {
        const Picture picture = Coloured(width, height, 7);
        const auto read = DecodeGif(Encoded(picture));
        ASSERT_TRUE(read);
        EXPECT_EQ(read.value(), picture);
    }
}

TEST(DecodeGif, KeepsTransparentPixelsTransparent) {
    Picture picture = Coloured(16, 16, 5);
    picture.setPixel(3, 4, 0);
    const auto read = DecodeGif(Encoded(picture));
    ASSERT_TRUE(read);
    EXPECT_EQ(read.value(), picture);
    EXPECT_EQ(read.value().pixel(3, 4), 0U);
}

TEST(DecodeGif, ReadsAnImageMadeByOthers) {
    const auto read = DecodeGif(HandMade({}, FourRows));
    ASSERT_TRUE(read) << read.failure().message;
    EXPECT_EQ(read.value().pixel(0, 0), Red);
    EXPECT_EQ(read.value().pixel(3, 1), Green);
    EXPECT_EQ(read.value().pixel(0, 2), Blue);
    EXPECT_EQ(read.value().pixel(3, 3), White);
}

TEST(DecodeGif, PutsInterlacedRowsIntoTheirPlaces) {
    // The stored order of four rows is 1, 3, 2, 4.
    const auto read = DecodeGif(HandMade({.isInterlaced = true}, FourRows));
    ASSERT_TRUE(read) << read.failure().message;
    EXPECT_EQ(read.value().pixel(0, 0), Red);
    EXPECT_EQ(read.value().pixel(0, 2), Green);
    EXPECT_EQ(read.value().pixel(0, 1), Blue);
    EXPECT_EQ(read.value().pixel(0, 3), White);
}

TEST(DecodeGif, LeavesWhatTheImageDoesNotCoverTransparent) {
    const Head head{.screenWidth = 6, .screenHeight = 7, .left = 1, .top = 2};
    const auto read = DecodeGif(HandMade(head, FourRows));
    ASSERT_TRUE(read) << read.failure().message;
    EXPECT_EQ(read.value().width(), 6);
    EXPECT_EQ(read.value().height(), 7);
    EXPECT_EQ(read.value().pixel(0, 0), 0U);
    EXPECT_EQ(read.value().pixel(5, 6), 0U);
    EXPECT_EQ(read.value().pixel(1, 2), Red);
    EXPECT_EQ(read.value().pixel(4, 5), White);
}

TEST(DecodeGif, ObeysTheTransparentColourOfTheImage) {
    const auto read = DecodeGif(HandMade({}, FourRows, TransparentColour(2)));
    ASSERT_TRUE(read) << read.failure().message;
    EXPECT_EQ(read.value().pixel(0, 2), 0U);
    EXPECT_EQ(read.value().pixel(0, 3), White);
}

TEST(DecodeGif, PassesOverExtensionsThatItDoesNotKnow) {
    const ui::Bytes comment("\x21\xFE\x05hello\x05world\0", 15);
    EXPECT_TRUE(DecodeGif(HandMade({}, FourRows, comment + TransparentColour(0))));
}

TEST(DecodeGif, IgnoresBytesAfterTheTrailer) {
    const Picture picture = Coloured(128, 128, 16);
    const auto read = DecodeGif(Encoded(picture) + std::string(5000, 'x'));
    ASSERT_TRUE(read);
    EXPECT_EQ(read.value(), picture);
}

TEST(DecodeGif, RefusesWhatIsNoGif) {
    EXPECT_NE(FailureOf("").find("not a usable GIF picture"), std::string::npos);
    EXPECT_NE(FailureOf("GIF").find("not a usable GIF picture"), std::string::npos);
    EXPECT_NE(FailureOf(std::string(10000, '\0')).find("not a usable GIF picture"), std::string::npos);
    EXPECT_NE(FailureOf("BM and something else").find("not a usable GIF picture"), std::string::npos);
}

TEST(DecodeGif, RefusesAGifWithoutAnImage) {
    ui::Bytes bytes = HandMade({}, FourRows);
    bytes = bytes.substr(0, bytes.find(',')) + ";";
    EXPECT_EQ(FailureOf(bytes), "not a usable GIF picture: it holds no image");
}

TEST(DecodeGif, RefusesAnImageWithoutColours) {
    EXPECT_EQ(
        FailureOf(HandMade({.hasScreenColours = false}, FourRows)),
        "not a usable GIF picture: it has no colors");
}

TEST(DecodeGif, RefusesSizesThatAreOutOfRange) {
    const std::string expected = "not a usable GIF picture: its size is out of range";
    for (const Head& head : std::vector<Head>{
             {.screenWidth = 65535, .screenHeight = 65535, .width = 65535, .height = 65535},
             {.screenWidth = 1025},
             {.screenHeight = 1025},
             {.screenWidth = 0, .screenHeight = 0, .width = 0, .height = 0},
             {.width = 0},
             {.height = 0},
             {.left = 1},
             {.top = 1},
             {.left = 65535, .top = 65535},
         }) {
        EXPECT_EQ(FailureOf(HandMade(head, FourRows)), expected);
    }
}

TEST(DecodeGif, RefusesAnImageThatEndsTooSoon) {
    const ui::Bytes whole = Encoded(Coloured(32, 32, 200));
    ASSERT_TRUE(DecodeGif(whole));
    // The last bytes are only the end of the data and the trailer.
    for (std::size_t size = 0; size + 8 < whole.size(); size += 7) {
        EXPECT_FALSE(DecodeGif(std::string_view(whole).substr(0, size))) << size;
    }
    EXPECT_FALSE(DecodeGif(HandMade({}, {0, 1, 2})));
}

TEST(DecodeGif, SurvivesDamagedBytes) {
    const ui::Bytes whole = Encoded(Coloured(32, 32, 200));
    std::mt19937 random(4711);
    for (int i = 0; i < 3000; ++i) {
        ui::Bytes damaged = whole;
        for (auto hits = 1 + random() % 4; hits > 0; --hits) {
            damaged[random() % damaged.size()] = static_cast<char>(random() % 256);
        }
        const auto read = DecodeGif(damaged);
        if (read) {
            EXPECT_LE(read.value().width(), 1024);
            EXPECT_LE(read.value().height(), 1024);
        } else {
            EXPECT_FALSE(read.failure().message.empty());
        }
    }
}

TEST(EncodeGif, RefusesTooManyColoursAndNothing) {
    EXPECT_FALSE(EncodeGif(Picture()));
    const auto tooMany = EncodeGif(Coloured(20, 20, 257));
    ASSERT_FALSE(tooMany);
    EXPECT_EQ(tooMany.failure().message, "the picture has more than 256 colors");
    Picture full = Coloured(20, 20, 256);
    EXPECT_TRUE(EncodeGif(full));
    full.setPixel(19, 19, 0);
    EXPECT_FALSE(EncodeGif(full));
}

TEST(EncodeGif, FitsTheArtworkIntoASlot) {
    EXPECT_LT(Encoded(Coloured(128, 128, 16)).size(), 10000U);
}

TEST(EncodeAnimatedGif, PlaysItsFramesForEver) {
    const std::array<GifFrame, 2> frames{GifFrame{Coloured(8, 8, 3), 10}, GifFrame{Coloured(8, 8, 4), 300}};
    const auto bytes = EncodeAnimatedGif(frames);
    ASSERT_TRUE(bytes);
    const ui::Bytes& gif = bytes.value();
    EXPECT_NE(gif.find(std::string("\x21\xFF\x0BNETSCAPE2.0\x03\x01\0\0\0", 19)), std::string::npos);
    // Each frame's control block carries its delay in hundredths of a second, the low byte first.
    EXPECT_NE(gif.find(std::string("\x21\xF9\x04\x08\x0A\0", 6)), std::string::npos);
    EXPECT_NE(gif.find(std::string("\x21\xF9\x04\x08\x2C\x01", 6)), std::string::npos);
    const auto first = DecodeGif(gif);
    ASSERT_TRUE(first);
    EXPECT_EQ(first.value(), frames[0].picture);
}

TEST(EncodeAnimatedGif, TellsHowFarItIsAndEndsWhenItIsToldTo) {
    const std::array<GifFrame, 3> frames{
        GifFrame{Coloured(8, 8, 3), 1}, GifFrame{Coloured(8, 8, 4), 1}, GifFrame{Coloured(8, 8, 5), 1}};
    for (const int last : {1, 2, 3, 4, 5, 6, 7}) {
        std::vector<int> told;
        const auto bytes = EncodeAnimatedGif(frames, [&](int done) {
            told.push_back(done);
            return done < last;
        });
        EXPECT_EQ(bytes.ok(), last == 7) << last;
        ASSERT_EQ(told.size(), static_cast<std::size_t>(std::min(last, 6)));
        EXPECT_EQ(told.back(), std::min(last, 6)) << "two steps a frame";
    }
}

TEST(EncodeAnimatedGif, RefusesFramesThatDoNotBelongTogether) {
    EXPECT_FALSE(EncodeAnimatedGif({}));
    const std::array<GifFrame, 2> sizes{GifFrame{Picture(8, 8), 1}, GifFrame{Picture(8, 9), 1}};
    EXPECT_FALSE(EncodeAnimatedGif(sizes));
    Picture other = Coloured(20, 20, 200);
    for (int y = 0; y < 20; ++y) {
        for (int x = 0; x < 20; ++x) {
            other.setPixel(x, y, other.pixel(x, y) | 0x0000FFU);
        }
    }
    const std::array<GifFrame, 2> colours{GifFrame{Coloured(20, 20, 200), 1}, GifFrame{other, 1}};
    EXPECT_FALSE(EncodeAnimatedGif(colours));
}

} // namespace

} // namespace glyphs
