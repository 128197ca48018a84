// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/TempProgramDirectory.h"
#include "ui/DesktopProgramDirectory.h"
#include "ui/System.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace {

using support::TempFolder;
using ui::DesktopProgramDirectory;

TEST(WindowsSystem, KnowsTheUsersFolders) {
    for (const ui::Path& folder :
         {ui::HomeFolder(), ui::ConfigHome(), ui::DataHome(), ui::StateHome(), ui::DocumentsFolder()}) {
        EXPECT_TRUE(folder.is_absolute()) << folder;
        EXPECT_TRUE(std::filesystem::is_directory(folder)) << folder;
    }
    EXPECT_NE(ui::DataHome(), ui::StateHome()) << "only one of them goes with the user to other computers";
    EXPECT_EQ(ui::ThisSystem(), ui::System::Windows);
}

TEST(WindowsSystem, KnowsItsOwnExecutable) {
    EXPECT_EQ(ui::ExecutableFile().filename(), "tst_ui_windows.exe");
    EXPECT_TRUE(ui::DiskFiles().exists(ui::ExecutableFile()));
    EXPECT_EQ(DesktopProgramDirectory().folder(), ui::ExecutableFile().parent_path());
    EXPECT_EQ(ui::ProgramFile("VTM"), "VTM.exe");
}

TEST(WindowsSystem, ReadsFoldersFromTheEnvironment) {
    ::SetEnvironmentVariableW(L"VTM_TEST_FOLDER", L"C:\\\u00FCber \u6F22");
    EXPECT_EQ(
        ui::PathText(ui::FolderVariable("VTM_TEST_FOLDER")), "C:\\\xC3\xBC"
                                                             "ber \xE6\xBC\xA2");
    ::SetEnvironmentVariableW(L"VTM_TEST_FOLDER", L"games");
    EXPECT_EQ(ui::FolderVariable("VTM_TEST_FOLDER"), ui::Path());
    ::SetEnvironmentVariableW(L"VTM_TEST_FOLDER", nullptr);
    EXPECT_EQ(ui::FolderVariable("VTM_TEST_FOLDER"), ui::Path());
}

TEST(WindowsSystem, TellsFoldersThatCanBeWritten) {
    const TempFolder folder;
    folder.put("file", "");
    EXPECT_TRUE(ui::IsWritableFolder(folder.path()));
    EXPECT_FALSE(ui::IsWritableFolder(folder / "file"));
    EXPECT_FALSE(ui::IsWritableFolder(folder / "gone"));
    EXPECT_FALSE(folder.has("gone"));
}

TEST(WindowsSystem, PathsAreTexts) {
    EXPECT_EQ(ui::PathFromText("\xC3\xA9.vtn").native(), L"\u00E9.vtn");
    EXPECT_EQ(
        ui::PathText(ui::PathFromText("C:\\\xC3\xA9/\xF0\x9F\x98\x80")), "C:\\\xC3\xA9/\xF0\x9F\x98\x80");
}

TEST(WindowsSystem, TheProgramDirectoryIsTheExecutablesFolder) {
    const TempFolder folder;
    const ui::Path beside = folder / ui::PathFromText("\xC3\xBC/b c");
    folder.put(ui::PathFromText("\xC3\xBC/b c/vtmtc.dat"), "");
    const DesktopProgramDirectory directory(beside / "VTM.exe", folder / "home");
    EXPECT_EQ(directory.folder(), beside);
    EXPECT_TRUE(directory.writable());
    EXPECT_EQ(directory.toWrite("vtmkeys.ini"), beside / "vtmkeys.ini");
    EXPECT_EQ(directory.toRead("\xC3\xA9.bmp"), beside / ui::PathFromText("\xC3\xA9.bmp"));
    EXPECT_FALSE(folder.has("home"));
}

} // namespace
