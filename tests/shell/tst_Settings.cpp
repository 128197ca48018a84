// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/SettingText.h"
#include "shell/Settings.h"
#include "support/MemorySettings.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using support::MemorySettings;

const ui::Path Folder = "/opt/vtm";

std::map<std::string, std::string> stored(const MemorySettings& store) {
    const auto listed = store.list("options");
    return {listed.begin(), listed.end()};
}

const std::map<std::string, std::string> TabledDefaults = {
    {"loadatstartup", "True"},
    {"saveatexit", "True"},
    {"bindprompt", "True"},
    {"casechoice", "True"},
    {"color1", "0"},
    {"color2", "65535"},
    {"color3", "65280"},
    {"color4", "65280"},
    {"color5", "65280"},
    {"sound0", "True"},
    {"sound1", "True"},
    {"sound2", "True"},
    {"sound3", "True"},
    {"prompt1", "True"},
    {"prompt2", "True"},
    {"grid", "0"},
    {"cursor1", "0"},
    {"cursor2", "2"},
    {"cursor3", "2"},
    {"cursor4", "2"},
    {"freq1", "32"},
    {"freq2", "32"},
    {"freq3", "32"},
    {"fav1", "16"},
    {"fav2", "86"},
    {"fav3", "84"},
    {"fav4", "77"},
    {"fav5", "17"},
    {"colmode", "True"},
    {"insmode", "False"},
    {"capmode", "False"},
    {"nummode", "True"},
    {"maketype", "1"},
    {"screenshot", ui::PathText(Folder / "quake00.bmp")},
};

/// The value that a key has after a load of a store that holds nothing else, as it would be saved again.
std::string reloaded(const std::string& key, const std::string& value) {
    MemorySettings store;
    store.write("options", key, value);
    const auto loaded = shell::Load(store, Folder);
    MemorySettings copy;
    EXPECT_TRUE(shell::Save(copy, loaded.settings));
    return copy.read("options", key).value_or("(absent)");
}

std::size_t unreadableCount(const std::string& key, const std::string& value) {
    MemorySettings store;
    store.write("options", key, value);
    return shell::Load(store, Folder).unreadable.size();
}

} // namespace

TEST(Settings, AFreshUserGetsTheTabledDefaultsAndTheFirstExitWritesAll34Keys) {
    MemorySettings store;
    EXPECT_TRUE(shell::LoadsAtStartup(store));
    const auto loaded = shell::Load(store, Folder);
    EXPECT_TRUE(loaded.unreadable.empty());
    ASSERT_TRUE(shell::Save(store, loaded.settings));
    EXPECT_EQ(stored(store).size(), 34U);
    EXPECT_EQ(stored(store), TabledDefaults);
}

TEST(Settings, DefaultsGiveTheTabledValuesInMemory) {
    shell::Settings settings;
    settings.frequent = {1, 2, 3};
    settings.loadAtStartup = settings.saveAtExit = settings.bindPrompt = settings.caseChoice = false;
    settings.sounds = {false, false, false, false};
    settings.colours.fill(ui::OpaquePixel(1, 2, 3));
    settings.promptNames = settings.promptMessages = false;
    settings.cursors.fill(1);
    settings.favourites.fill(99);
    settings.modes = {false, true, true, false};
    settings.charSet = 7;
    settings.makeType = 2;
    settings.screenshot = "x";

    shell::Defaults(settings, Folder);

    EXPECT_TRUE(settings.loadAtStartup && settings.saveAtExit && settings.bindPrompt && settings.caseChoice);
    EXPECT_EQ(settings.sounds, (glyphs::SoundOptions{true, true, true, true}));
    EXPECT_EQ(settings.colours[0], ui::OpaquePixel(0, 0, 0));
    EXPECT_EQ(settings.colours[1], ui::OpaquePixel(255, 255, 0));
    EXPECT_EQ(settings.colours[2], ui::OpaquePixel(0, 255, 0));
    EXPECT_EQ(settings.colours[3], ui::OpaquePixel(0, 255, 0));
    EXPECT_EQ(settings.colours[4], ui::OpaquePixel(0, 255, 0));
    EXPECT_TRUE(settings.promptNames && settings.promptMessages);
    EXPECT_EQ(settings.cursors, (std::array<std::int16_t, 4>{0, 2, 2, 2}));
    EXPECT_EQ(settings.favourites, (std::array<glyphs::GlyphCode, 5>{16, 86, 84, 77, 17}));
    EXPECT_TRUE(settings.modes.typingColour);
    EXPECT_FALSE(settings.modes.insert);
    EXPECT_FALSE(settings.modes.upperCase);
    EXPECT_TRUE(settings.modes.numberPad);
    EXPECT_EQ(settings.charSet, 0);
    EXPECT_EQ(settings.page(), editing::Page::Animation);
    EXPECT_EQ(settings.screenshot, ui::PathText(Folder / "quake00.bmp"));
}

TEST(Settings, DefaultsLeaveTheFrequentGlyphsWhichAreZeroAtStart) {
    shell::Settings settings;
    shell::Defaults(settings, Folder);
    EXPECT_EQ(settings.frequent, (std::array<glyphs::GlyphCode, 3>{0, 0, 0}));
    settings.frequent = {4, 5, 6};
    shell::Defaults(settings, Folder);
    EXPECT_EQ(settings.frequent, (std::array<glyphs::GlyphCode, 3>{4, 5, 6}));
}

TEST(Settings, WithLoadAtStartupOffAnExitOverwritesTheStoreWithTheDefaults) {
    MemorySettings store;
    store.write("options", "loadatstartup", "False");
    store.write("options", "fav1", "99");
    EXPECT_FALSE(shell::LoadsAtStartup(store));

    shell::Settings settings;
    shell::Defaults(settings, Folder);
    ASSERT_TRUE(shell::Save(store, settings));

    auto expected = TabledDefaults;
    expected["freq1"] = expected["freq2"] = expected["freq3"] = "0";
    EXPECT_EQ(stored(store), expected);
}

TEST(Settings, LoadAtStartupStandsWhenItsStoredTextMeansNothing) {
    MemorySettings store;
    store.write("options", "loadatstartup", "perhaps");
    EXPECT_TRUE(shell::LoadsAtStartup(store));
    store.write("options", "loadatstartup", "0");
    EXPECT_FALSE(shell::LoadsAtStartup(store));
}

TEST(Save, KeepsWhatAnotherInstanceHasStoredOfWhatWasNotChangedHere) {
    MemorySettings store;
    const auto loaded = shell::Load(store, Folder);
    shell::Settings settings = loaded.settings;
    settings.favourites[1] = 200;
    settings.promptNames = false;
    store.onRefresh = [&store] {
        shell::Settings others;
        others.favourites = {1, 2, 3, 4, 5};
        others.cursors[0] = 1;
        others.colours[2] = ui::OpaquePixel(1, 2, 3);
        others.screenshot = "/others.bmp";
        others.makeType = 2;
        EXPECT_TRUE(shell::Save(store, others));
    };
    ASSERT_TRUE(shell::Save(store, settings, loaded.settings));
    const shell::Settings saved = shell::Load(store, Folder).settings;
    EXPECT_EQ(saved.favourites, (std::array<glyphs::GlyphCode, 5>{1, 200, 3, 4, 5}));
    EXPECT_FALSE(saved.promptNames);
    EXPECT_EQ(saved.cursors[0], 1);
    EXPECT_EQ(saved.colours[2], ui::OpaquePixel(1, 2, 3));
    EXPECT_EQ(saved.screenshot, "/others.bmp");
    EXPECT_EQ(saved.makeType, 2);
}

TEST(Save, WritesEveryKeyWhateverHasChanged) {
    MemorySettings store;
    store.sections["options"] = {{"prompt1", "1"}, {"fav2", "not a number"}, {"color2", "-1"}};
    const auto loaded = shell::Load(store, Folder);
    ASSERT_TRUE(shell::Save(store, loaded.settings, loaded.settings));
    EXPECT_EQ(store.writes.size(), TabledDefaults.size());
    EXPECT_EQ(store.sections["options"]["prompt1"], "True");
    EXPECT_EQ(store.sections["options"]["fav2"], "86");
    EXPECT_EQ(store.sections["options"]["color2"], "16777215");
}

TEST(Save, OverwritesAllThatIsStoredWhenTheStartIgnoredIt) {
    MemorySettings store;
    store.sections["options"] = {{"fav1", "99"}, {"cursor1", "1"}};
    shell::Settings settings;
    shell::Defaults(settings, Folder);
    ASSERT_TRUE(shell::Save(store, settings, std::nullopt));
    EXPECT_EQ(store.sections["options"]["fav1"], "16");
    EXPECT_EQ(store.sections["options"]["cursor1"], "0");
}

TEST(Settings, EveryKeyComesBackAsItWasSaved) {
    shell::Settings settings;
    settings.loadAtStartup = false;
    settings.saveAtExit = false;
    settings.bindPrompt = false;
    settings.caseChoice = false;
    for (std::size_t i = 0; i < settings.colours.size(); ++i) {
        settings.colours[i] = ui::OpaquePixel(10 + static_cast<unsigned>(i), 20, 30);
    }
    settings.sounds = {false, false, false, false};
    settings.screenshot = "/pictures/my shot.bmp";
    settings.promptNames = false;
    settings.promptMessages = false;
    settings.charSet = 3;
    settings.cursors = {1, 0, 1, 3};
    settings.frequent = {7, 8, 255};
    settings.favourites = {0, 1, 2, 128, 254};
    settings.modes = {false, true, true, false};
    settings.makeType = 2;

    MemorySettings store;
    ASSERT_TRUE(shell::Save(store, settings));
    const auto loaded = shell::Load(store, Folder);
    EXPECT_TRUE(loaded.unreadable.empty());
    MemorySettings again;
    ASSERT_TRUE(shell::Save(again, loaded.settings));
    EXPECT_EQ(stored(again), stored(store));

    for (const auto& [key, value] : TabledDefaults) {
        EXPECT_NE(stored(store)[key], value) << "the test leaves " << key << " at its default";
    }
    EXPECT_EQ(stored(store)["color1"], std::to_string(10 + 256 * 20 + 65536 * 30));
}

TEST(Settings, TheLinesOfThePreviewAreKeptApartOnceThereAreSome) {
    support::MemorySettings store;
    shell::Settings settings;
    ASSERT_TRUE(shell::Save(store, settings));
    EXPECT_FALSE(store.read("preview", "lines").has_value());
    settings.previewLines = {{"/home/a/my shot.bmp", {240, -176}}, {"b.bmp", {1, 2}}};
    ASSERT_TRUE(shell::Save(store, settings));
    EXPECT_EQ(shell::Load(store, {}).settings.previewLines, settings.previewLines);
    settings.previewLines.clear();
    ASSERT_TRUE(shell::Save(store, settings));
    EXPECT_TRUE(shell::Load(store, {}).settings.previewLines.empty());
}

TEST(Settings, EachMemberOfAnArrayHasItsOwnKey) {
    shell::Settings settings;
    settings.sounds = {false, true, true, false};
    settings.cursors = {3, 4, 5, 6};
    MemorySettings store;
    ASSERT_TRUE(shell::Save(store, settings));
    EXPECT_EQ(stored(store)["sound0"], "False");
    EXPECT_EQ(stored(store)["sound1"], "True");
    EXPECT_EQ(stored(store)["sound2"], "True");
    EXPECT_EQ(stored(store)["sound3"], "False");
    EXPECT_EQ(stored(store)["cursor1"], "3");
    EXPECT_EQ(stored(store)["cursor4"], "6");
    const auto loaded = shell::Load(store, Folder).settings;
    EXPECT_EQ(loaded.sounds, settings.sounds);
    EXPECT_EQ(loaded.cursors, settings.cursors);
}

TEST(Settings, OnlySectionOptionsIsWritten) {
    MemorySettings store;
    store.write("NameFiles", "RecentFile1", "/a.vtn");
    ASSERT_TRUE(shell::Save(store, shell::Settings{}));
    EXPECT_EQ(store.list("NameFiles").size(), 1U);
}

TEST(Settings, ATruthValueIsAWordInAnyCaseOrANumber) {
    for (const char* text : {"True", "true", "TRUE", "tRuE", " True ", "1", "-1", "2", "0.5", "1e3"}) {
        EXPECT_EQ(reloaded("insmode", text), "True") << text;
    }
    for (const char* text : {"False", "false", "FALSE", "0", "0.0", "-0", " 0 "}) {
        EXPECT_EQ(reloaded("prompt1", text), "False") << text;
    }
    EXPECT_EQ(reloaded("prompt1", "1"), "True");
}

TEST(Settings, ATruthValueThatCannotBeReadIsItsDefaultAndIsReported) {
    for (const char* text : {"", " ", "yes", "Tru", "Truee", "1x", "nan", "inf", "0x1", "1,5", "#TRUE#"}) {
        EXPECT_EQ(reloaded("insmode", text), "False") << text;
        EXPECT_EQ(reloaded("prompt1", text), "True") << text;
        EXPECT_EQ(unreadableCount("insmode", text), 1U) << text;
    }
}

TEST(Settings, AWholeNumberIsRoundedHalfToEven) {
    const std::map<std::string, std::string> cases = {
        {"2", "2"},         {"2.5", "2"},         {"3.5", "4"},         {"2.4999", "2"},
        {"2.5001", "3"},    {"-2.5", "-2"},       {"-1.5", "-2"},       {"-0.5", "0"},
        {"0.5", "0"},       {"1.5", "2"},         {" 7 ", "7"},         {"+7", "7"},
        {"32767", "32767"}, {"-32768", "-32768"}, {"32767.4", "32767"}, {"-32768.5", "-32768"},
    };
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(reloaded("cursor2", text), expected) << text;
        EXPECT_EQ(unreadableCount("cursor2", text), 0U) << text;
    }
}

TEST(Settings, ANumberThatCannotBeReadIsItsDefaultAndIsReported) {
    for (const char* text :
         {"", "abc", "32768", "-32769", "32767.5", "2,5", "1e9", "+-3", "--3", "2 3", "nan", "inf", "True"}) {
        EXPECT_EQ(reloaded("cursor2", text), "2") << text;
        EXPECT_EQ(unreadableCount("cursor2", text), 1U) << text;
    }
}

TEST(Settings, AGlyphOutside0To255IsItsDefault) {
    EXPECT_EQ(reloaded("fav2", "255"), "255");
    EXPECT_EQ(reloaded("fav2", "0"), "0");
    EXPECT_EQ(reloaded("fav2", "256"), "86");
    EXPECT_EQ(reloaded("fav2", "-1"), "86");
    EXPECT_EQ(reloaded("freq3", "300"), "32");
    EXPECT_EQ(unreadableCount("freq3", "300"), 1U);
}

TEST(Settings, OnlyTheLower24BitsOfAColourCount) {
    EXPECT_EQ(reloaded("color1", "16777215"), "16777215");
    EXPECT_EQ(reloaded("color1", "16777216"), "0");
    EXPECT_EQ(reloaded("color3", "-1"), "16777215");
    EXPECT_EQ(reloaded("color3", "16777217"), "1");
    EXPECT_EQ(reloaded("color3", "99999999999"), "65280");
    EXPECT_EQ(reloaded("color3", "green"), "65280");
}

TEST(Settings, APageThatDoesNotExistIsTheAnimationPage) {
    EXPECT_EQ(reloaded("maketype", "0"), "0");
    EXPECT_EQ(reloaded("maketype", "2"), "2");
    EXPECT_EQ(reloaded("maketype", "3"), "1");
    EXPECT_EQ(reloaded("maketype", "-1"), "1");
    EXPECT_EQ(reloaded("maketype", "x"), "1");
}

TEST(Settings, TheCharacterSetAndTheCursorsAreKeptAsStored) {
    EXPECT_EQ(reloaded("grid", "400"), "400");
    EXPECT_EQ(reloaded("cursor1", "9"), "9");
}

TEST(Settings, AnEmptyScreenshotStaysEmpty) {
    EXPECT_EQ(reloaded("screenshot", ""), "");
    EXPECT_EQ(unreadableCount("screenshot", ""), 0U);
}

TEST(Settings, AStoredScreenshotOutlivesAMoveOfTheProgram) {
    EXPECT_EQ(reloaded("screenshot", "/old/vtm/quake00.bmp"), "/old/vtm/quake00.bmp");
}

TEST(Settings, UnreadableSettingsAreNamedInOneSentence) {
    EXPECT_EQ(shell::UnreadableSettingsText({}), "");
    EXPECT_EQ(
        shell::UnreadableSettingsText({{"grid", "abc"}}),
        "A stored setting could not be read, its default is used: grid = \"abc\".");
    EXPECT_EQ(
        shell::UnreadableSettingsText({{"grid", "abc"}, {"fav1", "300"}}),
        "Stored settings could not be read, their defaults are used: grid = \"abc\", fav1 = \"300\".");
}

TEST(Settings, ColoursArePackedAsRedPlus256GreenPlus65536Blue) {
    EXPECT_EQ(shell::PackedColour(ui::OpaquePixel(1, 2, 3)), 1 + 256 * 2 + 65536 * 3);
    EXPECT_EQ(shell::PackedColour(ui::OpaquePixel(255, 255, 0)), 65535);
    EXPECT_EQ(shell::PackedColour(ui::OpaquePixel(255, 255, 255)), 16777215);
    EXPECT_EQ(shell::UnpackedColour(65280), ui::OpaquePixel(0, 255, 0));
    EXPECT_EQ(shell::UnpackedColour(16777215), ui::OpaquePixel(255, 255, 255));
}

TEST(Settings, TheStoredCharSetStaysTheSameOneWhenAnotherIsRemoved) {
    struct Case {
        std::string stored;
        int removed;
        std::string after;
    };

    for (const Case& one : {Case{"5", 3, "4"}, {"5", 5, "0"}, {"5", 6, "5"}, {"0", 0, "0"}, {"x", 0, "x"}}) {
        MemorySettings store;
        store.sections["options"]["grid"] = one.stored;
        EXPECT_TRUE(shell::StoreCharSetRemoved(store, one.removed));
        EXPECT_EQ(store.sections["options"]["grid"], one.after) << one.stored << " without " << one.removed;
        EXPECT_EQ(store.saves, one.stored == one.after ? 0 : 1);
    }
}

TEST(Settings, NothingIsStoredOfACharSetWhereNothingWas) {
    MemorySettings store;
    EXPECT_TRUE(shell::StoreCharSetRemoved(store, 0));
    EXPECT_EQ(store.saves, 0);
    EXPECT_TRUE(store.writes.empty());
}

TEST(Settings, WhatAnotherProgramHasStoredByNowIsWhatFollows) {
    MemorySettings store;
    store.sections["options"]["grid"] = "1";
    store.onRefresh = [&store] {
        store.sections["options"]["grid"] = "6";
    };
    EXPECT_TRUE(shell::StoreCharSetRemoved(store, 4));
    EXPECT_EQ(store.sections["options"]["grid"], "5");
}
