// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "OfferedFolders.h"
#include "support/Environment.h"

#include <gtest/gtest.h>

TEST(GamePlaces, AreWhereTheFilesOfTheUserTellThatGamesAre) {
    const support::TempFolder home;
    const Environment homeVariable("HOME", QByteArray::fromStdString(ui::PathText(home.path())));
    const Environment dataVariable("XDG_DATA_HOME", QByteArray::fromStdString(ui::PathText(home / "data")));
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
