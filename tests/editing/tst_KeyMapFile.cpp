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

TEST(ParseKeyMap, DoesNotLookBehindTheLastKey) {
    for (const char* rest : {"\r\n  \r\n\n", "1,2,3\r\n", "; my own keys", "\xFF,"}) {
        const auto map = ParseKeyMap(DefaultText() + rest);
        ASSERT_TRUE(map) << map.failure().message;
        EXPECT_EQ(map.value(), DefaultKeyMap());
    }
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
}

class KeyMapFile : public testing::Test {
protected:
    support::FakePlatform fake;

    /// Writes a map that was changed from the defaults.
    ui::Status write(const KeyMap& map) {
        KeyMaps keys{map, DefaultKeyMap()};
        return WriteKeyMap(fake.files, fake.directory, keys);
    }
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
    const std::string path = (fake.directory.files / "vtmkeys.ini").string();
    EXPECT_EQ(
        loaded.status.failure().message,
        "Every key types its default glyph, because the key map cannot be used.\n"
        "Before the options replace it, it is kept as \"" +
            path + ".damaged-1\".\n\nThe key map \"" + path +
            "\" is damaged: line 40 does not have a glyph number from 0 to 255 as number 1.");
    EXPECT_EQ(loaded.map, DefaultKeyMap());
    EXPECT_EQ(fake.directory.files.content("vtmkeys.ini"), damaged);
}

TEST_F(KeyMapFile, UnreadableLeavesTheDefaultsAndSaysWhy) {
    fake.directory.files.put("vtmkeys.ini", DefaultText());
    fake.files.failOnce(support::FailingFiles::Step::Read);
    const LoadedKeyMap loaded = LoadKeyMap(fake.files, fake.directory);
    ASSERT_FALSE(loaded.status);
    const std::string told = loaded.status.failure().message;
    EXPECT_TRUE(
        told.starts_with("Every key types its default glyph, because the key map cannot be used.\n\n"));
    EXPECT_NE(told.find("vtmkeys.ini"), std::string::npos);
    EXPECT_EQ(loaded.map, DefaultKeyMap());
}

TEST_F(KeyMapFile, IsReplacedWhole) {
    fake.directory.files.put("vtmkeys.ini", DefaultText() + "more than 83 lines");
    KeyMap map = DefaultKeyMap();
    map[5] = {200, 201, 202};
    ASSERT_TRUE(write(map));
    EXPECT_EQ(fake.directory.files.content("vtmkeys.ini"), KeyMapText(map));
    EXPECT_EQ(LoadKeyMap(fake.files, fake.directory).map, map);
    EXPECT_FALSE(fake.directory.files.has("vtmkeys.ini.damaged-1"));
}

TEST_F(KeyMapFile, TakesOverWhatAnotherInstanceHasWritten) {
    KeyMaps keys;
    keys.used[5] = {200, 65, 32};
    keys.used[6] = {98, 66, 1};
    KeyMap others = DefaultKeyMap();
    others[5] = {3, 4, 32};
    others[7] = {7, 8, 9};
    fake.directory.files.put("vtmkeys.ini", KeyMapText(others));
    KeyMap merged = others;
    merged[5] = {200, 4, 32};
    merged[6] = {98, 66, 1};

    ASSERT_TRUE(WriteKeyMap(fake.files, fake.directory, keys));
    EXPECT_EQ(fake.directory.files.content("vtmkeys.ini"), KeyMapText(merged));
    EXPECT_EQ(keys.used, merged) << "the keys type what the file holds";

    // What was written once is not written over what the other instance does then.
    others = merged;
    others[5] = {5, 5, 5};
    fake.directory.files.put("vtmkeys.ini", KeyMapText(others));
    ASSERT_TRUE(WriteKeyMap(fake.files, fake.directory, keys));
    EXPECT_EQ(fake.directory.files.content("vtmkeys.ini"), KeyMapText(others));
}

TEST_F(KeyMapFile, KeepsWhatIsToBeWrittenWhenThatFails) {
    KeyMaps keys;
    keys.used[5] = {200, 65, 32};
    fake.files.failWritesAfter(10);
    EXPECT_FALSE(WriteKeyMap(fake.files, fake.directory, keys));
    fake.files.failNothing();
    ASSERT_TRUE(WriteKeyMap(fake.files, fake.directory, keys));
    EXPECT_EQ(fake.directory.files.content("vtmkeys.ini"), KeyMapText(keys.used));
    EXPECT_EQ(keys.used[5][0], 200);
}

TEST_F(KeyMapFile, IsKeptBeforeItIsReplacedWhenItCannotBeUsed) {
    fake.directory.files.put("vtmkeys.ini.damaged-1", "of last year");
    for (const char* damaged : {"rubbish", "1,2,3"}) {
        fake.directory.files.put("vtmkeys.ini", damaged);
        ASSERT_TRUE(write(DefaultKeyMap()));
        EXPECT_EQ(fake.directory.files.content("vtmkeys.ini"), DefaultText());
    }
    EXPECT_EQ(fake.directory.files.content("vtmkeys.ini.damaged-1"), "of last year");
    EXPECT_EQ(fake.directory.files.content("vtmkeys.ini.damaged-2"), "rubbish");
    EXPECT_EQ(fake.directory.files.content("vtmkeys.ini.damaged-3"), "1,2,3");
}

TEST_F(KeyMapFile, IsNotReplacedWhenItCannotBeKept) {
    fake.directory.files.put("vtmkeys.ini", "rubbish");
    fake.files.failWritesAfter(3);
    EXPECT_FALSE(write(DefaultKeyMap()));
    EXPECT_EQ(fake.directory.files.content("vtmkeys.ini"), "rubbish");
    EXPECT_FALSE(fake.directory.files.has("vtmkeys.ini.damaged-1"));
    fake.files.failNothing();
    for (int number = 1; number <= 99; ++number) {
        fake.directory.files.put("vtmkeys.ini.damaged-" + std::to_string(number), "");
    }
    EXPECT_FALSE(write(DefaultKeyMap()));
    EXPECT_EQ(fake.directory.files.content("vtmkeys.ini"), "rubbish");
}

TEST_F(KeyMapFile, NeedsNotBeKeptWhereAnotherOneIsWritten) {
    fake.directory.files.put("vtmkeys.ini", "rubbish");
    fake.directory.isWritable = false;
    const std::string told = LoadKeyMap(fake.files, fake.directory).status.failure().message;
    EXPECT_EQ(told.find("damaged-1"), std::string::npos);
    ASSERT_TRUE(write(DefaultKeyMap()));
    EXPECT_EQ(fake.directory.files.content("vtmkeys.ini"), "rubbish");
    EXPECT_FALSE(fake.directory.standIn.has("vtmkeys.ini.damaged-1"));
}

TEST_F(KeyMapFile, KeepsItsContentWhenTheDiskIsFull) {
    fake.directory.files.put("vtmkeys.ini", DefaultText());
    fake.files.failWritesAfter(100);
    KeyMap map = DefaultKeyMap();
    map[5] = {200, 201, 202};
    const ui::Status written = write(map);
    ASSERT_FALSE(written);
    EXPECT_NE(written.failure().message.find("vtmkeys.ini"), std::string::npos);
    EXPECT_EQ(fake.directory.files.content("vtmkeys.ini"), DefaultText());
}

TEST_F(KeyMapFile, GoesToTheStandInFolderWhenTheProgramsOwnIsReadOnly) {
    fake.directory.files.put("vtmkeys.ini", DefaultText());
    fake.directory.isWritable = false;
    KeyMap map = DefaultKeyMap();
    map[5] = {200, 201, 202};
    ASSERT_TRUE(write(map));
    EXPECT_EQ(fake.directory.files.content("vtmkeys.ini"), DefaultText());
    EXPECT_EQ(LoadKeyMap(fake.files, fake.directory).map, map);
}

} // namespace

} // namespace editing
