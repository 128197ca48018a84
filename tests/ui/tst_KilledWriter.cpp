// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/InChild.h"
#include "support/TempProgramDirectory.h"
#include "ui/FileWriter.h"

#include <gtest/gtest.h>

namespace {

/// The system ends a process in the middle of what it does.
class KilledWriter : public testing::Test {
protected:
    support::TempFolder folder;
    ui::Path file = folder / "config.cfg";
    ui::DiskFiles files;
};

TEST_F(KilledWriter, LeavesTheOldContentAndNoLock) {
    folder.put("config.cfg", "old\r\n");
    const int end = support::InChild([&]() -> int {
        const auto lock = files.lockFile(file);
        const auto folderLock = files.lockFolder(file.parent_path());
        auto made = files.createBeside(file);
        (void)made.value().file->write("ne");
        support::EndByForce();
    });
    EXPECT_EQ(end, support::EndedByForce);
    EXPECT_EQ(files.read(file).value(), "old\r\n");
    EXPECT_TRUE(files.tryLockFile(file)) << "the lock has gone with its holder";
    EXPECT_TRUE(files.lockFolder(file.parent_path()));
    EXPECT_TRUE(ui::WriteFile(files, file, "new\r\n"));
    EXPECT_EQ(folder.content("config.cfg"), "new\r\n");
}

TEST_F(KilledWriter, LeavesACopyWhereAFileIsWrittenOver) {
    folder.put("config.cfg", "the old content\r\n");
    std::filesystem::create_hard_link(file, folder / "other.cfg");
    const int end = support::InChild([&]() -> int {
        auto change = ui::FileChange::Prepare(files, file, "new");
        auto opened = files.open(file, ui::Files::OpenMode::InPlace);
        (void)opened.value()->write("ne");
        support::EndByForce();
    });
    EXPECT_EQ(end, support::EndedByForce);
    EXPECT_EQ(folder.content("other.cfg"), "nee old content\r\n");
    int copies = 0;
    for (const std::string& name : files.list(folder.path())) {
        if (name.starts_with("vtm-copy-")) {
            EXPECT_EQ(folder.content(name), "the old content\r\n");
            ++copies;
        }
    }
    EXPECT_EQ(copies, 1);
}

} // namespace
