// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/KeyMapFile.h"

#include "support/FakePlatform.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>

namespace editing {

namespace {

std::string DefaultText() {
    return KeyMapText(DefaultKeyMap());
}

/// The default map's file with one line (1-based) replaced.
std::string TextWithLine(std::size_t line, const std::string& replacement) {
    std::string text = DefaultText();
    std::size_t start = 0;
    for (std::size_t i = 1; i < line; ++i) {
        start = text.find("\r\n", start) + 2;
    }
    return text.replace(start, text.find("\r\n", start) - start, replacement);
}

std::string FailureOf(const std::string& text) {
    const auto map = ParseKeyMap(text);
    return map ? std::string("it was read") : map.failure().message;
}

TEST(KeyMapText, HasALineOfThreeNumbersForEveryKey) {
    const std::string text = DefaultText();
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 83);
    EXPECT_TRUE(text.starts_with("32,32,32\r\n32,32,32\r\n32,32,32\r\n32,32,32\r\n32,32,32\r\n97,65,32\r\n"));
    EXPECT_TRUE(text.ends_with("47,63,32\r\n92,124,32\r\n"));
}

TEST(ParseKeyMap, ReadsBackWhatWasWritten) {
    KeyMap map = DefaultKeyMap();
    map[0] = {0, 255, 34};
    map[82] = {255, 0, 1};
    const auto read = ParseKeyMap(KeyMapText(map));
    ASSERT_TRUE(read);
    EXPECT_EQ(read.value(), map);
}

TEST(ParseKeyMap, AcceptsBlanksBareLineFeedsAndAMissingLastLineEnd) {
    std::string text = TextWithLine(6, " 97 ,\t65 , 32 ");
    std::erase(text, '\r');
    text.pop_back();
    const auto map = ParseKeyMap(text);
    ASSERT_TRUE(map) << map.failure().message;
    EXPECT_EQ(map.value(), DefaultKeyMap());
}

TEST(ParseKeyMap, AcceptsEmptyLinesAfterTheLastKey) {
    EXPECT_TRUE(ParseKeyMap(DefaultText() + "\r\n  \r\n\n"));
}

TEST(ParseKeyMap, SaysWhichLineIsWrongAndWhy) {
    EXPECT_EQ(FailureOf(""), "it ends after line 0 of 83");
    EXPECT_EQ(FailureOf("32,32,32\r\n"), "it ends after line 1 of 83");
    std::string short82 = DefaultText();
    short82.resize(short82.size() - std::string("92,124,32\r\n").size());
    EXPECT_EQ(FailureOf(short82), "it ends after line 82 of 83");
    EXPECT_EQ(
        FailureOf(TextWithLine(1, "x,32,32")),
        "line 1 does not have a glyph number from 0 to 255 as number 1");
    EXPECT_EQ(
        FailureOf(TextWithLine(6, "97,,32")),
        "line 6 does not have a glyph number from 0 to 255 as number 2");
    EXPECT_EQ(
        FailureOf(TextWithLine(6, "97,65,")),
        "line 6 does not have a glyph number from 0 to 255 as number 3");
    EXPECT_EQ(
        FailureOf(TextWithLine(83, "256,0,0")),
        "line 83 does not have a glyph number from 0 to 255 as number 1");
    EXPECT_EQ(
        FailureOf(TextWithLine(9, "0,-1,0")),
        "line 9 does not have a glyph number from 0 to 255 as number 2");
    EXPECT_EQ(
        FailureOf(TextWithLine(9, "0,1,1.5")),
        "line 9 does not have a glyph number from 0 to 255 as number 3");
    EXPECT_EQ(
        FailureOf(TextWithLine(9, "0,1,99999999999999999999")),
        "line 9 does not have a glyph number from 0 to 255 as number 3");
    EXPECT_EQ(FailureOf(TextWithLine(12, "97,65")), "line 12 has fewer than three numbers");
    EXPECT_EQ(FailureOf(TextWithLine(12, "97")), "line 12 has fewer than three numbers");
    EXPECT_EQ(FailureOf(TextWithLine(12, "97,65,32,1")), "line 12 has more than three numbers");
    EXPECT_EQ(FailureOf(TextWithLine(12, "97,65,32,")), "line 12 has more than three numbers");
    EXPECT_EQ(FailureOf(TextWithLine(12, "")), "line 12 is empty");
    EXPECT_EQ(FailureOf(DefaultText() + "1,2,3\r\n"), "line 84 is one too many");
    EXPECT_EQ(FailureOf(DefaultText() + "\r\nx"), "line 85 is one too many");
}

class KeyMapFile : public testing::Test {
protected:
    support::FakePlatform fake;
};

TEST_F(KeyMapFile, MissingLeavesTheDefaultsAndIsNotCreated) {
    const LoadedKeyMap loaded = LoadKeyMap(fake.files, fake.directory);
    EXPECT_TRUE(loaded.status);
    EXPECT_EQ(loaded.map, DefaultKeyMap());
    EXPECT_FALSE(fake.directory.files.has("vtmkeys.ini"));
    EXPECT_FALSE(fake.directory.standIn.has("vtmkeys.ini"));
}

TEST_F(KeyMapFile, IsReadFromTheProgramDirectory) {
    fake.directory.files.put("vtmkeys.ini", TextWithLine(6, "1,2,3"));
    const LoadedKeyMap loaded = LoadKeyMap(fake.files, fake.directory);
    EXPECT_TRUE(loaded.status);
    EXPECT_EQ(loaded.map[5], (KeyGlyphs{1, 2, 3}));
    EXPECT_EQ(loaded.map[6], (KeyGlyphs{98, 66, 32}));
}

TEST_F(KeyMapFile, DamagedLeavesTheDefaultsAndItsContent) {
    const std::string damaged = TextWithLine(40, "oops");
    fake.directory.files.put("vtmkeys.ini", damaged);
    const LoadedKeyMap loaded = LoadKeyMap(fake.files, fake.directory);
    ASSERT_FALSE(loaded.status);
    EXPECT_EQ(
        loaded.status.failure().message,
        "The key map \"" + (fake.directory.files / "vtmkeys.ini").string() +
            "\" is damaged: line 40 does not have a glyph number from 0 to 255 as number 1.");
    EXPECT_EQ(loaded.map, DefaultKeyMap());
    EXPECT_EQ(fake.directory.files.content("vtmkeys.ini"), damaged);
}

TEST_F(KeyMapFile, UnreadableLeavesTheDefaultsAndSaysWhy) {
    fake.directory.files.put("vtmkeys.ini", DefaultText());
    fake.files.failOnce(support::FailingFiles::Step::Read);
    const LoadedKeyMap loaded = LoadKeyMap(fake.files, fake.directory);
    ASSERT_FALSE(loaded.status);
    EXPECT_NE(loaded.status.failure().message.find("vtmkeys.ini"), std::string::npos);
    EXPECT_EQ(loaded.map, DefaultKeyMap());
}

TEST_F(KeyMapFile, IsReplacedWhole) {
    fake.directory.files.put("vtmkeys.ini", "rubbish that is longer than nothing");
    KeyMap map = DefaultKeyMap();
    map[5] = {200, 201, 202};
    ASSERT_TRUE(WriteKeyMap(fake.files, fake.directory, map));
    EXPECT_EQ(fake.directory.files.content("vtmkeys.ini"), KeyMapText(map));
    EXPECT_EQ(LoadKeyMap(fake.files, fake.directory).map, map);
}

TEST_F(KeyMapFile, KeepsItsPermissionsAndItsLink) {
    namespace fs = std::filesystem;
    const support::TempFolder settings;
    settings.put("keys", DefaultText());
    fs::permissions(settings / "keys", fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink(settings / "keys", fake.directory.files / "vtmkeys.ini");
    fake.directory.files.put("vtmkeys.ini.new", "mine");
    KeyMap map = DefaultKeyMap();
    map[5] = {200, 201, 202};
    ASSERT_TRUE(WriteKeyMap(fake.files, fake.directory, map));
    EXPECT_TRUE(fs::is_symlink(fake.directory.files / "vtmkeys.ini"));
    EXPECT_EQ(settings.content("keys"), KeyMapText(map));
    EXPECT_EQ(fs::status(settings / "keys").permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(fake.directory.files.content("vtmkeys.ini.new"), "mine");
}

TEST_F(KeyMapFile, KeepsItsContentWhenTheDiskIsFull) {
    fake.directory.files.put("vtmkeys.ini", DefaultText());
    fake.files.failWritesAfter(100);
    KeyMap map = DefaultKeyMap();
    map[5] = {200, 201, 202};
    const ui::Status written = WriteKeyMap(fake.files, fake.directory, map);
    ASSERT_FALSE(written);
    EXPECT_NE(written.failure().message.find("vtmkeys.ini"), std::string::npos);
    EXPECT_EQ(fake.directory.files.content("vtmkeys.ini"), DefaultText());
}

TEST_F(KeyMapFile, GoesToTheStandInFolderWhenTheProgramsOwnIsReadOnly) {
    fake.directory.files.put("vtmkeys.ini", DefaultText());
    fake.directory.isWritable = false;
    KeyMap map = DefaultKeyMap();
    map[5] = {200, 201, 202};
    ASSERT_TRUE(WriteKeyMap(fake.files, fake.directory, map));
    EXPECT_EQ(fake.directory.files.content("vtmkeys.ini"), DefaultText());
    EXPECT_EQ(LoadKeyMap(fake.files, fake.directory).map, map);
}

} // namespace

} // namespace editing
