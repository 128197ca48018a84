// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "artwork/Artwork.h"

#include "artwork/Archives.h"
#include "artwork/LittleEndian.h"
#include "artwork/MemorySource.h"
#include "artwork/OldPictures.h"
#include "artwork/PictureParts.h"
#include "glyphs/GifPicture.h"
#include "glyphs/PngPicture.h"
#include "glyphs/mdlData.h"

#include <algorithm>

namespace artwork {

namespace {

using glyphs::ArtworkSide;

constexpr std::string_view LumpName = "CONCHARS";
constexpr std::string_view WadPath = "gfx.wad";
constexpr std::string_view PalettePath = "gfx/palette.lmp";
constexpr std::string_view PcxPath = "pics/conchars.pcx";

constexpr std::size_t LumpSize = static_cast<std::size_t>(ArtworkSide) * ArtworkSide;
constexpr std::size_t LumpTransparentIndex = 0;

/// The largest picture that is taken, 512 x 512, has a megabyte of pixels.
constexpr std::uint64_t MaxPictureSize = 4U * 1024U * 1024U;

std::string LowerCase(std::string text) {
    std::ranges::transform(text, text.begin(), [](char byte) {
        return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
    });
    return text;
}

/// The failure of a part of an archive, which has a name of its own.
ui::Failure InPart(std::string_view part, const ui::Failure& failure) {
    return {std::string(part) + " is of no use: " + failure.message};
}

/// Makes pixels opaque or transparent: glyphs know nothing between.
void SplitAlpha(ui::Picture& picture) {
    for (int y = 0; y < picture.height(); ++y) {
        ui::Pixel* row = picture.row(y);
        std::transform(row, row + picture.width(), row, [](ui::Pixel pixel) {
            return (pixel >> 24U) < 128 ? 0 : pixel | ui::OpaqueBlack;
        });
    }
}

bool ShowsNothing(const ui::Picture& picture) {
    for (int y = 0; y < picture.height(); ++y) {
        const ui::Pixel* row = picture.row(y);
        if (std::any_of(row, row + picture.width(), [](ui::Pixel pixel) { return pixel != 0; })) {
            return false;
        }
    }
    return true;
}

/// A picture of 2 or 4 times the size as one of 128 x 128: one pixel of each block, so that nothing is
/// blurred.
Artwork Reduced(const ui::Picture& picture) {
    const int factor = picture.width() / ArtworkSide;
    Artwork artwork{
        .picture = ui::Picture(ArtworkSide, ArtworkSide, 0), .side = picture.width(), .notes = {}};
    bool isExact = true;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const int middle = factor / 2;
            const ui::Pixel kept = picture.pixel(x / factor * factor + middle, y / factor * factor + middle);
            isExact = isExact && picture.pixel(x, y) == kept;
            artwork.picture.setPixel(x / factor, y / factor, kept);
        }
    }
    if (!isExact) {
        artwork.notes.push_back(
            "The picture was reduced from " + std::to_string(picture.width()) + " to " +
            std::to_string(ArtworkSide) + " pixels a side; details between were dropped.");
    }
    return artwork;
}

ui::Result<Artwork> ArtworkOf(ui::Picture picture) {
    const int side = picture.width();
    if (picture.height() != side ||
        (side != ArtworkSide && side != 2 * ArtworkSide && side != 4 * ArtworkSide)) {
        return ui::Failure{
            "it is " + std::to_string(picture.width()) + " x " + std::to_string(picture.height()) +
            " pixels large, not 128 x 128, 256 x 256 or 512 x 512"};
    }
    SplitAlpha(picture);
    Artwork artwork = Reduced(picture);
    if (ShowsNothing(artwork.picture)) {
        return ui::Failure{"it shows nothing: all its pixels are transparent"};
    }
    if (!HasTransparentPixel(artwork.picture)) {
        artwork.notes.emplace_back(
            "The picture has no transparent pixels: its glyphs keep its own background.");
    }
    return artwork;
}

ui::Result<Artwork> ArtworkOfLump(std::string_view lump, const std::optional<Palette>& palette) {
    if (lump.size() != LumpSize) {
        return ui::Failure{
            "it has " + std::to_string(lump.size()) + " bytes, not " + std::to_string(LumpSize)};
    }
    if (!palette) {
        return ui::Failure{
            "its colors are those of the game's palette, which must be given too (gfx/palette.lmp or the "
            "game's pak0.pak)"};
    }
    Palette colours = *palette;
    MakeTransparent(colours, LumpTransparentIndex);
    ui::Picture picture(ArtworkSide, ArtworkSide);
    std::size_t next = 0;
    for (int y = 0; y < ArtworkSide; ++y) {
        for (int x = 0; x < ArtworkSide; ++x) {
            picture.setPixel(x, y, colours[ByteAt(lump, next++)]);
        }
    }
    return ArtworkOf(std::move(picture));
}

ui::Result<Artwork> ArtworkOfWad(const ui::ByteSource& wad, const std::optional<Palette>& palette) {
    const auto lump = LumpInWad(wad, LumpName);
    if (!lump) {
        return lump.failure();
    }
    if (!lump.value()) {
        return ui::Failure{"it holds no lump " + std::string(LumpName)};
    }
    auto artwork = ArtworkOfLump(*lump.value(), palette);
    return artwork ? std::move(artwork) : InPart(LumpName, artwork.failure());
}

ui::Result<Palette> PaletteOfFile(std::string_view bytes) {
    if (bytes.size() != PaletteBytes) {
        return ui::Failure{
            "it has " + std::to_string(bytes.size()) + " bytes, not the " + std::to_string(PaletteBytes) +
            " of a palette"};
    }
    return PaletteOf(bytes);
}

/// The palette in a pack; nothing when it holds none.
ui::Result<std::optional<Palette>> PaletteInPack(const ui::ByteSource& pack) {
    const auto file = FileInPack(pack, PalettePath);
    if (!file) {
        return file.failure();
    }
    if (!file.value()) {
        return std::optional<Palette>();
    }
    const auto palette = PaletteOfFile(*file.value());
    if (!palette) {
        return InPart(PalettePath, palette.failure());
    }
    return std::optional(palette.value());
}

/// The artwork of an archive's gfx.wad, in the given colours or else in those of the archive.
ui::Result<Artwork> ArtworkOfWadInPack(
    const ui::ByteSource& pack, std::string_view wad, const std::optional<Palette>& givenPalette) {
    std::optional<Palette> palette = givenPalette;
    if (!palette) {
        const auto own = PaletteInPack(pack);
        if (!own) {
            return own.failure();
        }
        palette = own.value();
    }
    auto artwork = ArtworkOfWad(MemorySource(wad), palette);
    return artwork ? std::move(artwork) : InPart(WadPath, artwork.failure());
}

ui::Result<Artwork> ArtworkOfPack(const ui::ByteSource& pack, const std::optional<Palette>& palette) {
    const auto wad = FileInPack(pack, WadPath);
    if (!wad) {
        return wad.failure();
    }
    if (wad.value()) {
        return ArtworkOfWadInPack(pack, *wad.value(), palette);
    }
    const auto pcx = FileInPack(pack, PcxPath);
    if (!pcx) {
        return pcx.failure();
    }
    if (!pcx.value()) {
        return ui::Failure{"it holds neither " + std::string(WadPath) + " nor " + std::string(PcxPath)};
    }
    auto picture = DecodePcx(*pcx.value());
    auto artwork = picture ? ArtworkOf(std::move(picture).value()) : picture.failure();
    return artwork ? std::move(artwork) : InPart(PcxPath, artwork.failure());
}

using Decoder = ui::Result<ui::Picture> (*)(std::string_view);

/// What decodes a picture; none when the bytes are of no known kind.
Decoder DecoderOf(std::string_view bytes, const std::string& extension) {
    if (bytes.starts_with("\x89PNG")) {
        return &glyphs::DecodePng;
    }
    if (bytes.starts_with("GIF8")) {
        return &glyphs::DecodeGif;
    }
    // A TGA has no mark and those of the others are short, so that the file's own word comes first.
    if (extension == ".tga") {
        return &DecodeTga;
    }
    if (extension == ".pcx") {
        return &DecodePcx;
    }
    if (extension == ".bmp") {
        return &DecodeBmp;
    }
    if (bytes.size() == LumpSize) {
        return nullptr;
    }
    if (bytes.starts_with("BM")) {
        return &DecodeBmp;
    }
    if (bytes.starts_with("\x0A\x05\x01")) {
        return &DecodePcx;
    }
    return nullptr;
}

} // namespace

ui::Result<Palette> ReadPalette(const ui::ByteSource& source) {
    const auto start =
        source.read(0, static_cast<std::size_t>(std::min<std::uint64_t>(source.size(), PaletteBytes)));
    if (!start) {
        return start.failure();
    }
    if (source.size() != PaletteBytes && IsPack(start.value())) {
        const auto palette = PaletteInPack(source);
        if (!palette) {
            return palette.failure();
        }
        if (!palette.value()) {
            return ui::Failure{"it holds no " + std::string(PalettePath)};
        }
        return *palette.value();
    }
    if (source.size() != PaletteBytes) {
        return ui::Failure{
            "it is neither a palette of " + std::to_string(PaletteBytes) + " bytes nor a game's pak0.pak"};
    }
    return PaletteOf(start.value());
}

ui::Result<Artwork> ReadArtwork(
    const ui::ByteSource& source, const std::string& extension, const std::optional<Palette>& palette) {
    constexpr std::uint64_t MarkSize = 4;
    const auto mark = source.read(0, static_cast<std::size_t>(std::min(source.size(), MarkSize)));
    if (!mark) {
        return mark.failure();
    }
    if (IsPack(mark.value())) {
        return ArtworkOfPack(source, palette);
    }
    if (IsWad(mark.value())) {
        return ArtworkOfWad(source, palette);
    }
    if (source.size() > MaxPictureSize) {
        return ui::Failure{"it is too large for a picture of glyphs"};
    }
    const auto bytes = source.read(0, static_cast<std::size_t>(source.size()));
    if (!bytes) {
        return bytes.failure();
    }
    if (const Decoder decode = DecoderOf(bytes.value(), LowerCase(extension))) {
        auto picture = decode(bytes.value());
        return picture ? ArtworkOf(std::move(picture).value()) : picture.failure();
    }
    if (bytes.value().size() == LumpSize) {
        return ArtworkOfLump(bytes.value(), palette);
    }
    return ui::Failure{
        "it is neither a picture (PNG, GIF, PCX, BMP, TGA) nor a game's character set (conchars, gfx.wad, "
        "pak0.pak)"};
}

} // namespace artwork
