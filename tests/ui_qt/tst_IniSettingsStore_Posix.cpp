// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/InChild.h"
#include "support/TempProgramDirectory.h"
#include "ui/qt/IniSettingsStore.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <sys/resource.h>

namespace {

using support::TempFolder;
using ui::qt::IniSettingsStore;

TEST(IniSettingsStore, KeepsTheOldFileWhenTheProgramDiesWhileItWrites) {
    ui::DiskFiles files;
    const TempFolder folder;
    const std::string old = "[options]\ncolor1=1\n";
    folder.put("VTM.ini", old);
    // The system ends a program that writes past this size: nothing in it can tidy up any more.
    for (const rlim_t size : {300U, 20000U, 49999U}) {
        const int end = support::InChild([&] {
            IniSettingsStore store(files, folder / "VTM.ini");
            store.write("options", "color2", std::string(50000, 'x'));
            const rlimit limit{size, size};
            return ::setrlimit(RLIMIT_FSIZE, &limit) == 0 && store.save() ? 1 : 2;
        });
        EXPECT_EQ(end, -SIGXFSZ);
        EXPECT_EQ(folder.content("VTM.ini"), old);
    }
    // Nor is the next program kept out by what the dead one left.
    IniSettingsStore store(files, folder / "VTM.ini");
    store.write("options", "color2", "2");
    EXPECT_TRUE(store.save());
    EXPECT_EQ(folder.content("VTM.ini"), "[options]\ncolor1=1\ncolor2=2\n");
}

TEST(IniSettingsStore, LiesInTheUsersConfigurationHome) {
    const TempFolder folder;
    EXPECT_EQ(0, support::InChild([&] {
                  ::setenv("XDG_CONFIG_HOME", folder.path().c_str(), 1); // NOLINT(concurrency-mt-unsafe)
                  ui::DiskFiles files;
                  IniSettingsStore store(files, IniSettingsStore::UsersFile());
                  store.write("options", "color1", "1");
                  return store.save() ? 0 : 1;
              }));
    EXPECT_EQ(folder.content("VTM/VTM.ini"), "[options]\ncolor1=1\n");
}

TEST(IniSettingsStore, KeepsTheOldFileWhereTheToolkitCannotWrite) {
    const TempFolder folder;
    const std::string old = "[options]\ncolor1=1\n";
    folder.put("VTM.ini", old);
    for (const rlim_t size : {0U, 10U, 19U, 300U, 20000U, 49999U}) {
        const int end = support::InChild([&] {
            ui::SurviveFileSizeLimit();
            ui::DiskFiles files;
            IniSettingsStore store(files, folder / "VTM.ini");
            store.write("options", "color2", std::string(50000, 'x'));
            rlimit limit{size, RLIM_INFINITY};
            ::setrlimit(RLIMIT_FSIZE, &limit);
            const auto saved = store.save();
            limit.rlim_cur = RLIM_INFINITY;
            ::setrlimit(RLIMIT_FSIZE, &limit);
            const std::string whole = "[options]\ncolor1=1\ncolor2=" + std::string(50000, 'x') + "\n";
            return !saved && folder.content("VTM.ini") == old && store.save() &&
                           folder.content("VTM.ini") == whole
                       ? 0
                       : 1;
        });
        EXPECT_EQ(end, 0) << size;
        folder.put("VTM.ini", old);
    }
}

TEST(IniSettingsStore, LeavesNoTemporaryFileBehind) {
    const TempFolder folder;
    std::filesystem::create_directory(folder / "temporary");
    EXPECT_EQ(0, support::InChild([&] {
                  ::setenv("TMPDIR", (folder / "temporary").c_str(), 1); // NOLINT(concurrency-mt-unsafe)
                  ui::DiskFiles files;
                  IniSettingsStore store(files, folder / "VTM/VTM.ini");
                  store.write("options", "color2", "2");
                  return store.save() ? 0 : 1;
              }));
    EXPECT_TRUE(std::filesystem::is_empty(folder / "temporary"));
    EXPECT_EQ(folder.content("VTM/VTM.ini"), "[options]\ncolor2=2\n");
}

TEST(IniSettingsStore, KeepsItsLinkAndItsPermissions) {
    namespace fs = std::filesystem;
    const TempFolder folder;
    const TempFolder other;
    other.put("settings", "[options]\ncolor1=1\n");
    fs::permissions(other / "settings", fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink(other / "settings", folder / "VTM.ini");
    ui::DiskFiles files;
    IniSettingsStore store(files, folder / "VTM.ini");
    store.write("options", "color2", "2");
    EXPECT_TRUE(store.save());
    EXPECT_TRUE(fs::is_symlink(folder / "VTM.ini"));
    EXPECT_EQ(other.content("settings"), "[options]\ncolor1=1\ncolor2=2\n");
    EXPECT_EQ(fs::status(other / "settings").permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST(IniSettingsStore, SaysThatItHasNoRoomToPrepareTheFile) {
    const TempFolder folder;
    const std::string old = "[options]\ncolor1=1\n";
    folder.put("VTM.ini", old);
    EXPECT_EQ(0, support::InChild([&] {
                  ::setenv("TMPDIR", (folder / "VTM.ini").c_str(), 1); // NOLINT(concurrency-mt-unsafe)
                  ui::DiskFiles files;
                  IniSettingsStore store(files, folder / "VTM.ini");
                  store.write("options", "color2", "2");
                  const auto saved = store.save();
                  const std::string told = saved ? "" : saved.failure().message;
                  return told.starts_with(
                             "Could not write the settings \"" + ui::PathText(folder / "VTM.ini") +
                             "\".\nCould not make a temporary folder") &&
                                 store.read("options", "color2") == "2"
                             ? 0
                             : 1;
              }));
    EXPECT_EQ(folder.content("VTM.ini"), old);
}

} // namespace
