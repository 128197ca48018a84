// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/OptionsModel.h"
#include "support/FakePlatform.h"

#include <gtest/gtest.h>

namespace {

using shell::AppliedOptions;
using shell::OptionsPage;

/// What is stored of settings: a way to compare all of them.
std::map<std::string, std::string> storedFrom(const shell::Settings& settings) {
    support::MemorySettings store;
    EXPECT_TRUE(shell::Save(store, settings));
    return store.sections["options"];
}

class Options : public testing::Test {
protected:
    shell::Settings live;
    glyphs::CharSetRecord liveSet;
    editing::KeyMap keys = editing::DefaultKeyMap();
    shell::OptionsModel model{live, liveSet};

    void changeEverything() {
        model.setCaseChoice(false);
        model.setScreenshot("/s.bmp");
        for (std::size_t i = 0; i < 4; ++i) {
            model.setSound(i, false);
            model.setCursor(i, 1);
        }
        model.setSaveAtExit(false);
        model.setLoadAtStartup(false);
        for (std::size_t i = 0; i < 5; ++i) {
            model.setColour(i, ui::OpaquePixel(9, 9, 9));
        }
        model.setPromptNames(false);
        model.setPromptMessages(false);
        model.setBindPrompt(false);
        glyphs::CharSetRecord other;
        other.artworkSlot = 4;
        model.setCharSet(2, other);
        model.setKeyGlyph(keys, 5, 2, 200);
    }

    [[nodiscard]] std::vector<bool> flags() const {
        std::vector<bool> changed;
        for (std::size_t page = 0; page < shell::OptionsPageCount; ++page) {
            changed.push_back(model.isChanged(static_cast<OptionsPage>(page)));
        }
        return changed;
    }
};

} // namespace

TEST_F(Options, TheSetInUseCanBeReturnedTo) {
    glyphs::CharSetRecord inUse;
    inUse.name = "In use";
    model.setCursor(0, 1);
    model.setCharSet(2, {});
    model.returnToCharSet(1, inUse);
    EXPECT_EQ(flags(), (std::vector<bool>{false, false, false, false, true, false}));
    EXPECT_EQ(model.settings().charSet, 1);
    EXPECT_EQ(model.charSet(), inUse);
}

TEST_F(Options, NoPageIsChangedAtFirst) {
    EXPECT_EQ(flags(), std::vector<bool>(6, false));
}

TEST_F(Options, WithoutAChangeNothingIsApplied) {
    live.caseChoice = false; // not what the model was made from: must stay
    const auto before = storedFrom(live);
    EXPECT_EQ(model.applyTo(live, liveSet), AppliedOptions{});
    EXPECT_EQ(storedFrom(live), before);
}

TEST_F(Options, EverySetterMarksItsOwnPageOnly) {
    const auto expectOnly = [&](std::size_t page) {
        std::vector<bool> expected(6, false);
        expected[page] = true;
        EXPECT_EQ(flags(), expected);
        model = shell::OptionsModel(live, liveSet);
    };
    model.setCaseChoice(true);
    expectOnly(0);
    model.setScreenshot("");
    expectOnly(0);
    model.setSound(3, false);
    expectOnly(0);
    model.setSaveAtExit(false);
    expectOnly(0);
    model.setLoadAtStartup(false);
    expectOnly(0);
    model.setColour(0, ui::OpaquePixel(1, 1, 1));
    expectOnly(1);
    model.setPromptNames(false);
    expectOnly(2);
    model.setPromptMessages(false);
    expectOnly(2);
    model.setBindPrompt(false);
    expectOnly(2);
    model.setCharSet(1, {});
    expectOnly(3);
    model.setCursor(2, 0);
    expectOnly(4);
    model.setKeyGlyph(keys, 0, 0, 99);
    expectOnly(5);
}

TEST_F(Options, OnlyChangedPagesAreApplied) {
    changeEverything();
    const shell::OptionsModel all = model;
    model = shell::OptionsModel(all.settings(), all.charSet());
    model.setCursor(0, 1);
    const AppliedOptions expected{false, true, false, false};
    EXPECT_EQ(model.applyTo(live, liveSet), expected);
    shell::Settings cursorsOnly;
    cursorsOnly.cursors = {1, 1, 1, 1};
    EXPECT_EQ(storedFrom(live), storedFrom(cursorsOnly));
    EXPECT_EQ(liveSet, glyphs::CharSetRecord{});
}

TEST_F(Options, EachPageWritesItsOwnSettings) {
    changeEverything();
    const auto changed = model.settings();

    const auto apply = [&](auto change) {
        model = shell::OptionsModel(changed, model.charSet());
        change();
        shell::Settings settings;
        glyphs::CharSetRecord set;
        (void)model.applyTo(settings, set);
        std::vector<std::string> different;
        const auto defaults = storedFrom(shell::Settings{});
        for (const auto& [key, value] : storedFrom(settings)) {
            if (defaults.at(key) != value) {
                different.push_back(key);
            }
        }
        return different;
    };
    using Keys = std::vector<std::string>;
    EXPECT_EQ(
        apply([&] { model.setSound(0, false); }), (Keys{
                                                      "casechoice", "loadatstartup", "saveatexit",
                                                      "screenshot", "sound0", "sound1", "sound2", "sound3"}));
    EXPECT_EQ(
        apply([&] { model.setColour(0, changed.colours[0]); }),
        (Keys{"color1", "color2", "color3", "color4", "color5"}));
    EXPECT_EQ(apply([&] { model.setBindPrompt(false); }), (Keys{"bindprompt", "prompt1", "prompt2"}));
    EXPECT_EQ(apply([&] { model.setCharSet(2, model.charSet()); }), Keys{"grid"});
    EXPECT_EQ(apply([&] { model.setCursor(0, 1); }), (Keys{"cursor1", "cursor2", "cursor3", "cursor4"}));
    EXPECT_EQ(apply([&] { model.setKeyGlyph(keys, 1, 1, 77); }), Keys{});
}

TEST_F(Options, WhatTheDialogDoesNotShowStaysAsItIsInUse) {
    changeEverything();
    live.modes.insert = true;
    live.favourites[2] = 200;
    live.frequent[1] = 201;
    live.makeType = 2;
    (void)model.applyTo(live, liveSet);
    EXPECT_TRUE(live.modes.insert);
    EXPECT_EQ(live.favourites[2], 200);
    EXPECT_EQ(live.frequent[1], 201);
    EXPECT_EQ(live.makeType, 2);
}

TEST_F(Options, NewColoursAreShownAndTheGlyphsDrawnAnew) {
    model.setColour(3, ui::OpaquePixel(1, 2, 3));
    EXPECT_EQ(model.applyTo(live, liveSet), (AppliedOptions{true, false, true, false}));
    EXPECT_EQ(live.colours[3], ui::OpaquePixel(1, 2, 3));
}

TEST_F(Options, ANewCharacterSetIsInUseOnlyOnceApplied) {
    glyphs::CharSetRecord other;
    other.listIndex = 77; // a list whose records were moved: the place in the list counts
    other.artworkSlot = 5;
    other.webAddress = "https://example.org/";
    model.setCharSet(1, other);
    EXPECT_EQ(live.charSet, 0);
    EXPECT_EQ(model.applyTo(live, liveSet), (AppliedOptions{false, false, true, false}));
    EXPECT_EQ(live.charSet, 1);
    EXPECT_EQ(liveSet.listIndex, 1);
    EXPECT_EQ(liveSet.artworkSlot, 5);
    EXPECT_EQ(liveSet.webAddress, "https://example.org/");
}

TEST_F(Options, PromptsAndOtherOptionsNeedNothingShownAgain) {
    model.setPromptNames(false);
    model.setCaseChoice(false);
    EXPECT_EQ(model.applyTo(live, liveSet), AppliedOptions{});
    EXPECT_FALSE(live.promptNames);
    EXPECT_FALSE(live.caseChoice);
}

TEST_F(Options, AKeysGlyphGoesStraightIntoTheKeyMap) {
    model.setKeyGlyph(keys, 5, 1, 200);
    EXPECT_EQ(keys[5], (editing::KeyGlyphs{97, 200, 32}));
    EXPECT_EQ(model.applyTo(live, liveSet), (AppliedOptions{false, false, false, true}));
}

TEST_F(Options, TheSameGlyphAgainIsNoChange) {
    model.setKeyGlyph(keys, 5, 1, 65);
    EXPECT_FALSE(model.isChanged(OptionsPage::KeyMapping));
    EXPECT_EQ(model.applyTo(live, liveSet), AppliedOptions{});
}

TEST(ScreenshotChooser, StartsAtTheCurrentScreenshot) {
    const auto request = shell::ScreenshotRequest("/pictures/shot.bmp", "/opt/vtm");
    EXPECT_EQ(request.title, "Select the Screen Shot");
    EXPECT_EQ(request.folder, "/pictures");
    EXPECT_EQ(request.initialName, "shot.bmp");
    EXPECT_EQ(request.extension, ".bmp");
    ASSERT_EQ(request.filters.size(), 1U);
    EXPECT_EQ(request.filters[0].text, "Quake Screen Shot (*.bmp)");
    EXPECT_EQ(request.filters[0].patterns, std::vector<std::string>{"*.bmp"});
}

TEST(ScreenshotChooser, StartsInTheProgramsFolderWhenThereIsNoScreenshotOrARelativeOne) {
    EXPECT_EQ(shell::ScreenshotRequest("", "/opt/vtm").folder, "/opt/vtm");
    EXPECT_EQ(shell::ScreenshotRequest("", "/opt/vtm").initialName, "*.bmp");
    EXPECT_EQ(shell::ScreenshotRequest("shots/a.bmp", "/opt/vtm").folder, "/opt/vtm/shots");
    EXPECT_EQ(shell::ScreenshotRequest("a.bmp", "/opt/vtm").folder, "/opt/vtm");
}
