// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/TempProgramDirectory.h"
#include "support/ToolRun.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string rows(int count, const std::string& row) {
    std::string text;
    for (int index = 0; index < count; ++index) {
        text += row + '\n';
    }
    return text;
}

const std::string PlainRow = "123456789ABCDEF";
const std::string PlainCells = "1,2,3,4,5,6,7,8,9,10,11,12,13,14,15\r\n";

class MkPatterns : public ::testing::Test {
protected:
    support::ToolRun compile(const std::string& source) {
        return support::RunProgram(
            MKPATTERNS, {ui::PathText(folder.put("source.txt", source)), ui::PathText(folder / "out.dat")});
    }

    void expectRefusal(const std::string& source, const std::string& message) {
        const support::ToolRun run = compile(source);
        EXPECT_EQ(run.exitCode, 1);
        EXPECT_EQ(run.errors, ui::PathText(folder / "source.txt") + message + "\n");
        EXPECT_FALSE(folder.has("out.dat"));
    }

    support::TempFolder folder;
};

} // namespace

TEST_F(MkPatterns, CompilesPositions) {
    const support::ToolRun run =
        compile("# A comment.\n\npositions\n\npattern Stand still\n" + rows(14, PlainRow));
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    EXPECT_EQ(run.errors, "");
    std::string expected = "1\r\n\"Stand still\"\r\n";
    for (int step = 0; step < 14; ++step) {
        expected += PlainCells;
    }
    EXPECT_EQ(folder.content("out.dat"), expected);
}

TEST_F(MkPatterns, CompilesMarks) {
    const support::ToolRun run = compile(
        "marks\npattern Left, then none\n" + rows(13, "#..............") + "...............\n" +
        "pattern All\n" + rows(14, "###############"));
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    std::string expected = "2\r\n\"Left, then none\"\r\n";
    for (int step = 0; step < 13; ++step) {
        expected += "1,0,0,0,0,0,0,0,0,0,0,0,0,0,0\r\n";
    }
    expected += "0,0,0,0,0,0,0,0,0,0,0,0,0,0,0\r\n\"All\"\r\n";
    for (int step = 0; step < 14; ++step) {
        expected += "1,1,1,1,1,1,1,1,1,1,1,1,1,1,1\r\n";
    }
    EXPECT_EQ(folder.content("out.dat"), expected);
}

TEST_F(MkPatterns, RefusesAnUnknownKind) {
    expectRefusal("colours\n", ":1: expected \"positions\" or \"marks\" before the first pattern");
}

TEST_F(MkPatterns, RefusesASourceWithoutPatterns) {
    expectRefusal("positions\n", ": holds no patterns");
    expectRefusal("", ": holds no patterns");
}

TEST_F(MkPatterns, RefusesARowBeforeThePattern) {
    expectRefusal("positions\n" + PlainRow + "\n", ":2: a row before the first pattern");
}

TEST_F(MkPatterns, RefusesAMissingRow) {
    expectRefusal("positions\npattern Short\n" + rows(13, PlainRow), ":2: \"Short\" has 13 rows, not 14");
    expectRefusal(
        "positions\npattern Short\n" + rows(13, PlainRow) + "pattern Next\n" + rows(14, PlainRow),
        ":2: \"Short\" has 13 rows, not 14");
}

TEST_F(MkPatterns, RefusesARowTooMany) {
    expectRefusal("positions\npattern Long\n" + rows(15, PlainRow), ":2: \"Long\" has 15 rows, not 14");
}

TEST_F(MkPatterns, RefusesARowOfTheWrongWidth) {
    expectRefusal("positions\npattern A\n" + PlainRow + "\n12345\n", ":4: a row has 15 cells, not 5");
    expectRefusal("positions\npattern A\n" + PlainRow + ".\n", ":3: a row has 15 cells, not 16");
}

TEST_F(MkPatterns, RefusesAnUnknownCell) {
    expectRefusal("positions\npattern A\n12345678G......\n", ":3: cell 9 is none of .123456789ABCDEF");
    expectRefusal("positions\npattern A\na..............\n", ":3: cell 1 is none of .123456789ABCDEF");
    expectRefusal("marks\npattern A\n##1............\n", ":3: cell 3 is none of .#");
}

TEST_F(MkPatterns, RefusesAnImproperTitle) {
    expectRefusal("positions\npattern\n", ":2: a title has 1 to 50 characters");
    expectRefusal("positions\npattern " + std::string(51, 'x') + "\n", ":2: a title has 1 to 50 characters");
    expectRefusal(
        "positions\npattern A \"wave\"\n", ":2: a title holds ASCII characters without double quotes");
    expectRefusal("positions\npattern caf\xE9\n", ":2: a title holds ASCII characters without double quotes");
}

TEST_F(MkPatterns, RefusesABlankPattern) {
    expectRefusal(
        "positions\npattern Nothing\n" + rows(14, "..............."), ":2: \"Nothing\" is blank throughout");
}

TEST_F(MkPatterns, RefusesATitleThatIsThereTwice) {
    expectRefusal(
        "positions\npattern A\n" + rows(14, PlainRow) + "pattern A\n" + rows(14, ".23456789ABCDEF"),
        ":17: \"A\" is there twice");
}

TEST_F(MkPatterns, RefusesTwoEqualPatterns) {
    expectRefusal(
        "positions\npattern A\n" + rows(14, PlainRow) + "pattern B\n" + rows(14, PlainRow),
        ":17: \"B\" equals \"A\"");
}

TEST_F(MkPatterns, SaysWhenAFileCannotBeReadOrWritten) {
    const std::string missing = ui::PathText(folder / "missing.txt");
    const support::ToolRun unread =
        support::RunProgram(MKPATTERNS, {missing, ui::PathText(folder / "out.dat")});
    EXPECT_EQ(unread.exitCode, 1);
    EXPECT_EQ(unread.errors, missing + ": cannot be read\n");

    const std::string source =
        ui::PathText(folder.put("good.txt", "positions\npattern A\n" + rows(14, PlainRow)));
    const std::string nowhere = ui::PathText(folder / "none/out.dat");
    const support::ToolRun unwritten = support::RunProgram(MKPATTERNS, {source, nowhere});
    EXPECT_EQ(unwritten.exitCode, 1);
    EXPECT_EQ(unwritten.errors, nowhere + ": cannot be written\n");
}

TEST_F(MkPatterns, AsksForTwoArguments) {
    const support::ToolRun run = support::RunProgram(MKPATTERNS, {"one"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.errors, "usage: mkpatterns SOURCE OUTPUT\n");
}
