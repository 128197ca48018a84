// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "artwork/Archives.h"
#include "artwork/MemorySource.h"
#include "support/GameFiles.h"
#include "support/TempProgramDirectory.h"

#include <gtest/gtest.h>

namespace {

using artwork::MemorySource;
using support::Changed;
using support::Long;
using support::MakePack;
using support::MakeWad;

/// What a file of that name in a pack is: its bytes, "nothing", or why the pack is of no use.
std::string InPack(const std::string& pack, const std::string& name) {
    const auto file = artwork::FileInPack(MemorySource(pack), name);
    if (!file) {
        return "failure: " + file.failure().message;
    }
    return file.value().value_or("nothing");
}

std::string InWad(const std::string& wad, const std::string& name) {
    const auto lump = artwork::LumpInWad(MemorySource(wad), name);
    if (!lump) {
        return "failure: " + lump.failure().message;
    }
    return lump.value().value_or("nothing");
}

} // namespace

TEST(Archives, APackYieldsItsFilesByNameInAnyCase) {
    const std::string pack = MakePack({{"gfx.wad", "first"}, {"gfx/palette.lmp", "second"}, {"empty", ""}});
    EXPECT_EQ(InPack(pack, "gfx.wad"), "first");
    EXPECT_EQ(InPack(pack, "gfx/palette.lmp"), "second");
    EXPECT_EQ(InPack(pack, "GFX/Palette.LMP"), "second");
    EXPECT_EQ(InPack(pack, "empty"), "");
    EXPECT_EQ(InPack(pack, "gfx"), "nothing");
    EXPECT_EQ(InPack(pack, ""), "nothing");
    EXPECT_EQ(InPack(MakePack({}), "gfx.wad"), "nothing");
}

TEST(Archives, TheFirstFileOfANameCounts) {
    EXPECT_EQ(InPack(MakePack({{"a", "1"}, {"a", "2"}}), "a"), "1");
}

TEST(Archives, ANameMayFillItsField) {
    const std::string name(56, 'n');
    EXPECT_EQ(InPack(MakePack({{name, "full"}}), name), "full");
}

TEST(Archives, APackWhoseDirectoryLiesOutsideIsRefused) {
    const std::string pack = MakePack({{"gfx.wad", "first"}});
    const std::string outside = "failure: its directory does not lie within the file";
    EXPECT_EQ(InPack(Changed(pack, 4, Long(0xFFFFFFC0U)), "gfx.wad"), outside);
    EXPECT_EQ(InPack(Changed(pack, 4, Long(18)), "gfx.wad"), outside);
    EXPECT_EQ(InPack(Changed(pack, 8, Long(128)), "gfx.wad"), outside);
    EXPECT_EQ(InPack(Changed(pack, 8, Long(0xFFFFFFC0U)), "gfx.wad"), outside);
    EXPECT_EQ(InPack(Changed(pack, 8, Long(65)), "gfx.wad"), "failure: its directory is damaged");
    EXPECT_EQ(InPack("PACK", "gfx.wad"), "failure: it ends too early");
    EXPECT_EQ(InPack("PACC" + pack.substr(4), "gfx.wad"), "failure: it is not a PACK archive");
}

TEST(Archives, AFileThatLiesOutsideThePackIsRefused) {
    const std::string pack = MakePack({{"gfx.wad", "first"}});
    const std::size_t entry = pack.size() - 64;
    const std::string outside = "failure: gfx.wad does not lie within the file";
    EXPECT_EQ(InPack(Changed(pack, entry + 56, Long(0xFFFFFFFFU)), "gfx.wad"), outside);
    EXPECT_EQ(InPack(Changed(pack, entry + 60, Long(0xFFFFFFFFU)), "gfx.wad"), outside);
    EXPECT_EQ(InPack(Changed(pack, entry + 60, Long(70)), "gfx.wad"), outside);
    // The entry is no use to anyone who asks for another file.
    EXPECT_EQ(InPack(Changed(pack, entry + 60, Long(70)), "other"), "nothing");
}

TEST(Archives, ADirectoryOfTooManyEntriesIsRefused) {
    const std::size_t size = std::size_t{65537} * 64;
    const std::string pack =
        "PACK" + Long(12) + Long(static_cast<std::uint32_t>(size)) + std::string(size, '\0');
    EXPECT_EQ(InPack(pack, "gfx.wad"), "failure: its directory has more than 65536 entries");
}

TEST(Archives, AFileThatIsTooLargeForArtworkIsRefused) {
    const std::string pack = MakePack({{"gfx.wad", std::string(4U * 1024U * 1024U + 1, 'x')}});
    EXPECT_EQ(InPack(pack, "gfx.wad"), "failure: gfx.wad is too large");
}

TEST(Archives, AWadYieldsItsLumpsByNameInAnyCase) {
    const std::string wad = MakeWad({{"PALETTE", "first"}, {"CONCHARS", "second"}});
    EXPECT_EQ(InWad(wad, "CONCHARS"), "second");
    EXPECT_EQ(InWad(wad, "conchars"), "second");
    EXPECT_EQ(InWad(wad, "SBAR"), "nothing");
}

TEST(Archives, AWadThatLiesIsRefused) {
    const std::string wad = MakeWad({{"CONCHARS", "lump"}});
    const std::string outside = "failure: its directory does not lie within the file";
    EXPECT_EQ(InWad(Changed(wad, 4, Long(2)), "CONCHARS"), outside);
    EXPECT_EQ(InWad(Changed(wad, 4, Long(0xFFFFFFFFU)), "CONCHARS"), outside);
    EXPECT_EQ(InWad(Changed(wad, 8, Long(0xFFFFFFFFU)), "CONCHARS"), outside);
    const std::size_t entry = wad.size() - 32;
    EXPECT_EQ(
        InWad(Changed(wad, entry, Long(1000)), "CONCHARS"), "failure: CONCHARS does not lie within the file");
    EXPECT_EQ(InWad(MakeWad({{"CONCHARS", "lump"}}, 1), "CONCHARS"), "failure: CONCHARS is compressed");
    EXPECT_EQ(InWad("WAD2\1", "CONCHARS"), "failure: it ends too early");
    EXPECT_EQ(InWad("WAD3" + wad.substr(4), "CONCHARS"), "failure: it is not a WAD2 archive");
}

TEST(Archives, AFileOnTheDiskIsReadInParts) {
    const support::TempFolder folder;
    const auto source = ui::OpenSource(folder.put("pak0.pak", MakePack({{"a", "content"}})));
    ASSERT_TRUE(source);
    const auto file = artwork::FileInPack(*source.value(), "a");
    ASSERT_TRUE(file);
    EXPECT_EQ(file.value(), "content");
    EXPECT_EQ(source.value()->size(), 12U + 7U + 64U);
    EXPECT_EQ(source.value()->read(80, 3).value().size(), 3U);
    EXPECT_EQ(source.value()->read(80, 4).failure().message, "it ends too early");
    EXPECT_EQ(source.value()->read(84, 0).failure().message, "it ends too early");
}

TEST(Archives, WhatIsNoFileCannotBeOpened) {
    const support::TempFolder folder;
    EXPECT_EQ(ui::OpenSource(folder / "missing").failure().message, "No such file or directory");
    EXPECT_EQ(ui::OpenSource(folder.path()).failure().message, "Is a directory");
    EXPECT_EQ(ui::OpenSource("/dev/null").failure().message, "it is not a file");
}
