// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/TempProgramDirectory.h"
#include "support/ToolRun.h"

#include <QImage>

#include <gtest/gtest.h>

#include <string>

namespace {

struct PatternSheet : testing::Test {
    support::TempFolder folder;

    support::ToolRun draw(const std::string& positions, const std::string& marks) {
        return support::RunProgram(
            MKPATTERNSHEET, {positions, marks, CHARSET, ui::PathText(folder / "sheet.png")});
    }

    [[nodiscard]] QImage sheet() {
        return QImage(QString::fromStdString(ui::PathText(folder / "sheet.png")));
    }
};

std::string stillPattern(const std::string& kind, const std::string& title, const std::string& row) {
    std::string text = kind + "\npattern " + title + "\n";
    for (int step = 0; step < 14; ++step) {
        text += row + '\n';
    }
    return text;
}

} // namespace

TEST_F(PatternSheet, InTheDocumentsShowsThePatternsAsTheyAre) {
    const support::ToolRun run = draw(PATTERNS "/positional.txt", PATTERNS "/colour-case.txt");
    ASSERT_EQ(run.exitCode, 0) << run.errors;
    ASSERT_FALSE(sheet().isNull());
    // The pixels are compared: another system packs them another way.
    EXPECT_TRUE(
        QImage(SHEET).convertToFormat(QImage::Format_RGB32) == sheet().convertToFormat(QImage::Format_RGB32))
        << "build the target pattern_sheet, and look at docs/patterns.png";
}

TEST_F(PatternSheet, ShowsTheFourteenNamesAndTheOneAtRest) {
    const std::string marks =
        ui::PathText(folder.put("marks.txt", stillPattern("marks", "All", "###############")));
    const support::ToolRun run = draw(
        ui::PathText(
            folder.put("positions.txt", stillPattern("positions", "Gone but one", "1.............."))),
        marks);
    ASSERT_EQ(run.exitCode, 0) << run.errors;
    // Where a pattern's names begin: below its title, a glyph and a line for each of them.
    const QRect rows(10, 39, 120, 15 * 9);
    const auto inked = [&](const QRect& area) {
        const QImage image = sheet();
        int count = 0;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                count += image.pixelColor(x, y).lightness() > 80 ? 1 : 0;
            }
        }
        return count;
    };
    for (int name = 0; name < 15; ++name) {
        const QRect row(rows.left(), rows.top() + name * 9, rows.width(), 8);
        EXPECT_GT(inked(row.adjusted(0, 0, -14 * 8, 0)), 0) << name;
        EXPECT_EQ(inked(row.adjusted(8, 0, 0, 0)) > 0, name == 14) << name;
    }
}

TEST_F(PatternSheet, RefusesATitleThatHasNoRoom) {
    const std::string source = ui::PathText(folder.put(
        "positions.txt",
        stillPattern("positions", "Words of seven, letters, always, more, of them", "123456789ABCDE.")));
    const support::ToolRun run = draw(source, PATTERNS "/colour-case.txt");
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(
        run.errors,
        source + ":2: \"Words of seven, letters, always, more, of them\" is too long for the sheet\n");
}

TEST_F(PatternSheet, AsksForFourArguments) {
    const support::ToolRun run = support::RunProgram(MKPATTERNSHEET, {"one"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.errors, "usage: mkpatternsheet POSITIONS MARKS CHARSET OUTPUT\n");
}
