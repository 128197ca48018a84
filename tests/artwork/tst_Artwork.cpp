// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "artwork/Artwork.h"
#include "artwork/MemorySource.h"
#include "glyphs/GifPicture.h"
#include "glyphs/PngPicture.h"
#include "support/GameFiles.h"

#include <gtest/gtest.h>

namespace {

using artwork::Artwork;
using artwork::MemorySource;
using artwork::Palette;
using support::MakePack;
using support::MakePicture;
using support::MakeWad;
using support::PaletteColour;

const std::string NoPalette = "its colors are those of the game's palette, which must be given too "
                              "(gfx/palette.lmp or the game's pak0.pak)";
const std::string KeepsBackground =
    "The picture has no transparent pixels: its glyphs keep its own background.";

ui::Result<Artwork> Read(
    const std::string& bytes, const std::string& extension = "", const std::optional<Palette>& palette = {}) {
    return artwork::ReadArtwork(MemorySource(bytes), extension, palette);
}

void ExpectArtwork(const ui::Result<Artwork>& read, const ui::Picture& expected) {
    ASSERT_TRUE(read) << read.failure().message;
    EXPECT_EQ(read.value().picture, expected);
}

void ExpectRefused(const ui::Result<Artwork>& read, const std::string& message) {
    ASSERT_FALSE(read);
    EXPECT_EQ(read.failure().message, message);
}

std::string Png(const ui::Picture& picture) {
    return glyphs::EncodePng(picture).value();
}

unsigned LumpIndexAt(int x, int y) {
    return static_cast<unsigned>(x + y / 64 * 128);
}

const std::string Lump = support::MakeLump(128, LumpIndexAt);

/// The lump in the palette's colours, with one index transparent.
ui::Picture Coloured(unsigned transparent) {
    return MakePicture(128, 128, [transparent](int x, int y) {
        return LumpIndexAt(x, y) == transparent ? ui::Pixel(0) : PaletteColour(LumpIndexAt(x, y));
    });
}

Palette TestPalette() {
    return artwork::PaletteOf(support::MakePalette());
}

} // namespace

TEST(Artwork, AnyPictureFileWillDo) {
    const ui::Picture artwork = MakePicture(128, 128, [](int x, int y) {
        return (x ^ y) % 3 == 0 ? ui::Pixel(0) : ui::OpaquePixel(static_cast<unsigned>(x), 7, 9);
    });
    const auto pixelAt = [&](int x, int y) {
        return artwork.pixel(x, y);
    };
    ExpectArtwork(Read(Png(artwork)), artwork);
    ExpectArtwork(Read(glyphs::EncodeGif(artwork).value()), artwork);
    ExpectArtwork(Read(support::MakeTga(128, 128, pixelAt), ".tga"), artwork);
    ExpectArtwork(Read(support::MakeTga(128, 128, pixelAt), ".TGA"), artwork);
    ExpectArtwork(Read(support::MakeBmp(128, 128, 32, pixelAt)), artwork);
    ExpectArtwork(Read(support::MakePcx(128, 128, LumpIndexAt)), Coloured(255));
    // The content counts where it is plain, whatever the name says.
    ExpectArtwork(Read(Png(artwork), ".tga"), artwork);
}

TEST(Artwork, AlphaIsAllOrNothing) {
    const auto read = Read(Png(
        MakePicture(128, 128, [](int x, int) { return (x < 64 ? 0x7F000000U : 0x80000000U) | 0x123456U; })));
    ExpectArtwork(
        read, MakePicture(128, 128, [](int x, int) { return x < 64 ? ui::Pixel(0) : 0xFF123456U; }));
    EXPECT_TRUE(read.value().notes.empty());
}

TEST(Artwork, AnEnlargedPictureIsReducedExactly) {
    const ui::Picture artwork = support::MakeArtwork(5);
    for (const int factor : {2, 4}) {
        const auto read = Read(Png(MakePicture(128 * factor, 128 * factor, [&](int x, int y) {
            return artwork.pixel(x / factor, y / factor);
        })));
        ExpectArtwork(read, artwork);
        EXPECT_TRUE(read.value().notes.empty());
    }
}

TEST(Artwork, AFinerPictureLosesDetailsAndIsNotBlurred) {
    const auto read = Read(Png(MakePicture(256, 256, [](int x, int y) {
        return x % 2 == 1 && y % 2 == 1 ? ui::Pixel(0xFF0000FFU) : ui::Pixel(0);
    })));
    ExpectArtwork(read, ui::Picture(128, 128, 0xFF0000FFU));
    EXPECT_EQ(
        read.value().notes,
        (std::vector<std::string>{
            "The picture was reduced from 256 to 128 pixels a side; details between were dropped.",
            KeepsBackground}));
}

TEST(Artwork, APictureThatShowsNothingIsRefused) {
    const std::string nothing = "it shows nothing: all its pixels are transparent";
    ExpectRefused(Read(Png(MakePicture(128, 128, [](int, int) { return 0x7FFFFFFFU; }))), nothing);
    ExpectRefused(Read(support::MakeLump(128, [](int, int) { return 0U; }), "", TestPalette()), nothing);
    ExpectRefused(Read(support::MakePcx(128, 128, [](int, int) { return 255U; })), nothing);
}

TEST(Artwork, OtherSizesAreRefused) {
    const std::string sizes = " pixels large, not 128 x 128, 256 x 256 or 512 x 512";
    ExpectRefused(Read(Png(ui::Picture(64, 64))), "it is 64 x 64" + sizes);
    ExpectRefused(Read(Png(ui::Picture(128, 256))), "it is 128 x 256" + sizes);
    ExpectRefused(Read(Png(ui::Picture(384, 384))), "it is 384 x 384" + sizes);
    ExpectRefused(Read(Png(ui::Picture(1024, 1024))), "it is 1024 x 1024" + sizes);
}

TEST(Artwork, TheLumpOfQuakeNeedsAPaletteAndItsIndex0IsTransparent) {
    ExpectArtwork(Read(Lump, "", TestPalette()), Coloured(0));
    ExpectArtwork(Read(Lump, ".lmp", TestPalette()), Coloured(0));
    ExpectRefused(Read(Lump), NoPalette);
}

TEST(Artwork, AWadHoldsTheLump) {
    ExpectArtwork(Read(MakeWad({{"CONCHARS", Lump}}), "", TestPalette()), Coloured(0));
    ExpectRefused(Read(MakeWad({{"CONCHARS", Lump}})), "CONCHARS is of no use: " + NoPalette);
    ExpectRefused(Read(MakeWad({{"SBAR", Lump}})), "it holds no lump CONCHARS");
    ExpectRefused(
        Read(MakeWad({{"CONCHARS", "short"}}), "", TestPalette()),
        "CONCHARS is of no use: it has 5 bytes, not 16384");
}

TEST(Artwork, ThePackOfQuakeHoldsAWadAndItsPalette) {
    const std::string wad = MakeWad({{"CONCHARS", Lump}});
    ExpectArtwork(
        Read(MakePack({{"gfx.wad", wad}, {"gfx/palette.lmp", support::MakePalette()}})), Coloured(0));
    ExpectArtwork(Read(MakePack({{"gfx.wad", wad}}), "", TestPalette()), Coloured(0));
    ExpectRefused(
        Read(MakePack({{"gfx.wad", wad}})), "gfx.wad is of no use: CONCHARS is of no use: " + NoPalette);
    ExpectRefused(
        Read(MakePack({{"gfx.wad", wad}, {"gfx/palette.lmp", "short"}})),
        "gfx/palette.lmp is of no use: it has 5 bytes, not the 768 of a palette");
    ExpectRefused(
        Read(MakePack({{"gfx.wad", "no archive at all"}, {"gfx/palette.lmp", support::MakePalette()}})),
        "gfx.wad is of no use: it is not a WAD2 archive");
}

TEST(Artwork, AGivenPaletteCountsMoreThanThatOfThePack) {
    const std::string pack =
        MakePack({{"gfx.wad", MakeWad({{"CONCHARS", Lump}})}, {"gfx/palette.lmp", std::string(768, '\0')}});
    ExpectArtwork(Read(pack, "", TestPalette()), Coloured(0));
}

TEST(Artwork, ThePackOfQuake2HoldsAPicture) {
    ExpectArtwork(
        Read(MakePack({{"pics/conchars.pcx", support::MakePcx(128, 128, LumpIndexAt)}})), Coloured(255));
    ExpectRefused(
        Read(MakePack({{"pics/conchars.pcx", "short"}})),
        "pics/conchars.pcx is of no use: not a usable PCX picture: it ends too early");
    ExpectRefused(
        Read(MakePack({{"pics/other.pcx", "short"}})), "it holds neither gfx.wad nor pics/conchars.pcx");
}

TEST(Artwork, WhatIsNeitherIsRefused) {
    const std::string neither =
        "it is neither a picture (PNG, GIF, PCX, BMP, TGA) nor a game's character set "
        "(conchars, gfx.wad, pak0.pak)";
    ExpectRefused(Read(""), neither);
    ExpectRefused(Read("a"), neither);
    ExpectRefused(Read(std::string(16383, '\0'), ".lmp", TestPalette()), neither);
    ExpectRefused(Read(std::string(5U * 1024U * 1024U, 'x')), "it is too large for a picture of glyphs");
    ExpectRefused(Read("x", ".tga"), "not a usable TGA picture: it ends too early");
    ExpectRefused(Read("PAC"), neither);
    ExpectRefused(Read("PACK"), "it ends too early");
}

TEST(Artwork, APaletteIsAFileOrLiesInAPack) {
    EXPECT_EQ(artwork::ReadPalette(MemorySource(support::MakePalette())).value(), TestPalette());
    const std::string pack = MakePack({{"gfx/palette.lmp", support::MakePalette()}});
    EXPECT_EQ(artwork::ReadPalette(MemorySource(pack)).value(), TestPalette());
    EXPECT_EQ(
        artwork::ReadPalette(MemorySource(MakePack({}))).failure().message, "it holds no gfx/palette.lmp");
    EXPECT_EQ(
        artwork::ReadPalette(MemorySource("x")).failure().message,
        "it is neither a palette of 768 bytes nor a game's pak0.pak");
}
