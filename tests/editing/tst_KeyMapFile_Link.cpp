// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/KeyMapFile.h"
#include "support/FakePlatform.h"

#include <gtest/gtest.h>

#include <filesystem>

TEST(KeyMapLink, KeepsItsPermissionsAndItsLink) {
    namespace fs = std::filesystem;
    support::FakePlatform fake;
    const support::TempFolder settings;
    settings.put("keys", editing::KeyMapText(editing::DefaultKeyMap()));
    fs::permissions(settings / "keys", fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink(settings / "keys", fake.directory.files / "vtmkeys.ini");
    fake.directory.files.put("vtmkeys.ini.new", "mine");
    editing::KeyMap map = editing::DefaultKeyMap();
    map[5] = {200, 201, 202};
    editing::KeyMaps keys{map, editing::DefaultKeyMap()};
    ASSERT_TRUE(editing::WriteKeyMap(fake.files, fake.directory, keys));
    EXPECT_TRUE(fs::is_symlink(fake.directory.files / "vtmkeys.ini"));
    EXPECT_EQ(settings.content("keys"), editing::KeyMapText(map));
    EXPECT_EQ(fs::status(settings / "keys").permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(fake.directory.files.content("vtmkeys.ini.new"), "mine");
}
