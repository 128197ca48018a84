// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "OfferedFolders.h"
#include "ui/System.h"

#include <gtest/gtest.h>

TEST(WindowsGamePlaces, AreTheFoldersThatTheSystemGivesTheUser) {
    using games::Place;
    auto places = shell::FindGames({}).places;
    EXPECT_EQ(places[Place::AppData], ui::FolderVariable("APPDATA"));
    EXPECT_EQ(places[Place::LocalAppData], ui::FolderVariable("LOCALAPPDATA"));
    EXPECT_EQ(places[Place::Home], ui::FolderVariable("USERPROFILE"));
    EXPECT_EQ(places[Place::Documents], ui::DocumentsFolder());
    EXPECT_EQ(places[Place::SavedGames], ui::SavedGamesFolder());
    EXPECT_EQ(places[Place::SavedGames].filename(), "Saved Games");
}
