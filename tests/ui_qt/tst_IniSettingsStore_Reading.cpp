// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/TempProgramDirectory.h"
#include "ui/qt/IniSettingsStore.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace {

using support::TempFolder;
using ui::qt::IniSettingsStore;

/// Makes a folder the current one for as long as it exists.
class CurrentFolder {
public:
    explicit CurrentFolder(const ui::Path& folder) { std::filesystem::current_path(folder); }

    CurrentFolder(const CurrentFolder&) = delete;
    CurrentFolder& operator=(const CurrentFolder&) = delete;
    CurrentFolder(CurrentFolder&&) = delete;
    CurrentFolder& operator=(CurrentFolder&&) = delete;

    ~CurrentFolder() { std::filesystem::current_path(m_before); }

private:
    ui::Path m_before = std::filesystem::current_path();
};

// A file whose name begins with a colon is a missing one to the toolkit, which does not tell.
TEST(IniSettingsStore, ReadsWhatTheToolkitTakesForAnEmptyFile) {
    ui::DiskFiles files;
    const TempFolder folder;
    folder.put(":VTM.ini", "[options]\ncolor1=1\n");
    const CurrentFolder current(folder.path());
    IniSettingsStore store(files, ":VTM.ini");
    EXPECT_EQ(store.read("options", "color1"), "1");
    EXPECT_TRUE(store.readable());
    store.write("options", "color2", "2");
    EXPECT_TRUE(store.save());
    EXPECT_EQ(folder.content(":VTM.ini"), "[options]\ncolor1=1\ncolor2=2\n");
}

} // namespace
