// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/GamePlaces.h"

#include "support/Environment.h"
#include "support/TempProgramDirectory.h"

#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>

namespace {

using support::TempFolder;

TEST(GamePlaces, AreTheUsersFoldersOfGamesWithTheNewestSettingsFirst) {
    const TempFolder home;
    const Environment homeVariable("HOME", QByteArray::fromStdString(home.path().native()));
    const Environment dataVariable("XDG_DATA_HOME", QByteArray::fromStdString((home / "data").native()));
    const Environment fteVariable("FTEHOME", QByteArray::fromStdString((home / "fte").native()));
    EXPECT_TRUE(shell::GameFolders().empty());
    home.put("fte/id1/autoexec.cfg", "");
    home.put("data/YamagiQ2/baseq2/config.cfg", "");
    const ui::Path older = home.put(".quakespasm/id1/config.cfg", "");
    std::filesystem::last_write_time(older, std::filesystem::last_write_time(older) - std::chrono::hours(1));
    std::string names;
    for (const ui::NamedFolder& folder : shell::GameFolders()) {
        names += folder.name + " " + ui::PathText(folder.path.lexically_relative(home.path())) + "\n";
    }
    EXPECT_EQ(
        names, "Yamagi Quake II data/YamagiQ2/baseq2\n"
               "QuakeSpasm .quakespasm/id1\n"
               "FTE fte/id1\n");
}

} // namespace
