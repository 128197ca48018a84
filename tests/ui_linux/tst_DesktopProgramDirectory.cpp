// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/TempProgramDirectory.h"
#include "ui/DesktopProgramDirectory.h"
#include "ui/System.h"

#include <gtest/gtest.h>
#include <unistd.h>

namespace {

using support::TempFolder;
using ui::DesktopProgramDirectory;

TEST(DesktopProgramDirectory, IsTheExecutablesFolder) {
    const TempFolder folder;
    folder.put("bin/vtmtc.dat", "");
    folder.put("share/vtm/vtmtc.dat", "");
    const DesktopProgramDirectory directory(folder / "bin/VTM", folder / "home");
    EXPECT_EQ(directory.folder(), folder / "bin");
    EXPECT_TRUE(directory.writable());
    EXPECT_EQ(directory.toRead("vtmkeys.ini"), folder / "bin/vtmkeys.ini");
    EXPECT_EQ(directory.toWrite("vtmkeys.ini"), folder / "bin/vtmkeys.ini");
    EXPECT_FALSE(folder.has("home"));
}

TEST(DesktopProgramDirectory, IsTheDataFolderOfAnInstalledProgram) {
    const TempFolder folder;
    folder.put("bin/VTM", "");
    folder.put("share/vtm/vtmtc.dat", "");
    const DesktopProgramDirectory directory(folder / "bin/VTM", folder / "home");
    EXPECT_EQ(directory.folder(), folder / "share/vtm");
}

TEST(DesktopProgramDirectory, StaysBesideTheExecutableWithoutAnyData) {
    const TempFolder folder;
    folder.put("bin/VTM", "");
    const DesktopProgramDirectory directory(folder / "bin/VTM", folder / "home");
    EXPECT_EQ(directory.folder(), folder / "bin");
}

TEST(DesktopProgramDirectory, KnowsItsOwnExecutable) {
    EXPECT_EQ(ui::ExecutableFile().filename(), "tst_ui_linux");
    EXPECT_EQ(DesktopProgramDirectory().folder(), ui::ExecutableFile().parent_path());
}

/// A program folder that cannot be written. The superuser may write everywhere but where nothing can be
/// written, so for it the folder is one of the system's own.
class UnwritableDirectory : public testing::Test {
protected:
    void SetUp() override {
        if (::geteuid() == 0) {
            program = "/proc/self/VTM";
            known = "status";
        } else {
            folder.put("program/status", "");
            program = folder / "program/VTM";
            std::filesystem::permissions(
                folder / "program", std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
        }
    }

    void TearDown() override {
        if (::geteuid() != 0) {
            std::filesystem::permissions(folder / "program", std::filesystem::perms::owner_all);
        }
    }

    TempFolder folder;
    ui::Path program;
    std::string known = "status";
};

TEST_F(UnwritableDirectory, IsStoodInForByTheUsersFolder) {
    const DesktopProgramDirectory directory(program, folder / "home/data");
    EXPECT_FALSE(directory.writable());
    EXPECT_EQ(directory.toRead(known), program.parent_path() / known);
    EXPECT_EQ(directory.spareFolder(), folder / "home/data/vtm");
    EXPECT_FALSE(folder.has("home"));
    EXPECT_EQ(directory.toWrite(known), folder / "home/data/vtm" / known);
    EXPECT_TRUE(folder.has("home/data/vtm"));
    EXPECT_EQ(directory.toRead(known), program.parent_path() / known);
    folder.put("home/data/vtm/status", "mine");
    EXPECT_EQ(directory.toRead(known), folder / "home/data/vtm" / known);
}

TEST_F(UnwritableDirectory, IsAllThereIsForAUserWithoutADataHome) {
    const DesktopProgramDirectory directory(program, ui::Path());
    EXPECT_EQ(directory.spareFolder(), ui::Path());
    EXPECT_EQ(directory.toRead(known), program.parent_path() / known);
    EXPECT_EQ(directory.toWrite(known), program.parent_path() / known);
}

TEST_F(UnwritableDirectory, FindsTheDataHomeInTheEnvironment) {
    // Each test has a process of its own, so nobody else reads the environment meanwhile.
    const auto set = [](const char* name, const std::string& value) {
        ::setenv(name, value.c_str(), 1); // NOLINT(concurrency-mt-unsafe)
    };
    const auto standIn = [&] {
        return DesktopProgramDirectory(program).toWrite("x").parent_path();
    };
    set("HOME", (folder / "home").native());
    set("XDG_DATA_HOME", (folder / "data").native());
    EXPECT_EQ(standIn(), folder / "data/vtm");
    set("XDG_DATA_HOME", "relative");
    EXPECT_EQ(standIn(), folder / "home/.local/share/vtm");
    set("XDG_DATA_HOME", "");
    EXPECT_EQ(standIn(), folder / "home/.local/share/vtm");
    set("HOME", "relative");
    EXPECT_EQ(standIn(), program.parent_path());
}

TEST(DesktopProgramDirectory, FindsTheStateHomeInTheEnvironment) {
    const auto set = [](const char* name, const char* value) {
        ::setenv(name, value, 1); // NOLINT(concurrency-mt-unsafe)
    };
    set("HOME", "/home/me");
    set("XDG_STATE_HOME", "/state");
    EXPECT_EQ(DesktopProgramDirectory::StateFolder(), "/state/vtm");
    set("XDG_STATE_HOME", "relative");
    EXPECT_EQ(DesktopProgramDirectory::StateFolder(), "/home/me/.local/state/vtm");
    set("HOME", "");
    EXPECT_EQ(DesktopProgramDirectory::StateFolder(), ui::Path());
}

TEST(DesktopProgramDirectory, ForgetsTheUsersFolderWhereItCanWrite) {
    const TempFolder folder;
    folder.put("bin/vtmtc.dat", "");
    folder.put("home/vtm/vtmkeys.ini", "of another installation");
    const DesktopProgramDirectory directory(folder / "bin/VTM", folder / "home");
    EXPECT_EQ(directory.toRead("vtmkeys.ini"), folder / "bin/vtmkeys.ini");
    EXPECT_EQ(directory.spareFolder(), folder / "bin");
}

TEST_F(UnwritableDirectory, TakesAFileOfTheUserThatCannotBeLookedAtForNoOther) {
    std::filesystem::create_directories(folder / "home/data/vtm");
    // Following it fails, and not because nothing is there.
    std::filesystem::create_symlink("status", folder / "home/data/vtm/status");
    const DesktopProgramDirectory directory(program, folder / "home/data");
    EXPECT_EQ(directory.toRead(known), folder / "home/data/vtm" / known);
}

} // namespace
