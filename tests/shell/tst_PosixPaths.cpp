// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/CommandLine.h"
#include "shell/mdlLaunch.h"
#include "support/FakePlatform.h"

#include <gtest/gtest.h>

#include <filesystem>

TEST(PosixPaths, ABackslashIsALetterOfAName) {
    const auto file = shell::ParseCommandLine(" /name a\\b.vtn");
    ASSERT_TRUE(file);
    EXPECT_EQ(file->folder, "");
    EXPECT_EQ(file->file, "a\\b.vtn");
}

TEST(PosixPaths, AreAddressesThatAreAbsoluteAndPercentEncoded) {
    EXPECT_EQ(shell::FileAddress("/opt/vtm-1.0_a~b/vtmhelp.htm"), "file:///opt/vtm-1.0_a~b/vtmhelp.htm");
    EXPECT_EQ(shell::FileAddress("/a b/50%#?&\"'/x"), "file:///a%20b/50%25%23%3F%26%22%27/x");
    EXPECT_EQ(shell::FileAddress("/\xC3\xA9"), "file:///%C3%A9");
    EXPECT_EQ(
        shell::FileAddress("x.htm"), "file://" + ui::PathText(std::filesystem::current_path() / "x.htm"));
}

TEST(PosixPaths, AreBytes) {
    EXPECT_EQ(ui::PathText("/g\xFCnther.vtn"), "/g\xFCnther.vtn");
    EXPECT_EQ(ui::PathFromText("/g\xFCnther.vtn").native(), "/g\xFCnther.vtn");
}

TEST(PosixPaths, ALinkInThePlaceOfTheScratchFileIsNotFollowed) {
    support::FakePlatform fake;
    const ui::Path scratch = fake.directory.files / "temphtm.url";
    fake.directory.files.put("precious", "mine");
    std::filesystem::create_symlink("precious", scratch);
    shell::OpenUrl(fake.platform, "https://example.org/");
    ASSERT_EQ(fake.launcher.launches.size(), 1U);
    EXPECT_EQ(fake.launcher.launches[0].address, "https://example.org/");
    EXPECT_EQ(
        fake.directory.files.content("temphtm.url"), "[InternetShortcut]\r\nURL=https://example.org/\r\n");
    EXPECT_FALSE(std::filesystem::is_symlink(scratch));
    EXPECT_EQ(fake.directory.files.content("precious"), "mine");
    fake.launcher.finish(33);
}
