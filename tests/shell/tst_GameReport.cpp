// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/GameReport.h"

#include "editing/mdlCommon.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

using editing::CellBlock;
using editing::Page;
using games::Family;

constexpr games::FamilyChoice AllGames{true, true, true};

class Report : public testing::Test {
protected:
    /// Puts bytes into a row of a page.
    void put(Page page, int row, std::string_view bytes) {
        const auto cells = editing::CursorOf(documents, page).rows.row(row);
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            cells[i] = static_cast<unsigned char>(bytes[i]);
        }
    }

    [[nodiscard]] shell::GameLine line(Page page, Family family) {
        const auto report = shell::ReportOf(documents, page, AllGames);
        const auto found = std::ranges::find(report.lines, family, &shell::GameLine::family);
        EXPECT_NE(found, report.lines.end());
        return found == report.lines.end() ? shell::GameLine{} : *found;
    }

    editing::Documents documents;
};

} // namespace

TEST_F(Report, ABlankPageHasNothingToTell) {
    for (const Page page : {Page::Name, Page::Animation, Page::Messages}) {
        EXPECT_EQ(shell::ReportOf(documents, page, AllGames), shell::GameReport{});
    }
}

TEST_F(Report, APlainNameIsKeptEverywhere) {
    put(Page::Name, 1, "Bob");
    const auto report = shell::ReportOf(documents, Page::Name, AllGames);
    ASSERT_EQ(report.lines.size(), 3U);
    for (const shell::GameLine& line : report.lines) {
        EXPECT_EQ(line.text, "kept");
        EXPECT_FALSE(line.isLoss);
        EXPECT_TRUE(line.shown.empty());
        EXPECT_EQ(line.row, 0);
    }
    EXPECT_TRUE(report.marks.empty());
}

TEST_F(Report, OnlyTheGamesThatArePlayedAreTold) {
    put(Page::Name, 1, "Bob#");
    EXPECT_TRUE(shell::ReportOf(documents, Page::Name, {}).lines.empty());
    const auto report = shell::ReportOf(documents, Page::Name, {false, false, true});
    ASSERT_EQ(report.lines.size(), 1U);
    EXPECT_EQ(report.lines.front().family, Family::Quake2);
    EXPECT_TRUE(report.marks.empty()) << "what others refuse is not marked";
}

TEST_F(Report, ARefusedGlyphIsNamedAndMarked) {
    put(Page::Name, 1, "Bob#");
    const shell::GameLine told = line(Page::Name, Family::QuakeWorld);
    EXPECT_TRUE(told.isLoss);
    EXPECT_NE(told.text.find("\"unnamed\""), std::string::npos) << told.text;
    EXPECT_EQ(told.row, 1);
    EXPECT_EQ(told.column, 4);
    EXPECT_NE(told.more.find("(MVDSV "), std::string::npos) << told.more;
    const std::vector<CellBlock> marks{{4, 1, 1, 1}};
    EXPECT_EQ(shell::ReportOf(documents, Page::Name, AllGames).marks, marks);
}

TEST_F(Report, WhatOthersSeeIsShownInGlyphs) {
    put(Page::Name, 1, "B\x10\xe1");
    const shell::GameLine told = line(Page::Name, Family::Quake2);
    EXPECT_EQ(told.text, "others see:");
    EXPECT_EQ(told.shown, (std::vector<glyphs::GlyphCode>{'B', 'a'}));
    EXPECT_EQ(told.shownText, "Ba, in one color");
    EXPECT_EQ(told.more, "others see: Ba, in one color (Yamagi Quake II 8.20, run)");
    const std::vector<CellBlock> marks{{2, 1, 1, 1}};
    EXPECT_EQ(shell::ReportOf(documents, Page::Name, AllGames).marks, marks)
        << "a glyph that only loses its color is shown, not marked";
}

TEST_F(Report, OnlyARowThatLosesAColorIsOfOneColor) {
    put(Page::Name, 1, "B\x10x");
    EXPECT_EQ(line(Page::Name, Family::Quake2).shownText, "Bx");
    put(Page::Name, 1, "B\xa0\x90");
    EXPECT_EQ(line(Page::Name, Family::Quake2).shownText, "B") << "a blank has no color to lose";
    put(Page::Name, 1, "\x01y\xe1");
    EXPECT_EQ(line(Page::Name, Family::QuakeWorld).shownText, "ya") << "QuakeWorld keeps the colors";
}

TEST_F(Report, AnAnimationTellsItsTimeAndOnceThePreviews) {
    for (int row = 1; row <= documents.animation.nameCount; ++row) {
        put(Page::Animation, row, "Bob");
    }
    EXPECT_EQ(line(Page::Animation, Family::Quake).text, "0.4 s (preview 1.5 s); kept");
    EXPECT_EQ(line(Page::Animation, Family::QuakeWorld).text, "0.4 s; kept");
    EXPECT_EQ(line(Page::Animation, Family::Quake2).text, "0.5 s; kept");
    const auto report = shell::ReportOf(documents, Page::Animation, {false, true, true});
    EXPECT_EQ(report.lines.front().text, "0.4 s (preview 1.5 s); kept") << "the first line, whatever it is";
}

TEST_F(Report, AKickComesBeforeWhatBecomesOfRows) {
    for (int row = 1; row <= documents.animation.nameCount; ++row) {
        put(Page::Animation, row, std::string("Bob# ") + static_cast<char>('a' + row));
    }
    const shell::GameLine told = line(Page::Animation, Family::QuakeWorld);
    EXPECT_EQ(told.text, "0.4 s; kicked at name 7, after 0.2 s");
    EXPECT_EQ(told.row, 7);
    EXPECT_EQ(told.column, 1);
    EXPECT_NE(told.more.find("takes 0.4 s, preview 1.5 s\n"), std::string::npos) << told.more;
}

TEST_F(Report, TheCursorsRowComesBeforeTheOthers) {
    for (int row = 1; row <= documents.animation.nameCount; ++row) {
        put(Page::Animation, row, "Bob\x10");
    }
    documents.animation.currentName = 9;
    const shell::GameLine told = line(Page::Animation, Family::Quake2);
    EXPECT_EQ(told.text, "0.5 s; others see:");
    EXPECT_EQ(told.row, 9);
    EXPECT_NE(told.more.find("name 9: others see: Bob ("), std::string::npos) << told.more;
    documents.animation.nameGlyphs.fill(glyphs::BlankGlyph);
    put(Page::Animation, 2, "Bob\x10");
    EXPECT_EQ(line(Page::Animation, Family::Quake2).text, "0.5 s; name 2: others see:");
}

TEST_F(Report, ALongScriptIsToldOfTheFirstEngines) {
    documents.animation.nameCount = editing::MaxNames;
    documents.animation.nameTicks.fill(editing::MaxOfferedTicks);
    for (int row = 1; row <= editing::MaxNames; ++row) {
        put(Page::Animation, row, "fifteen glyphs!");
    }
    const shell::GameLine told = line(Page::Animation, Family::Quake);
    EXPECT_FALSE(told.isLoss);
    EXPECT_EQ(told.text, "18.9 s (preview 67.5 s); too long for original Quake: 10,517 bytes");
    EXPECT_NE(told.more.find("original Quake does not run 10,517 bytes"), std::string::npos) << told.more;
    EXPECT_EQ(
        line(Page::Animation, Family::Quake2).text, "23.0 s; too long for original Quake II: 10,517 bytes");
    EXPECT_EQ(line(Page::Animation, Family::QuakeWorld).text.find("too long"), std::string::npos);
}

TEST_F(Report, MessagesAreJudgedOneByOneAndBlankOnesNotAtAll) {
    put(Page::Messages, 3, "say \"hi");
    const shell::GameLine told = line(Page::Messages, Family::Quake);
    EXPECT_TRUE(told.isLoss);
    EXPECT_TRUE(told.text.starts_with("message 3: ")) << told.text;
    EXPECT_EQ(told.row, 3);
    EXPECT_EQ(told.column, 5);
    EXPECT_EQ(line(Page::Messages, Family::Quake2).row, 3);
}

TEST_F(Report, NamesOutOfUseAreNotJudged) {
    put(Page::Animation, 1, "Bob");
    put(Page::Animation, editing::MaxNames, "#");
    for (const CellBlock& mark : shell::ReportOf(documents, Page::Animation, AllGames).marks) {
        EXPECT_LE(mark.row, documents.animation.nameCount);
    }
}
