// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/GamePlaces.h"

#include "shell/Workspace.h"
#include "support/Environment.h"
#include "support/TempProgramDirectory.h"

#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>

namespace {

using support::TempFolder;

/// The folders to offer, one a line, within a folder.
std::string FoldersIn(const TempFolder& home, const shell::Workspace& workspace) {
    std::string names;
    for (const ui::NamedFolder& folder : shell::GameFolders(workspace)) {
        const ui::Path within = folder.path.lexically_relative(home.path());
        if (*within.begin() != "..") {
            names += folder.name + " " + ui::PathText(within) + "\n";
        }
    }
    return names;
}

TEST(GamePlaces, AreTheUsersFoldersOfGamesWithTheNewestSettingsFirst) {
    const TempFolder home;
    const Environment homeVariable("HOME", QByteArray::fromStdString(home.path().native()));
    const Environment dataVariable("XDG_DATA_HOME", QByteArray::fromStdString((home / "data").native()));
    const Environment fteVariable("FTEHOME", QByteArray::fromStdString((home / "fte").native()));
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

TEST(GamePlaces, AreWhereTheFilesOfTheUserTellThatGamesAre) {
    const TempFolder home;
    const Environment homeVariable("HOME", QByteArray::fromStdString(home.path().native()));
    const Environment dataVariable("XDG_DATA_HOME", QByteArray::fromStdString((home / "data").native()));
    shell::Workspace workspace;
    workspace.rememberedConfig = home.put("first/id1/config.cfg", "");
    workspace.rememberedScript = home.put("second/baseq2/clan.vtn", "");
    home.put("third/id1/pak0.pak", "");
    workspace.recent.of(editing::Page::Animation) = {
        ui::PathText(home / "none/id1/wave.vta"), ui::PathText(home.put("third/ctf/wave.vta", ""))};
    home.put("fourth/id1/pak0.pak", "");
    EXPECT_EQ(
        FoldersIn(home, workspace), "original Quake first/id1\n"
                                    "original Quake third/id1\n"
                                    "original Quake II second/baseq2\n");
}

} // namespace
