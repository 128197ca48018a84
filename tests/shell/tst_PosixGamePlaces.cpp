// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "OfferedFolders.h"
#include "support/Environment.h"

#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>

TEST(PosixGamePlaces, AreTheUsersFoldersOfGamesWithTheNewestSettingsFirst) {
    const support::TempFolder home;
    const Environment homeVariable("HOME", QByteArray::fromStdString(ui::PathText(home.path())));
    const Environment dataVariable("XDG_DATA_HOME", QByteArray::fromStdString(ui::PathText(home / "data")));
    const Environment fteVariable("FTEHOME", QByteArray::fromStdString(ui::PathText(home / "fte")));
    const shell::Workspace workspace;
    EXPECT_EQ(FoldersIn(home, workspace), "");
    home.put("fte/id1/autoexec.cfg", "");
    home.put("data/YamagiQ2/baseq2/config.cfg", "");
    const ui::Path older = home.put(".quakespasm/id1/config.cfg", "");
    std::filesystem::last_write_time(older, std::filesystem::last_write_time(older) - std::chrono::hours(1));
    EXPECT_EQ(
        FoldersIn(home, workspace), "Yamagi Quake II data/YamagiQ2/baseq2\n"
                                    "QuakeSpasm .quakespasm/id1\n"
                                    "FTE fte/id1\n");
}
