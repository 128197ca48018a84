// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/mdlData.h"

#include "glyphs/GifPicture.h"
#include "support/FakePlatform.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace glyphs {

namespace {

using ui::OpaquePixel;
using ui::Picture;

std::string Wide(const std::string& text, std::size_t width) {
    return text + std::string(width - text.size(), ' ');
}

CharSetRecord Record(int index, const std::string& name, const std::string& address, int slot) {
    return {
        .listIndex = static_cast<std::int16_t>(index),
        .name = Wide(name, 50),
        .webAddress = Wide(address, 100),
        .artworkSlot = static_cast<std::int16_t>(slot)};
}

const CharSetRecord First = Record(0, "Classic", "http://classic.example/", 0);
const CharSetRecord Second = Record(1, "Steel", "http://steel.example/", 300);

/// Artwork whose pixels tell their place, with one of them transparent.
Picture Artwork(int side, unsigned blue) {
    Picture artwork(side, side);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const auto step = static_cast<unsigned>(x / (side / 8) * 8 + y / (side / 8));
            artwork.setPixel(x, y, OpaquePixel(step, 0, blue));
        }
    }
    artwork.setPixel(0, 0, 0);
    return artwork;
}

/// A whole slot: the picture and padding.
ui::Bytes Slot(const Picture& artwork, char padding = '\0') {
    ui::Bytes bytes = EncodeGif(artwork).value();
    EXPECT_LE(bytes.size(), 10000U);
    bytes.resize(10000, padding);
    return bytes;
}

TEST(CharSetRecord, TakesOneHundredAndFiftyFourBytes) {
    const ui::Bytes bytes = EncodeCharSetRecord(Record(258, "Name", "address", -2));
    ASSERT_EQ(bytes.size(), 154U);
    EXPECT_EQ(bytes.substr(0, 2), "\x02\x01");
    EXPECT_EQ(bytes.substr(2, 50), Wide("Name", 50));
    EXPECT_EQ(bytes.substr(52, 100), Wide("address", 100));
    EXPECT_EQ(bytes.substr(152, 2), "\xFE\xFF");
}

TEST(CharSetRecord, IsReadBack) {
    for (const CharSetRecord& record : {First, Second, Record(-1, "", "", 32767), CharSetRecord()}) {
        EXPECT_EQ(DecodeCharSetRecord(EncodeCharSetRecord(record)), record);
    }
}

TEST(CharSetRecord, IsCutToItsWidth) {
    CharSetRecord record;
    record.name = std::string(60, 'n');
    record.webAddress = std::string(101, 'w');
    const ui::Bytes bytes = EncodeCharSetRecord(record);
    ASSERT_EQ(bytes.size(), 154U);
    EXPECT_EQ(DecodeCharSetRecord(bytes).name, std::string(50, 'n'));
    EXPECT_EQ(DecodeCharSetRecord(bytes).webAddress, std::string(100, 'w'));
}

TEST(WebAddressText, HasNoBlanksAtItsEnd) {
    EXPECT_EQ(WebAddressText(First), "http://classic.example/");
    EXPECT_EQ(WebAddressText(Record(0, "", " a b", 0)), " a b");
    EXPECT_EQ(WebAddressText(CharSetRecord()), "");
}

TEST(ShownText, IsReadableAndHasNoBlanksAtItsEnd) {
    EXPECT_EQ(ShownText("  Stone \xE4\xFF  "), "  Stone \xC3\xA4\xC3\xBF");
    EXPECT_EQ(ShownText("a\x1b[1m\r\n\x7f\x9b"), "a?[1m????");
    EXPECT_EQ(ShownText("   "), "");
}

class CharSetFiles : public testing::Test {
protected:
    void putList(const ui::Bytes& bytes) const { fake.directory.files.put("vtmtc.dat", bytes); }

    void putStore(const ui::Bytes& bytes) const { fake.directory.files.put("vtmgrid.dat", bytes); }

    [[nodiscard]] std::vector<std::string> names() { return LoadCharSetNames(fake.files, fake.directory); }

    [[nodiscard]] ui::Result<CharSetRecord> record(int number) const {
        return ReadCharSetRecord(fake.files, fake.directory, number);
    }

    [[nodiscard]] ui::Result<Picture> artwork(int slot) {
        return LoadArtwork(fake.files, fake.directory, slot);
    }

    [[nodiscard]] std::string failureOf(int slot) {
        const auto picture = artwork(slot);
        return picture ? std::string("it was read") : picture.failure().message;
    }

    support::FakePlatform fake;
};

TEST_F(CharSetFiles, ListTheNamesOfAllRecordsInOrder) {
    putList(EncodeCharSetRecord(First) + EncodeCharSetRecord(Second));
    EXPECT_EQ(fake.directory.files.content("vtmtc.dat").size(), 308U);
    EXPECT_EQ(names(), (std::vector<std::string>{Wide("Classic", 50), Wide("Steel", 50)}));
}

TEST_F(CharSetFiles, ListNoNameOfARecordThatIsCutShort) {
    putList(EncodeCharSetRecord(First) + EncodeCharSetRecord(Second).substr(0, 153));
    EXPECT_EQ(names().size(), 1U);
}

TEST_F(CharSetFiles, ListNothingWhenTheListIsEmptyOrMissing) {
    EXPECT_TRUE(names().empty());
    EXPECT_TRUE(fake.directory.files.has("vtmtc.dat"));
    EXPECT_EQ(fake.directory.files.content("vtmtc.dat"), "");
    EXPECT_TRUE(names().empty());
    EXPECT_EQ(fake.directory.files.content("vtmtc.dat"), "");
}

TEST_F(CharSetFiles, MakeNoEmptyListInTheStandInFolder) {
    fake.directory.isWritable = false;
    EXPECT_TRUE(names().empty());
    EXPECT_FALSE(fake.directory.standIn.has("vtmtc.dat"));
    EXPECT_FALSE(fake.directory.files.has("vtmtc.dat"));
    putList(EncodeCharSetRecord(First));
    EXPECT_EQ(names().size(), 1U);
}

TEST_F(CharSetFiles, TakeTheProgramsListWhereTheStandInListIsEmpty) {
    fake.directory.isWritable = false;
    putList(EncodeCharSetRecord(First) + EncodeCharSetRecord(Second));
    fake.directory.standIn.put("vtmtc.dat", "");
    EXPECT_EQ(names().size(), 2U);
    EXPECT_EQ(record(2).value(), Second);
    EXPECT_EQ(CharSetListPath(fake.files, fake.directory), fake.directory.files / "vtmtc.dat");
    fake.directory.standIn.put("vtmtc.dat", EncodeCharSetRecord(Second));
    EXPECT_EQ(names(), std::vector<std::string>{Wide("Steel", 50)});
    EXPECT_EQ(record(1).value(), Second);
    EXPECT_EQ(CharSetListPath(fake.files, fake.directory), fake.directory.standIn / "vtmtc.dat");
}

TEST_F(CharSetFiles, ListNothingWhenTheListCannotBeReadOrMade) {
    fake.files.failFrom(support::FailingFiles::Step::Create);
    EXPECT_TRUE(names().empty());
    fake.files.failNothing();
    putList(EncodeCharSetRecord(First));
    fake.files.failFrom(support::FailingFiles::Step::Read);
    EXPECT_TRUE(names().empty());
    fake.files.failNothing();
    EXPECT_EQ(names().size(), 1U);
}

TEST_F(CharSetFiles, YieldARecordByItsNumber) {
    putList(EncodeCharSetRecord(First) + EncodeCharSetRecord(Second));
    EXPECT_EQ(record(1).value(), First);
    EXPECT_EQ(record(2).value(), Second);
}

TEST_F(CharSetFiles, YieldTheFirstRecordForANumberOutsideTheList) {
    putList(EncodeCharSetRecord(First) + EncodeCharSetRecord(Second) + "rest");
    for (const int number : {0, -1, 3, 32768, -32767}) {
        EXPECT_EQ(record(number).value(), First) << number;
    }
}

TEST_F(CharSetFiles, SayWhichListIsMissingOrEmpty) {
    const std::string path = (fake.directory.files / "vtmtc.dat").string();
    const auto missing = record(1);
    ASSERT_FALSE(missing);
    EXPECT_NE(missing.failure().message.find(path), std::string::npos);
    putList("");
    const auto empty = record(1);
    ASSERT_FALSE(empty);
    EXPECT_EQ(empty.failure().message, "The character-set list \"" + path + "\" holds no record.");
}

TEST_F(CharSetFiles, YieldTheArtworkOfASlot) {
    const Picture first = Artwork(128, 1);
    const Picture second = Artwork(128, 2);
    putStore(Slot(first) + Slot(second, 'x'));
    EXPECT_EQ(artwork(0).value(), first);
    EXPECT_EQ(artwork(1).value(), second);
}

TEST_F(CharSetFiles, YieldTheArtworkOfALastSlotThatIsNotPadded) {
    const Picture second = Artwork(128, 2);
    putStore(Slot(Artwork(128, 1)) + EncodeGif(second).value());
    EXPECT_EQ(artwork(1).value(), second);
}

TEST_F(CharSetFiles, ScaleArtworkOfAnotherSize) {
    putStore(Slot(Artwork(256, 3)));
    const auto scaled = artwork(0);
    ASSERT_TRUE(scaled) << scaled.failure().message;
    EXPECT_EQ(scaled.value(), Artwork(128, 3));
}

TEST_F(CharSetFiles, ReplaceTransparentPixelsInTheAtlasOnly) {
    putStore(Slot(Artwork(128, 1)));
    EXPECT_EQ(artwork(0).value().pixel(0, 0), 0U);
}

TEST_F(CharSetFiles, SayWhichSlotIsMissing) {
    const std::string path = (fake.directory.files / "vtmgrid.dat").string();
    EXPECT_NE(failureOf(0).find(path), std::string::npos);
    putStore(Slot(Artwork(128, 1)));
    EXPECT_EQ(failureOf(1), "The artwork store \"" + path + "\" has no slot 1.");
    EXPECT_EQ(failureOf(-1), "The artwork store \"" + path + "\" has no slot -1.");
    EXPECT_EQ(failureOf(32767), "The artwork store \"" + path + "\" has no slot 32767.");
}

TEST_F(CharSetFiles, YieldARecordWithItsArtwork) {
    CharSetRecord record = Second;
    record.artworkSlot = 1;
    putList(EncodeCharSetRecord(First) + EncodeCharSetRecord(record));
    putStore(Slot(Artwork(128, 1)) + Slot(Artwork(128, 2)));
    const auto set = LoadCharSet(fake.files, fake.directory, 2);
    ASSERT_TRUE(set) << set.failure().message;
    EXPECT_EQ(set.value().record, record);
    EXPECT_EQ(set.value().artwork, Artwork(128, 2));
    EXPECT_FALSE(fake.directory.files.has("curchar.gif"));
}

TEST_F(CharSetFiles, SayWhichFileOfASetIsMissing) {
    const auto withoutList = LoadCharSet(fake.files, fake.directory, 1);
    ASSERT_FALSE(withoutList);
    EXPECT_NE(withoutList.failure().message.find("vtmtc.dat"), std::string::npos);
    putList(EncodeCharSetRecord(First));
    const auto withoutStore = LoadCharSet(fake.files, fake.directory, 1);
    ASSERT_FALSE(withoutStore);
    EXPECT_NE(withoutStore.failure().message.find("vtmgrid.dat"), std::string::npos);
}

TEST_F(CharSetFiles, SayWhichSlotHoldsNoPicture) {
    const std::string path = (fake.directory.files / "vtmgrid.dat").string();
    const std::string start = "Slot 0 of the artwork store \"" + path + "\" is not a usable GIF picture: ";
    putStore(std::string(10000, '\0'));
    EXPECT_TRUE(failureOf(0).starts_with(start)) << failureOf(0);
    putStore(EncodeGif(Artwork(128, 1)).value().substr(0, 200));
    EXPECT_TRUE(failureOf(0).starts_with(start)) << failureOf(0);
    EXPECT_TRUE(failureOf(0).ends_with("."));
}

TEST_F(CharSetFiles, DoNotRunOnIntoTheNextSlot) {
    // The first slot holds the beginning of a picture whose rest would stand in the second.
    Picture noise(128, 128);
    unsigned value = 1;
    for (int y = 0; y < 128; ++y) {
        for (int x = 0; x < 128; ++x) {
            value = value * 1103515245U + 12345U;
            noise.setPixel(x, y, OpaquePixel((value >> 16U) & 0xFFU, 0, 0));
        }
    }
    const ui::Bytes large = EncodeGif(noise).value();
    ASSERT_GT(large.size(), 10000U);
    putStore(large);
    EXPECT_FALSE(artwork(0));
}

TEST_F(CharSetFiles, LeaveNoScratchFile) {
    putStore(Slot(Artwork(128, 1)));
    ASSERT_TRUE(artwork(0));
    EXPECT_FALSE(fake.directory.files.has("curchar.gif"));
    fake.directory.files.put("curchar.gif", "left over");
    ASSERT_TRUE(artwork(0));
    EXPECT_FALSE(fake.directory.files.has("curchar.gif"));
    fake.directory.files.put("curchar.gif", "left over");
    ASSERT_FALSE(artwork(9));
    EXPECT_FALSE(fake.directory.files.has("curchar.gif"));
}

TEST_F(CharSetFiles, YieldTheArtworkEvenWhenAScratchFileCannotBeRemoved) {
    putStore(Slot(Artwork(128, 1)));
    fake.directory.files.put("curchar.gif", "left over");
    fake.files.failFrom(support::FailingFiles::Step::Remove);
    EXPECT_TRUE(artwork(0));
}

} // namespace

} // namespace glyphs
