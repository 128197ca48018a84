// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/mdlAniTrial.h"

#include "animation/AnimationDesk.h"
#include "animation/PatternFiles.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace animation {
namespace {

struct WizardTrial : testing::Test {
    support::AnimationDesk desk;
    WizardChoices choices;
    PatternFiles patterns;

    WizardTrial() {
        const auto typed = [](int step, int position) {
            return position <= step ? position : 0;
        };
        const auto spelled = [](int step, int position) {
            return position == step ? position : 0;
        };
        const auto leaving = [](int step, int position) {
            return step < 10 ? position : 0;
        };
        patterns.positions =
            support::PatternFile({{"Typed", typed}, {"Spelled", spelled}, {"Leaving", leaving}});
        patterns.changes = support::PatternFile({{"All", [](int, int) {
                                                      return 1;
                                                  }}});
        desk.fillNames(90);
        desk.setName(15, "abcdefghijklmno");
    }

    [[nodiscard]] Trial tried() {
        return TryChoices(desk.animation(), choices, glyphs::CaseChoice::LettersOnly, patterns);
    }

    [[nodiscard]] static std::string name(const Trial& trial, int row) {
        return glyphs::RowText(trial.names.name(row));
    }
};

} // namespace

TEST_F(WizardTrial, HoldsWhatABuildWritesAndWritesNothing) {
    choices = {
        .firstPosition = 1,
        .color = 1,
        .colorChange = ColorChange::Switch,
        .letterCase = 1,
        .caseChange = CaseChange::Upper,
        .startName = 30,
        .safeForServers = false};
    for (const bool isSafe : {false, true}) {
        choices.safeForServers = isSafe;
        desk.animation().ticks(31) = 7;
        const AnimationDocument before = desk.animation();
        const Trial trial = tried();
        EXPECT_EQ(desk.animation(), before);
        AnimationDocument built = before;
        EXPECT_EQ(
            BuildAnimation(built, choices, glyphs::CaseChoice::LettersOnly, patterns).end, BuildEnd::Built);
        for (int row = 1; row <= 15; ++row) {
            EXPECT_EQ(name(trial, row), glyphs::RowText(built.name(29 + row))) << row;
            EXPECT_EQ(trial.names.ticks(row), built.ticks(29 + row)) << row;
        }
        EXPECT_EQ(trial.names.ticks(2), 7);
        EXPECT_EQ(trial.names.nameCount, 15);
    }
}

TEST_F(WizardTrial, ShowsTheChosenNameWhereNothingWouldBeBuilt) {
    choices.nameToUse = 3;
    for (const int option : {0, 99}) {
        choices.firstPosition = option;
        const Trial trial = tried();
        EXPECT_EQ(trial.note, "");
        for (int row = 1; row <= 15; ++row) {
            EXPECT_EQ(name(trial, row), "name 3") << option;
        }
    }
}

TEST_F(WizardTrial, TellsHowManyNamesAShortOneLeavesBlank) {
    choices.firstPosition = 2;
    EXPECT_EQ(tried().note, "");
    desk.setName(15, "abcdefghijklm");
    EXPECT_EQ(tried().note, "1 of the 15 is blank");
    desk.setName(15, "abc defghijklmn");
    EXPECT_EQ(tried().note, "1 of the 15 is blank") << "a long name with a gap";
    desk.setName(15, "abc");
    EXPECT_EQ(tried().note, "Short name: 11 of the 15 are blank");
    choices.firstPosition = 1;
    EXPECT_EQ(tried().note, "") << "the movement begins where the name does";
    choices.firstPosition = 3;
    EXPECT_EQ(tried().note, "") << "the movement leaves names blank by itself";
}

TEST_F(WizardTrial, TellsThatThereIsNoName) {
    desk.setName(15, "");
    EXPECT_EQ(tried().note, "Name 15 is blank: choose another");
    choices.firstPosition = 1;
    EXPECT_EQ(tried().note, "Name 15 is blank: choose another");
    choices.firstPosition = 0;
    choices.color = 1;
    EXPECT_EQ(tried().note, "") << "colours change the names that are there";
    desk.animation() = {};
    choices.startName = 20;
    EXPECT_EQ(tried().note, "Names 20 to 34 are blank");
}

TEST(TrialPreview, PlaysAgainAndAgainWithARestAfterTheLast) {
    AnimationDocument names;
    names.rows().cell(3, 1) = 'a';
    names.ticks(1) = 1;
    names.ticks(2) = 3;
    names.ticks(4) = 0;
    names.ticks(15) = 4;
    TrialPreview preview(names);
    EXPECT_TRUE(preview.moves());
    std::vector<int> shown;
    for (int tick = 0; tick < 200; ++tick) {
        shown.push_back(preview.shownName());
        preview.step();
    }
    EXPECT_EQ(std::vector<int>(shown.begin(), shown.begin() + 8), (std::vector<int>{1, 2, 2, 2, 3, 3, 5, 5}));
    const auto last = std::find(shown.begin(), shown.end(), 15);
    const auto again = std::find(last, shown.end(), 1);
    EXPECT_EQ(again - last, 14) << "its own ticks and a rest";
    EXPECT_TRUE(std::equal(again, shown.end(), shown.begin())) << "the second time is as the first";
}

TEST(TrialPreview, HasNothingToPlayWhereAllNamesAreTheSame) {
    AnimationDocument names;
    EXPECT_FALSE(TrialPreview(names).moves());
    names.ticks(4) = 9;
    EXPECT_FALSE(TrialPreview(names).moves());
    names.rows().cell(15, 15) = 'a';
    EXPECT_TRUE(TrialPreview(names).moves());
}

TEST(TrialPreview, ShowsTheMiddleAndBeginsAnew) {
    TrialPreview preview{AnimationDocument()};
    preview.showMiddle();
    EXPECT_EQ(preview.shownName(), 8);
    preview.begin();
    EXPECT_EQ(preview.shownName(), 1);
}

} // namespace animation
