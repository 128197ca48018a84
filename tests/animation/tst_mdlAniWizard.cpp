// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/mdlAniWizard.h"

#include "animation/AnimationDesk.h"
#include "animation/PatternFiles.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace animation {
namespace {

using glyphs::CaseChoice;
using support::AnimationDesk;
using support::PatternFile;
using support::PatternRecord;

constexpr std::string_view Source = "abcdefghijklmno";

/// The name as it is.
int straight(int /*step*/, int position) {
    return position;
}

/// The name from right to left.
int reversed(int /*step*/, int position) {
    return 16 - position;
}

/// As many glyphs as the step's number, blanks after them.
int growing(int step, int position) {
    return position <= step ? position : 0;
}

/// The glyph at the step's number in every position.
int stepping(int step, int /*position*/) {
    return step;
}

int allMarked(int /*step*/, int /*position*/) {
    return 1;
}

/// Marks the position of the step's number.
int diagonal(int step, int position) {
    return step == position ? 1 : 0;
}

int noneMarked(int step, int position) {
    return step == position ? 2 : -1;
}

struct WizardBuild : testing::Test {
    AnimationDesk desk;
    support::FakePlatform platform;
    WizardChoices choices;
    CaseChoice caseChoice = CaseChoice::LettersOnly;

    WizardBuild() {
        desk.fillNames(90);
        desk.setName(15, Source);
        putPositions(PatternFile(
            {{"straight", straight}, {"reversed", reversed}, {"growing", growing}, {"stepping", stepping}}));
        putChanges(PatternFile({{"all", allMarked}, {"diagonal", diagonal}, {"none", noneMarked}}));
    }

    void putPositions(const std::string& bytes) { platform.directory.files.put("vtmani01.dat", bytes); }

    void putChanges(const std::string& bytes) { platform.directory.files.put("vtmani02.dat", bytes); }

    BuildOutcome build() {
        return BuildAnimation(desk.animation(), choices, caseChoice, platform.files, platform.directory);
    }

    /// Rows before and after the fifteen that a build writes.
    void expectOtherRowsUntouched() {
        for (int name = 1; name <= 90; ++name) {
            if ((name < choices.startName || name > choices.startName + 14) && name != 15) {
                EXPECT_EQ(desk.name(name), "name " + std::to_string(name));
            }
        }
    }
};

std::string transformed(std::string_view text, const std::function<int(int)>& change) {
    std::string result;
    for (const char byte : text) {
        result += static_cast<char>(static_cast<unsigned char>(change(static_cast<unsigned char>(byte))));
    }
    return result;
}

} // namespace

TEST(ReadPatternTitles, ListsTheTitlesInFileOrder) {
    EXPECT_EQ(
        ReadPatternTitles(PatternFile({{"Fly in, from the left", straight}, {"Grow", growing}})),
        (std::vector<std::string>{"Fly in, from the left", "Grow"}));
    EXPECT_TRUE(ReadPatternTitles("0\r\n").empty());
}

TEST(ReadPatternTitles, TakesTitlesWithoutQuotesAndAnyLineEnds) {
    std::string bytes = "1\nFly in\n";
    for (int number = 0; number < 14 * 15; ++number) {
        bytes += " 1 \n";
    }
    EXPECT_EQ(ReadPatternTitles(bytes), std::vector<std::string>{"Fly in"});
}

TEST(ReadPatternTitles, GoesAsFarAsTheFileCanBeRead) {
    const std::string two = PatternFile({{"a", straight}, {"b", straight}});
    EXPECT_EQ(ReadPatternTitles("3" + two.substr(1)), (std::vector<std::string>{"a", "b"}))
        << "a record too few";
    EXPECT_EQ(ReadPatternTitles(two.substr(0, two.size() - 20)), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(
        ReadPatternTitles("2\r\n\"a\"\r\n1,2,x\r\n" + PatternRecord("b", straight)),
        std::vector<std::string>{"a"});
    for (const std::string bytes : {"", "x", "-1", "32768\r\na", "\r\n\r\n"}) {
        EXPECT_TRUE(ReadPatternTitles(bytes).empty()) << bytes;
    }
}

TEST(ReadPattern, ReadsEveryCellOfTheRecord) {
    const std::string bytes = PatternFile({{"other", straight}, {"this", [](int step, int position) {
                                                                     return step * 100 + position;
                                                                 }}});
    const auto pattern = ReadPattern(bytes, 2);
    ASSERT_TRUE(pattern);
    for (int step = 1; step <= 14; ++step) {
        for (int position = 1; position <= 15; ++position) {
            EXPECT_EQ(pattern->cell(step, position), step * 100 + position);
        }
    }
    EXPECT_FALSE(pattern->isPositional());
    EXPECT_TRUE(ReadPattern(bytes, 1)->isPositional());
}

TEST(ReadPattern, RefusesWhatIsShortOrNoNumber) {
    const std::string good = PatternFile({{"a", straight}, {"b", straight}});
    ASSERT_TRUE(ReadPattern(good, 2));
    EXPECT_FALSE(ReadPattern(good, 3));
    EXPECT_FALSE(ReadPattern("", 1));
    EXPECT_FALSE(ReadPattern("1\r\n", 1));
    EXPECT_FALSE(ReadPattern("x\r\n" + PatternRecord("a", straight), 1));
    const std::string shortened = good.substr(0, good.size() - 5);
    EXPECT_TRUE(ReadPattern(shortened, 1));
    EXPECT_FALSE(ReadPattern(shortened, 2));
    std::string broken = good;
    broken.replace(broken.find("15"), 2, "1x");
    EXPECT_FALSE(ReadPattern(broken, 1));
    EXPECT_FALSE(ReadPattern(broken, 2)) << "the records before are read too";
}

TEST(CombinePatterns, PlaysTheOddStepsOfEach) {
    Pattern first;
    Pattern second;
    for (int step = 1; step <= 14; ++step) {
        for (int position = 1; position <= 15; ++position) {
            first.cell(step, position) = static_cast<std::int16_t>(step);
            second.cell(step, position) = static_cast<std::int16_t>(step * 100 + position);
        }
    }
    const Pattern combined = CombinePatterns(first, second);
    for (int step = 1; step <= 7; ++step) {
        EXPECT_EQ(combined.cell(step, 1), 2 * step - 1);
        EXPECT_EQ(combined.cell(step + 7, 4), (2 * step - 1) * 100 + 4);
    }
    EXPECT_EQ(combined.cell(7, 15), 13);
    EXPECT_EQ(combined.cell(14, 15), 1315);
}

TEST_F(WizardBuild, WithNothingChosenDoesNothing) {
    const BuildOutcome outcome = build();
    EXPECT_EQ(outcome.end, BuildEnd::NothingToDo);
    EXPECT_FALSE(outcome.rowsWritten);
    EXPECT_EQ(platform.files.count(support::FailingFiles::Step::Read), 0);
}

TEST_F(WizardBuild, WritesFourteenStepsAndTheNameAtRest) {
    choices.firstPosition = 3;
    choices.startName = 20;
    const BuildOutcome outcome = build();
    EXPECT_EQ(outcome.end, BuildEnd::Built);
    EXPECT_TRUE(outcome.rowsWritten);
    for (int step = 1; step <= 14; ++step) {
        EXPECT_EQ(desk.name(19 + step), Source.substr(0, static_cast<std::size_t>(step)));
    }
    EXPECT_EQ(desk.name(34), Source);
    expectOtherRowsUntouched();
    EXPECT_EQ(desk.animation().nameCount, 15);
    for (int name = 1; name <= 90; ++name) {
        EXPECT_EQ(desk.animation().ticks(name), 2);
    }
}

TEST_F(WizardBuild, TakesTheSecondOptionAloneAsWell) {
    choices.secondPosition = 2;
    EXPECT_EQ(build().end, BuildEnd::Built);
    for (int step = 1; step <= 14; ++step) {
        EXPECT_EQ(desk.name(step), "onmlkjihgfedcba");
    }
    EXPECT_EQ(desk.name(15), Source);
}

TEST_F(WizardBuild, PlaysTwoOptionsAtDoubleSpeed) {
    choices.firstPosition = 4;
    choices.secondPosition = 2;
    choices.startName = 40;
    EXPECT_EQ(build().end, BuildEnd::Built);
    for (int step = 1; step <= 7; ++step) {
        EXPECT_EQ(desk.name(39 + step), std::string(15, Source[static_cast<std::size_t>(2 * step - 2)]));
        EXPECT_EQ(desk.name(46 + step), "onmlkjihgfedcba");
    }
    EXPECT_EQ(desk.name(54), Source);
}

TEST_F(WizardBuild, PlaysTheSameOptionTwiceOver) {
    choices.firstPosition = 4;
    choices.secondPosition = 4;
    EXPECT_EQ(build().end, BuildEnd::Built);
    for (int step = 1; step <= 7; ++step) {
        const std::string expected(15, Source[static_cast<std::size_t>(2 * step - 2)]);
        EXPECT_EQ(desk.name(step), expected);
        EXPECT_EQ(desk.name(step + 7), expected);
    }
}

TEST_F(WizardBuild, RepeatsNamesForServersIfAskedTo) {
    choices.firstPosition = 3;
    choices.startName = 20;
    choices.safeForServers = true;
    EXPECT_EQ(build().end, BuildEnd::Built);
    for (int row = 0; row < 15; ++row) {
        const std::size_t shown = static_cast<std::size_t>(row) / 3 * 3 + 3;
        EXPECT_EQ(desk.name(20 + row), Source.substr(0, shown)) << row;
    }
    expectOtherRowsUntouched();

    choices.letterCase = 99;
    EXPECT_EQ(build().end, BuildEnd::Stopped);
    EXPECT_EQ(desk.name(20), Source.substr(0, 1)) << "what was not built to its end is left as it is";
}

TEST_F(WizardBuild, WritesTheLastRowsFromSeventySixOn) {
    choices.firstPosition = 2;
    choices.startName = 76;
    EXPECT_EQ(build().end, BuildEnd::Built);
    EXPECT_EQ(desk.name(75), "name 75");
    EXPECT_EQ(desk.name(76), "onmlkjihgfedcba");
    EXPECT_EQ(desk.name(89), "onmlkjihgfedcba");
    EXPECT_EQ(desk.name(90), Source);
    EXPECT_EQ(desk.animation().nameCount, 15) << "rows out of use are written all the same";
}

TEST_F(WizardBuild, CopiesTheNameBeforeItsRowIsWritten) {
    choices.firstPosition = 2;
    choices.nameToUse = 3;
    desk.setName(3, "xyz");
    EXPECT_EQ(build().end, BuildEnd::Built);
    for (int step = 1; step <= 14; ++step) {
        EXPECT_EQ(desk.name(step), "            zyx");
    }
    EXPECT_EQ(desk.name(15), "xyz");
}

TEST_F(WizardBuild, ShowsBlanksForZeroAndForPositionsPastAShortName) {
    choices.firstPosition = 4;
    desk.setName(15, "abc");
    EXPECT_EQ(build().end, BuildEnd::Built);
    EXPECT_EQ(desk.name(1), std::string(15, 'a'));
    EXPECT_EQ(desk.name(3), std::string(15, 'c'));
    EXPECT_EQ(desk.name(4), "");
    EXPECT_EQ(desk.name(14), "");
    EXPECT_EQ(desk.name(15), "abc");
}

TEST_F(WizardBuild, ChangesColoursOfMarkedGlyphsInPlace) {
    choices.color = 2;
    choices.startName = 30;
    for (int name = 30; name <= 44; ++name) {
        desk.setName(name, Source);
    }
    EXPECT_EQ(build().end, BuildEnd::Built);
    for (int step = 1; step <= 14; ++step) {
        std::string expected(Source);
        char& marked = expected[static_cast<std::size_t>(step - 1)];
        marked = static_cast<char>(static_cast<unsigned char>(marked) + 128);
        EXPECT_EQ(desk.name(29 + step), expected);
    }
    EXPECT_EQ(desk.name(44), Source);
    expectOtherRowsUntouched();
}

TEST_F(WizardBuild, NamesTheColourThatIsChanged) {
    const std::string text = "\x0B\x20!a\x7F\x8B\xA0\xA1\xE1\xFF";
    const auto up = [](int code) {
        return code == 11 || (code >= 33 && code <= 127) ? code + 128 : code;
    };
    const auto down = [](int code) {
        return code == 139 || code >= 161 ? code - 128 : code;
    };
    const auto both = [&](int code) {
        return up(code) != code ? up(code) : down(code);
    };
    choices.color = 1;
    const std::vector<std::pair<ColorChange, std::function<int(int)>>> changes = {
        {ColorChange::Color1, up}, {ColorChange::Color2, down}, {ColorChange::Switch, both}};
    for (const auto& [change, expected] : changes) {
        choices.colorChange = change;
        desk.setName(1, text);
        desk.setName(15, text);
        EXPECT_EQ(build().end, BuildEnd::Built);
        EXPECT_EQ(desk.name(1), transformed(text, expected));
        EXPECT_EQ(desk.name(15), text) << "the row at rest is not touched";
    }
}

TEST_F(WizardBuild, NamesTheCaseThatResults) {
    choices.letterCase = 1;
    const std::vector<std::pair<CaseChange, std::string>> changes = {
        {CaseChange::Lower, "abcd {|} 12!"},
        {CaseChange::Upper, "ABCD [\\] 12!"},
        {CaseChange::Switch, "abCD {\\] 12!"}};
    for (const auto& [change, expected] : changes) {
        choices.caseChange = change;
        desk.setName(1, "ABcd [|} 12!");
        EXPECT_EQ(build().end, BuildEnd::Built);
        EXPECT_EQ(desk.name(1), expected);
    }
    desk.setName(1, "\xC1\xE1\xDB\xFB");
    choices.caseChange = CaseChange::Switch;
    EXPECT_EQ(build().end, BuildEnd::Built);
    EXPECT_EQ(desk.name(1), "\xE1\xC1\xDB\xFB") << "brackets of colour 2 have no case";
}

TEST_F(WizardBuild, ChangesAllCharactersWhenFormattingDoes) {
    choices.letterCase = 1;
    caseChoice = CaseChoice::AllCharacters;
    const std::vector<std::pair<CaseChange, std::string>> changes = {
        {CaseChange::Lower, "121-"}, {CaseChange::Upper, "!@!_"}, {CaseChange::Switch, "!21_"}};
    for (const auto& [change, expected] : changes) {
        choices.caseChange = change;
        desk.setName(1, "1@!-");
        EXPECT_EQ(build().end, BuildEnd::Built);
        EXPECT_EQ(desk.name(1), expected);
    }
}

TEST_F(WizardBuild, LeavesGlyphsThatAreAlreadyChanged) {
    choices.color = 1;
    choices.letterCase = 1;
    const std::string text = "\xE1\xE2";
    desk.setName(1, text);
    EXPECT_EQ(build().end, BuildEnd::Built);
    EXPECT_EQ(desk.name(1), text);
}

TEST_F(WizardBuild, TakesOnlyOneForAMark) {
    choices.color = 3;
    choices.letterCase = 3;
    EXPECT_EQ(build().end, BuildEnd::Built);
    EXPECT_EQ(desk.name(1), "name 1");
    EXPECT_EQ(desk.name(14), "name 14");
}

TEST_F(WizardBuild, MakesThePassesOneAfterTheOther) {
    choices.firstPosition = 3;
    choices.color = 1;
    choices.letterCase = 1;
    choices.caseChange = CaseChange::Upper;
    EXPECT_EQ(build().end, BuildEnd::Built);
    const std::string shouted = transformed("ABCDEFGHIJKLMNO", [](int code) { return code + 128; });
    for (int step = 1; step <= 14; ++step) {
        EXPECT_EQ(desk.name(step), shouted.substr(0, static_cast<std::size_t>(step)));
    }
    EXPECT_EQ(desk.name(15), Source);
}

TEST_F(WizardBuild, StopsBeforeItWritesWhenThePositionsAreMalformed) {
    choices.firstPosition = 1;
    choices.color = 1;
    for (const std::string& bytes : std::vector<std::string>{
             "", "1\r\nstraight\r\n1,2,3\r\n", "nonsense",
             PatternFile(
                 {{"sixteen",
                   [](int step, int) {
                       return step == 14 ? 16 : 1;
                   }}}),
             PatternFile(
                 {{"negative",
                   [](int step, int) {
                       return step == 14 ? -1 : 1;
                   }}}),
             PatternFile({{"too large", [](int, int) {
                               return 40000;
                           }}})}) {
        putPositions(bytes);
        const BuildOutcome outcome = build();
        EXPECT_EQ(outcome.end, BuildEnd::Stopped) << bytes;
        EXPECT_FALSE(outcome.rowsWritten) << bytes;
        EXPECT_EQ(desk.name(1), "name 1") << bytes;
    }
}

TEST_F(WizardBuild, StopsBeforeItWritesWhenEitherOfTwoPositionsIsMalformed) {
    putPositions("2\r\n" + PatternRecord("straight", straight) + "\"short\"\r\n1,2,3\r\n");
    for (const auto& [first, second] : {std::pair(1, 2), std::pair(2, 1)}) {
        choices.firstPosition = first;
        choices.secondPosition = second;
        const BuildOutcome outcome = build();
        EXPECT_EQ(outcome.end, BuildEnd::Stopped);
        EXPECT_FALSE(outcome.rowsWritten);
        EXPECT_EQ(desk.name(1), "name 1");
    }
}

TEST_F(WizardBuild, KeepsTheRowsOfEarlierPassesWhenALaterOneIsMalformed) {
    choices.firstPosition = 2;
    choices.color = 2;
    putChanges("2\r\n" + PatternRecord("all", allMarked) + "\"short\"\r\n1,1,1\r\n");
    BuildOutcome outcome = build();
    EXPECT_EQ(outcome.end, BuildEnd::Stopped);
    EXPECT_TRUE(outcome.rowsWritten);
    EXPECT_EQ(desk.name(1), "onmlkjihgfedcba");

    choices.firstPosition = 0;
    choices.color = 1;
    choices.letterCase = 2;
    outcome = build();
    EXPECT_EQ(outcome.end, BuildEnd::Stopped);
    EXPECT_TRUE(outcome.rowsWritten);
    EXPECT_EQ(desk.name(1), transformed("onmlkjihgfedcba", [](int code) { return code + 128; }));
}

TEST_F(WizardBuild, StopsWhenAFileHasGone) {
    choices.firstPosition = 1;
    choices.color = 1;
    std::filesystem::remove(platform.directory.files / "vtmani02.dat");
    BuildOutcome outcome = build();
    EXPECT_EQ(outcome.end, BuildEnd::Stopped);
    EXPECT_TRUE(outcome.rowsWritten);
    std::filesystem::remove(platform.directory.files / "vtmani01.dat");
    outcome = build();
    EXPECT_EQ(outcome.end, BuildEnd::Stopped);
    EXPECT_FALSE(outcome.rowsWritten);
}

TEST(OutOfUseText, TellsWhichRowsCannotBeSeen) {
    AnimationDocument animation;
    EXPECT_EQ(OutOfUseText(animation, 1), "");
    EXPECT_EQ(OutOfUseText(animation, 2), "Name 16 was built but is not in use: raise the total to 16.");
    EXPECT_EQ(
        OutOfUseText(animation, 10), "Names 16 to 24 were built but are not in use: raise the total to 24.");
    EXPECT_EQ(
        OutOfUseText(animation, 76), "Names 76 to 90 were built but are not in use: raise the total to 90.");
    animation.nameCount = 90;
    EXPECT_EQ(OutOfUseText(animation, 76), "");
}

TEST_F(WizardBuild, OffersTheTitlesOfBothFiles) {
    const WizardOptions options = LoadWizardOptions(platform.files, platform.directory);
    EXPECT_TRUE(options.available);
    EXPECT_EQ(options.message, "");
    EXPECT_EQ(options.positions, (std::vector<std::string>{"straight", "reversed", "growing", "stepping"}));
    EXPECT_EQ(options.changes, (std::vector<std::string>{"all", "diagonal", "none"}));
}

TEST_F(WizardBuild, IsDisabledWhenEitherFileIsMissing) {
    for (const std::string name : {"vtmani01.dat", "vtmani02.dat"}) {
        const std::string bytes = platform.directory.files.content(name);
        std::filesystem::remove(platform.directory.files / name);
        const WizardOptions options = LoadWizardOptions(platform.files, platform.directory);
        EXPECT_FALSE(options.available);
        EXPECT_EQ(
            options.message, "The Animation Data file/s needed by VTM 'vtmani01.dat or vtmani02.dat' is not "
                             "in the programs directory!\nAutomatic animation has been disabled.");
        EXPECT_TRUE(options.positions.empty());
        EXPECT_TRUE(options.changes.empty());
        EXPECT_EQ(platform.files.count(support::FailingFiles::Step::Read), 0) << "nothing is read";
        platform.directory.files.put(name, bytes);
    }
}

TEST_F(WizardBuild, NamesAFileThatCannotBeRead) {
    platform.files.failOnce(support::FailingFiles::Step::Read, 2);
    const WizardOptions options = LoadWizardOptions(platform.files, platform.directory);
    EXPECT_FALSE(options.available);
    EXPECT_EQ(
        options.message, "Automatic animation has been disabled, because its patterns cannot be read.\n\n"
                         "Could not read \"" +
                             ui::PathText(platform.directory.files / "vtmani02.dat") +
                             "\": injected failure.");
}

} // namespace animation
