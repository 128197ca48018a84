// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "artwork/OldPictures.h"
#include "support/GameFiles.h"

#include <gtest/gtest.h>

namespace {

using artwork::DecodeBmp;
using artwork::DecodePcx;
using artwork::DecodeTga;
using support::Changed;
using support::Long;
using support::MakePicture;
using support::PaletteColour;
using support::Word;

/// The header of a TGA: type, palette entries and their bits, size, bits a pixel, descriptor.
std::string TgaHeader(
    int type, unsigned colours, int colourBits, unsigned width, unsigned height, int bits, int descriptor) {
    return std::string(1, '\0') + static_cast<char>(colours > 0 ? 1 : 0) + static_cast<char>(type) + Word(0) +
           Word(colours) + static_cast<char>(colourBits) + Word(0) + Word(0) + Word(width) + Word(height) +
           static_cast<char>(bits) + static_cast<char>(descriptor);
}

constexpr ui::Pixel Red = 0xFFFF0000U;
constexpr ui::Pixel Green = 0xFF00FF00U;
constexpr ui::Pixel Blue = 0xFF0000FFU;
constexpr ui::Pixel White = 0xFFFFFFFFU;

ui::Picture TwoByTwo(ui::Pixel topLeft, ui::Pixel topRight, ui::Pixel bottomLeft, ui::Pixel bottomRight) {
    return MakePicture(2, 2, [&](int x, int y) {
        return y == 0 ? (x == 0 ? topLeft : topRight) : (x == 0 ? bottomLeft : bottomRight);
    });
}

void ExpectPicture(const ui::Result<ui::Picture>& decoded, const ui::Picture& expected) {
    ASSERT_TRUE(decoded) << decoded.failure().message;
    EXPECT_EQ(decoded.value(), expected);
}

void ExpectFailure(const ui::Result<ui::Picture>& decoded, const std::string& message) {
    ASSERT_FALSE(decoded);
    EXPECT_EQ(decoded.failure().message, message);
}

/// No part of a file that is cut off decodes, and none of them harms.
template <class Decoder>
void ExpectAllCutsFail(Decoder decode, const std::string& bytes) {
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        const std::string cut = bytes.substr(0, size);
        EXPECT_FALSE(decode(std::string(cut.begin(), cut.end()))) << size << " of " << bytes.size();
    }
}

} // namespace

TEST(PcxPicture, ColoursComeFromThePaletteAndIndex255IsTransparent) {
    const auto indexAt = [](int x, int y) {
        return x == 2 ? 255U : static_cast<unsigned>(x * 50 + y * 3);
    };
    // An odd width: every line has a byte more than pixels.
    ExpectPicture(DecodePcx(support::MakePcx(5, 3, indexAt)), MakePicture(5, 3, [&](int x, int y) {
                      return x == 2 ? ui::Pixel(0) : PaletteColour(indexAt(x, y));
                  }));
}

TEST(PcxPicture, RunsMayGoOnInTheNextLine) {
    std::string bytes = support::MakePcx(2, 2, [](int, int) { return 7U; });
    // The two runs of two become one of four.
    bytes.replace(128, 4, std::string("\xC4\x07", 2));
    ExpectPicture(DecodePcx(bytes), MakePicture(2, 2, [](int, int) { return PaletteColour(7); }));
}

TEST(PcxPicture, OnlyPicturesOf256ColoursAreTaken) {
    const std::string bytes = support::MakePcx(4, 4, [](int, int) { return 1U; });
    const std::string message = "not a usable PCX picture: it is not of 256 colors";
    ExpectFailure(DecodePcx(Changed(bytes, 0, "\x0B")), message);
    ExpectFailure(DecodePcx(Changed(bytes, 1, "\x03")), message);
    ExpectFailure(DecodePcx(Changed(bytes, 3, "\x04")), message);
    ExpectFailure(DecodePcx(Changed(bytes, 65, "\x03")), message);
    ExpectFailure(
        DecodePcx(Changed(bytes, bytes.size() - 769, "\x0D")), "not a usable PCX picture: it has no palette");
}

TEST(PcxPicture, SizesThatLieAreRefused) {
    const std::string bytes = support::MakePcx(4, 4, [](int, int) { return 1U; });
    const std::string outOfRange = "not a usable PCX picture: its size is out of range";
    ExpectFailure(DecodePcx(Changed(bytes, 8, Word(1024))), outOfRange);
    ExpectFailure(DecodePcx(Changed(bytes, 4, Word(9))), outOfRange);
    ExpectFailure(DecodePcx(Changed(bytes, 66, Word(3))), outOfRange);
    ExpectFailure(DecodePcx(Changed(bytes, 66, Word(65535))), outOfRange);
    ExpectFailure(DecodePcx(Changed(bytes, 10, Word(4))), "not a usable PCX picture: it ends too early");
    ExpectFailure(DecodePcx(Changed(bytes, 66, Word(6))), "not a usable PCX picture: it ends too early");
    ExpectAllCutsFail(DecodePcx, bytes);
}

TEST(BmpPicture, EightBitsHaveAPalette) {
    const auto indexAt = [](int x, int y) {
        return static_cast<unsigned>(x * 80 + y);
    };
    ExpectPicture(DecodeBmp(support::MakeBmp8(3, 2, indexAt)), MakePicture(3, 2, [&](int x, int y) {
                      return PaletteColour(indexAt(x, y));
                  }));
}

TEST(BmpPicture, APaletteMayBeShort) {
    std::string bytes = support::MakeBmp8(2, 1, [](int x, int) { return x == 0 ? 1U : 2U; });
    bytes.erase(54 + 4 * 2, 4 * 254);
    bytes = Changed(Changed(bytes, 10, Long(54 + 8)), 46, Long(2));
    // A pixel beyond the palette is black.
    ExpectPicture(DecodeBmp(bytes), MakePicture(2, 1, [](int x, int) {
                      return x == 0 ? PaletteColour(1) : ui::OpaqueBlack;
                  }));
}

TEST(BmpPicture, TwentyFourBitsAreOpaque) {
    const ui::Picture picture = TwoByTwo(Red, Green, Blue, White);
    ExpectPicture(
        DecodeBmp(support::MakeBmp(2, 2, 24, [&](int x, int y) { return picture.pixel(x, y); })), picture);
}

TEST(BmpPicture, ANegativeHeightMeansRowsFromTheTop) {
    const ui::Picture picture = TwoByTwo(Red, Green, Blue, White);
    const std::string bytes =
        support::MakeBmp(2, 2, 24, [&](int x, int y) { return picture.pixel(x, 1 - y); });
    ExpectPicture(DecodeBmp(Changed(bytes, 22, Long(0xFFFFFFFEU))), picture);
}

TEST(BmpPicture, TheFourthByteOf32BitsIsAlphaUnlessItIsNothing) {
    const ui::Picture picture = TwoByTwo(Red, 0x80123456U, 0x00FFFFFFU, White);
    ExpectPicture(
        DecodeBmp(support::MakeBmp(2, 2, 32, [&](int x, int y) { return picture.pixel(x, y); })), picture);
    ExpectPicture(
        DecodeBmp(support::MakeBmp(2, 2, 32, [&](int x, int y) { return picture.pixel(x, y) & 0xFFFFFFU; })),
        TwoByTwo(Red, 0xFF123456U, White, White));
}

TEST(BmpPicture, MasksSayWhereTheChannelsAre) {
    std::string bytes = support::MakeBmp(1, 1, 32, [](int, int) { return 0x11223344U; });
    bytes = Changed(Changed(bytes, 30, Long(3)), 10, Long(54 + 12));
    bytes.insert(54, Long(0x000000FFU) + Long(0x0000FF00U) + Long(0x00FF0000U));
    ExpectPicture(DecodeBmp(bytes), MakePicture(1, 1, [](int, int) { return 0xFF443322U; }));
    // A longer header has a mask for alpha.
    bytes.insert(66, Long(0xFF000000U));
    bytes = Changed(Changed(bytes, 14, Long(56)), 10, Long(70));
    ExpectPicture(DecodeBmp(bytes), MakePicture(1, 1, [](int, int) { return 0x11443322U; }));
    ExpectFailure(
        DecodeBmp(Changed(bytes, 54, Long(0x0000001FU))),
        "not a usable BMP picture: its colors are not of 8 bits");
    ExpectFailure(
        DecodeBmp(Changed(bytes, 54, Long(0))), "not a usable BMP picture: its colors are not of 8 bits");
}

TEST(BmpPicture, WhatIsNotKnownIsRefused) {
    const std::string bytes = support::MakeBmp(2, 2, 24, [](int, int) { return Red; });
    ExpectFailure(DecodeBmp(Changed(bytes, 30, Long(1))), "not a usable BMP picture: it is compressed");
    ExpectFailure(
        DecodeBmp(Changed(bytes, 28, Word(4))),
        "not a usable BMP picture: it has 4 bits a pixel, not 8, 24 or 32");
    ExpectFailure(
        DecodeBmp(Changed(bytes, 14, Long(12))), "not a usable BMP picture: it has an unknown header");
    const std::string outOfRange = "not a usable BMP picture: its size is out of range";
    ExpectFailure(DecodeBmp(Changed(bytes, 18, Long(0x80000000U))), outOfRange);
    ExpectFailure(DecodeBmp(Changed(bytes, 22, Long(0x80000000U))), outOfRange);
    ExpectFailure(DecodeBmp(Changed(bytes, 18, Long(1025))), outOfRange);
    ExpectFailure(
        DecodeBmp(Changed(bytes, 10, Long(0xFFFFFFFFU))), "not a usable BMP picture: it ends too early");
    ExpectFailure(
        DecodeBmp(Changed(support::MakeBmp8(2, 2, [](int, int) { return 0U; }), 46, Long(0xFFFFFFFFU))),
        "not a usable BMP picture: it has no palette");
    ExpectAllCutsFail(DecodeBmp, bytes);
}

TEST(TgaPicture, TrueColourStartsAtTheBottomUnlessTheDescriptorSaysOtherwise) {
    const std::string blue("\xFF\x00\x00", 3);
    const std::string green("\x00\xFF\x00", 3);
    const std::string red("\x00\x00\xFF", 3);
    const std::string white("\xFF\xFF\xFF", 3);
    const std::string pixels = red + green + blue + white;
    ExpectPicture(DecodeTga(TgaHeader(2, 0, 0, 2, 2, 24, 0x00) + pixels), TwoByTwo(Blue, White, Red, Green));
    ExpectPicture(DecodeTga(TgaHeader(2, 0, 0, 2, 2, 24, 0x20) + pixels), TwoByTwo(Red, Green, Blue, White));
    ExpectPicture(DecodeTga(TgaHeader(2, 0, 0, 2, 2, 24, 0x30) + pixels), TwoByTwo(Green, Red, White, Blue));
}

TEST(TgaPicture, ThirtyTwoBitsHaveAlphaUnlessItIsNothing) {
    const std::string header = TgaHeader(2, 0, 0, 2, 2, 32, 0x28);
    ExpectPicture(
        DecodeTga(header + Long(Red) + Long(0x40112233U) + Long(0x00FFFFFFU) + Long(White)),
        TwoByTwo(Red, 0x40112233U, 0x00FFFFFFU, White));
    ExpectPicture(
        DecodeTga(header + Long(0x00FF0000U) + Long(0x0000FF00U) + Long(0x000000FFU) + Long(0x00FFFFFFU)),
        TwoByTwo(Red, Green, Blue, White));
}

TEST(TgaPicture, SixteenBitsHaveFiveAChannel) {
    const std::string pixels = Word(0x7C00) + Word(0x83E0) + Word(0x001F) + Word(0x7FFF);
    ExpectPicture(DecodeTga(TgaHeader(2, 0, 0, 2, 2, 16, 0x20) + pixels), TwoByTwo(Red, Green, Blue, White));
    ExpectPicture(DecodeTga(TgaHeader(2, 0, 0, 2, 2, 15, 0x20) + pixels), TwoByTwo(Red, Green, Blue, White));
}

TEST(TgaPicture, PalettesMayStartAnywhere) {
    std::string bytes = TgaHeader(1, 4, 24, 2, 2, 8, 0x20);
    bytes = Changed(Changed(bytes, 3, Word(10)), 0, "\x03");
    bytes += "abc"; // the identification field
    bytes += std::string("\x00\x00\xFF\x00\xFF\x00\xFF\x00\x00\xFF\xFF\xFF", 12);
    bytes += "\x0A\x0B\x0C\x0D";
    ExpectPicture(DecodeTga(bytes), TwoByTwo(Red, Green, Blue, White));
    // An index below the palette's first entry is black, one beyond its end an error.
    ExpectPicture(
        DecodeTga(Changed(bytes, bytes.size() - 4, "\x09")), TwoByTwo(ui::OpaqueBlack, Green, Blue, White));
    ExpectFailure(
        DecodeTga(Changed(bytes, bytes.size() - 4, "\x0E")),
        "not a usable TGA picture: a pixel has a color that is not in its palette");
}

TEST(TgaPicture, GreyIsOneByte) {
    ExpectPicture(
        DecodeTga(TgaHeader(3, 0, 0, 2, 1, 8, 0x20) + std::string("\x80\xFF", 2)),
        MakePicture(2, 1, [](int x, int) { return x == 0 ? 0xFF808080U : White; }));
}

TEST(TgaPicture, RunsAndRawPacketsMayCrossLines) {
    // A run of three and a raw packet of one.
    const std::string code("\x82\x00\x00\xFF\x00\xFF\x00\x00", 8);
    ExpectPicture(DecodeTga(TgaHeader(10, 0, 0, 2, 2, 24, 0x20) + code), TwoByTwo(Red, Red, Red, Blue));
    ExpectPicture(
        DecodeTga(TgaHeader(11, 0, 0, 2, 2, 8, 0x20) + std::string("\x02\xFF\x00\xFF\x80\x00", 6)),
        TwoByTwo(White, ui::OpaqueBlack, White, ui::OpaqueBlack));
    const std::string palette("\x00\x00\xFF\xFF\x00\x00", 6);
    ExpectPicture(
        DecodeTga(TgaHeader(9, 2, 24, 2, 2, 8, 0x20) + palette + std::string("\x82\x01\x80\x00", 4)),
        TwoByTwo(Blue, Blue, Blue, Red));
    // A run that goes on beyond the picture ends with it.
    ExpectPicture(
        DecodeTga(TgaHeader(11, 0, 0, 2, 2, 8, 0x20) + std::string("\xFF\xFF", 2)),
        TwoByTwo(White, White, White, White));
}

TEST(TgaPicture, WhatIsNotKnownIsRefused) {
    const std::string pixels(12, '\0');
    ExpectFailure(
        DecodeTga(TgaHeader(0, 0, 0, 2, 2, 24, 0) + pixels),
        "not a usable TGA picture: it is of an unknown type");
    ExpectFailure(
        DecodeTga(TgaHeader(32, 0, 0, 2, 2, 24, 0) + pixels),
        "not a usable TGA picture: it is of an unknown type");
    ExpectFailure(
        DecodeTga(TgaHeader(2, 0, 0, 0, 2, 24, 0) + pixels),
        "not a usable TGA picture: its size is out of range");
    ExpectFailure(
        DecodeTga(TgaHeader(2, 0, 0, 65535, 65535, 24, 0) + pixels),
        "not a usable TGA picture: its size is out of range");
    ExpectFailure(
        DecodeTga(TgaHeader(2, 0, 0, 2, 2, 8, 0) + pixels),
        "not a usable TGA picture: it has pixels of 8 bits");
    ExpectFailure(
        DecodeTga(TgaHeader(3, 0, 0, 2, 2, 16, 0) + pixels),
        "not a usable TGA picture: it has pixels of 16 bits");
    ExpectFailure(
        DecodeTga(TgaHeader(1, 0, 0, 2, 2, 8, 0) + pixels), "not a usable TGA picture: it has no palette");
    ExpectFailure(
        DecodeTga(TgaHeader(1, 1, 8, 2, 2, 8, 0) + pixels),
        "not a usable TGA picture: its palette has colors of 8 bits");
    ExpectFailure(
        DecodeTga(TgaHeader(1, 65535, 32, 2, 2, 8, 0) + pixels),
        "not a usable TGA picture: it ends too early");
    ExpectAllCutsFail(DecodeTga, TgaHeader(2, 0, 0, 2, 2, 24, 0) + pixels);
    ExpectAllCutsFail(
        DecodeTga, TgaHeader(10, 0, 0, 2, 2, 24, 0x20) + std::string("\x82\x00\x00\xFF\x00\xFF\x00\x00", 8));
}
