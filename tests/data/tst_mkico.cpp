// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/PngPicture.h"
#include "support/TempProgramDirectory.h"
#include "support/ToolRun.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

using namespace std::string_literals;

class MkIco : public ::testing::Test {
protected:
    support::TempFolder folder;

    std::string put(const std::string& name, const ui::Picture& picture) {
        return folder.put(name, glyphs::EncodePng(picture).value()).string();
    }

    [[nodiscard]] std::string output() const { return (folder / "out.ico").string(); }
};

/// The number that lies in two or four bytes, the low one first.
unsigned NumberAt(std::string_view bytes, std::size_t at, std::size_t width) {
    unsigned number = 0;
    for (std::size_t i = width; i > 0; --i) {
        number = number << 8U | static_cast<unsigned char>(bytes[at + i - 1]);
    }
    return number;
}

} // namespace

TEST_F(MkIco, WritesASmallPictureAsABitmapFromTheBottomWithAMask) {
    ui::Picture picture(2, 2, 0xFF102030U);
    picture.setPixel(0, 1, 0x80FF8001U);
    ASSERT_EQ(support::RunProgram(MKICO, {output(), put("in.png", picture)}).exitCode, 0);
    EXPECT_EQ(
        folder.content("out.ico"), "\0\0\1\0\1\0"
                                   "\2\2\0\0\1\0\x20\0\x40\0\0\0\x16\0\0\0"
                                   "\x28\0\0\0\2\0\0\0\4\0\0\0\1\0\x20\0"
                                   "\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
                                   "\x01\x80\xFF\x80\x30\x20\x10\xFF"
                                   "\x30\x20\x10\xFF\x30\x20\x10\xFF"
                                   "\0\0\0\0\0\0\0\0"s);
}

TEST_F(MkIco, WritesTheLargestPictureAsPngAfterTheOthers) {
    const std::string small = put("small.png", ui::Picture(16, 16, 0xFF000000U));
    const std::string large = put("large.png", ui::Picture(256, 256, 0xFFFFFFFFU));
    ASSERT_EQ(support::RunProgram(MKICO, {output(), small, large}).exitCode, 0);
    const std::string bytes = folder.content("out.ico");
    EXPECT_EQ(NumberAt(bytes, 4, 2), 2U);
    EXPECT_EQ(bytes[22], '\0');
    const std::size_t size = NumberAt(bytes, 30, 4);
    const std::size_t at = NumberAt(bytes, 34, 4);
    ASSERT_EQ(at + size, bytes.size());
    const auto picture = glyphs::DecodePng(std::string_view(bytes).substr(at));
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture.value().width(), 256);
}

TEST_F(MkIco, RefusesAPictureThatIsTooLarge) {
    const std::string file = put("in.png", ui::Picture(257, 257));
    const support::ToolRun refused = support::RunProgram(MKICO, {output(), file});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_EQ(refused.errors, file + ": is larger than 256 x 256\n");
    EXPECT_FALSE(folder.has("out.ico"));
}

TEST_F(MkIco, SaysHowItIsCalled) {
    const support::ToolRun refused = support::RunProgram(MKICO, {output()});
    EXPECT_EQ(refused.exitCode, 2);
    EXPECT_EQ(refused.errors, "usage: mkico OUTPUT PICTURE.png...\n");
}
