// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/FolderHistory.h"

#include "support/MemorySettings.h"

#include <gtest/gtest.h>

using ui::FolderHistory;
using Paths = std::vector<ui::Path>;

TEST(FolderHistory, HasTheLastFolderFirst) {
    FolderHistory history;
    EXPECT_EQ(history.last(), ui::Path());
    history.add("/a");
    history.add("/b");
    EXPECT_EQ(history.folders(), Paths({"/b", "/a"}));
    EXPECT_EQ(history.last(), "/b");
}

TEST(FolderHistory, HasEachFolderOnceAndNoMoreThanFive) {
    FolderHistory history;
    for (const char* folder : {"/a", "/b", "/a", "/c", "/d", "/e", "/f"}) {
        history.add(folder);
    }
    EXPECT_EQ(history.folders(), Paths({"/f", "/e", "/d", "/c", "/a"}));
}

TEST(FolderHistory, IsKeptForTheNextRun) {
    support::MemorySettings store;
    FolderHistory history(store);
    EXPECT_EQ(history.folders(), Paths());
    history.add("/a");
    const ui::Path odd = ui::PathFromText("/g\xFC");
    history.add(odd);
    FolderHistory next(store);
    EXPECT_EQ(next.folders(), Paths({odd, "/a"}));
    EXPECT_EQ(next.last(), ui::Path()) << "a run starts where it is started";
    next.add("/a");
    EXPECT_EQ(FolderHistory(store).folders(), Paths({"/a", odd}));
}

TEST(FolderHistory, PassesOverWhatIsNotStored) {
    support::MemorySettings store;
    store.sections["folders"] = {{"Folder1", ""}, {"Folder3", "/c"}, {"Folder9", "/z"}};
    EXPECT_EQ(FolderHistory(store).folders(), Paths({"/c"}));
    EXPECT_TRUE(store.writes.empty());
}
