// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/PngPicture.h"
#include "support/TempProgramDirectory.h"
#include "support/ToolRun.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

class MkIcons : public ::testing::Test {
protected:
    support::TempFolder folder;

    std::string put(const ui::Picture& picture) {
        return ui::PathText(folder.put("in.png", glyphs::EncodePng(picture).value()));
    }

    [[nodiscard]] support::ToolRun run(const std::string& icon) const {
        return support::RunProgram(MKICONS, {ui::PathText(folder.path()), icon});
    }

    [[nodiscard]] std::vector<ui::Pixel> pixels(const std::string& name) const {
        const std::string bytes = folder.content(name);
        std::vector<ui::Pixel> pixels(bytes.size() / sizeof(ui::Pixel));
        std::memcpy(pixels.data(), bytes.data(), pixels.size() * sizeof(ui::Pixel));
        return pixels;
    }
};

} // namespace

TEST_F(MkIcons, WritesTheRowsWithColoursMultipliedByAlpha) {
    ui::Picture picture(2, 2, 0xFF102030U);
    picture.setPixel(1, 0, 0x80FF8000U);
    picture.setPixel(0, 1, 0x00FFFFFFU);
    EXPECT_EQ(run("icon@2x=" + put(picture)).exitCode, 0);
    EXPECT_EQ(pixels("icon@2x"), (std::vector<ui::Pixel>{0xFF102030U, 0x80804000U, 0, 0xFF102030U}));
}

TEST_F(MkIcons, RefusesAPictureThatIsNotSquare) {
    const std::string file = put(ui::Picture(2, 1));
    const support::ToolRun refused = run("icon=" + file);
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_EQ(refused.errors, file + ": is not square\n");
    EXPECT_FALSE(folder.has("icon"));
}

TEST_F(MkIcons, RefusesWhatIsNoPicture) {
    const std::string file = ui::PathText(folder.put("in.png", "no picture"));
    const support::ToolRun refused = run("icon=" + file);
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_EQ(refused.errors.rfind(file + ": not a usable PNG picture", 0), 0) << refused.errors;
}

TEST_F(MkIcons, RefusesAMissingPicture) {
    const std::string file = ui::PathText(folder / "none.png");
    const support::ToolRun refused = run("icon=" + file);
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_EQ(refused.errors, file + ": cannot be read\n");
}

TEST_F(MkIcons, SaysHowItIsCalled) {
    EXPECT_EQ(support::RunProgram(MKICONS, {ui::PathText(folder.path())}).exitCode, 2);
    EXPECT_EQ(run("without-a-name.png").errors, "usage: mkicons FOLDER NAME=PICTURE.png...\n");
}
