// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/CommandLine.h"
#include "shell/mdlLaunch.h"

#include <gtest/gtest.h>

#include <filesystem>

TEST(WindowsPaths, AreSplitAtTheLastBackslashToo) {
    const auto file = shell::ParseCommandLine(" /name C:\\a b\\c.vtn");
    ASSERT_TRUE(file);
    EXPECT_EQ(file->folder, "C:\\a b");
    EXPECT_EQ(file->file, "c.vtn");
}

TEST(WindowsPaths, AreAddressesThatAreAbsoluteAndPercentEncoded) {
    EXPECT_EQ(shell::FileAddress("C:\\vtm-1.0_a~b\\vtmhelp.htm"), "file:///C:/vtm-1.0_a~b/vtmhelp.htm");
    EXPECT_EQ(shell::FileAddress("C:\\a b\\50%#&'\\x"), "file:///C:/a%20b/50%25%23%26%27/x");
    EXPECT_EQ(shell::FileAddress(L"C:\\\u00E9"), "file:///C:/%C3%A9");
    EXPECT_EQ(
        shell::FileAddress("x.htm"),
        "file:///" + (std::filesystem::current_path() / "x.htm").generic_string());
}
