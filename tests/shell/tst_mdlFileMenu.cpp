// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/mdlFileMenu.h"
#include "support/MemorySettings.h"

#include <gtest/gtest.h>

namespace {

using editing::Page;
using Entries = std::vector<std::string>;

class FileMenu : public testing::Test {
protected:
    support::MemorySettings store;
    shell::RecentMenus menus;

    void save(const std::string& path, Page kind = Page::Name) {
        EXPECT_TRUE(shell::AddRecentIfNew(menus, store, path, kind));
    }

    [[nodiscard]] std::string stored(const std::string& section, const std::string& key) const {
        return store.read(section, key).value_or("(absent)");
    }
};

} // namespace

TEST_F(FileMenu, AnEmptyStoreShowsNoEntries) {
    shell::LoadRecentMenus(menus, store);
    EXPECT_TRUE(menus.of(Page::Name).empty());
    EXPECT_TRUE(menus.of(Page::Animation).empty());
    EXPECT_TRUE(menus.of(Page::Messages).empty());
}

TEST_F(FileMenu, EachKindHasItsOwnSection) {
    save("/a.vtn", Page::Name);
    save("/b.vta", Page::Animation);
    save("/c.vtm", Page::Messages);
    EXPECT_EQ(stored("NameFiles", "RecentFile1"), "/a.vtn");
    EXPECT_EQ(stored("AnimFiles", "RecentFile1"), "/b.vta");
    EXPECT_EQ(stored("MacroFiles", "RecentFile1"), "/c.vtm");
    EXPECT_EQ(menus.of(Page::Name), Entries{"/a.vtn"});
    EXPECT_EQ(menus.of(Page::Animation), Entries{"/b.vta"});
    EXPECT_EQ(menus.of(Page::Messages), Entries{"/c.vtm"});
    EXPECT_EQ(store.sections.size(), 3U);
}

TEST_F(FileMenu, FiveDifferentFilesLeaveTheLastFourNewestFirst) {
    for (const char* path : {"/1.vtn", "/2.vtn", "/3.vtn", "/4.vtn", "/5.vtn"}) {
        save(path);
    }
    const Entries lastFour = {"/5.vtn", "/4.vtn", "/3.vtn", "/2.vtn"};
    EXPECT_EQ(menus.of(Page::Name), lastFour);
    EXPECT_EQ(store.list("NameFiles").size(), 4U);
    EXPECT_EQ(stored("NameFiles", "RecentFile1"), "/5.vtn");
    EXPECT_EQ(stored("NameFiles", "RecentFile4"), "/2.vtn");

    shell::RecentMenus nextStart;
    shell::LoadRecentMenus(nextStart, store);
    EXPECT_EQ(nextStart.of(Page::Name), lastFour);
}

TEST_F(FileMenu, SavingTheSameFileTwiceNeitherDoublesNorMovesIt) {
    save("/1.vtn");
    save("/2.vtn");
    save("/1.vtn");
    EXPECT_EQ(menus.of(Page::Name), (Entries{"/2.vtn", "/1.vtn"}));
    EXPECT_EQ(store.list("NameFiles").size(), 2U);
}

TEST_F(FileMenu, AFileThatFellOffIsNewAgain) {
    for (const char* path : {"/1.vtn", "/2.vtn", "/3.vtn", "/4.vtn", "/5.vtn", "/1.vtn"}) {
        save(path);
    }
    EXPECT_EQ(menus.of(Page::Name), (Entries{"/1.vtn", "/5.vtn", "/4.vtn", "/3.vtn"}));
}

TEST_F(FileMenu, PathsAreComparedToTheLetter) {
    save("/a.vtn");
    EXPECT_TRUE(shell::IsInRecent(menus, "/a.vtn", Page::Name));
    EXPECT_FALSE(shell::IsInRecent(menus, "/A.vtn", Page::Name));
    EXPECT_FALSE(shell::IsInRecent(menus, "/a.vtn ", Page::Name));
    save("/A.vtn");
    EXPECT_EQ(menus.of(Page::Name).size(), 2U);
}

TEST_F(FileMenu, AKindDoesNotSeeTheOthers) {
    save("/a.scr", Page::Name);
    EXPECT_FALSE(shell::IsInRecent(menus, "/a.scr", Page::Animation));
    save("/a.scr", Page::Animation);
    EXPECT_EQ(menus.of(Page::Animation), Entries{"/a.scr"});
}

TEST_F(FileMenu, AmpersandsAndOtherBytesAreKeptAsTheyAre) {
    save("/R&D/a \"b\"\xE9.vtn");
    EXPECT_EQ(menus.of(Page::Name), Entries{"/R&D/a \"b\"\xE9.vtn"});
    save("/R&D/a \"b\"\xE9.vtn");
    EXPECT_EQ(menus.of(Page::Name).size(), 1U);
}

TEST_F(FileMenu, AnEmptyFirstEntryHidesTheLaterOnes) {
    store.sections["NameFiles"] = {{"RecentFile1", ""}, {"RecentFile2", "/b.vtn"}};
    store.sections["AnimFiles"] = {{"RecentFile2", "/b.vta"}};
    shell::LoadRecentMenus(menus, store);
    EXPECT_TRUE(menus.of(Page::Name).empty());
    EXPECT_TRUE(menus.of(Page::Animation).empty());
}

TEST_F(FileMenu, AnEmptyFirstEntryLeavesAMenuThatIsShownAsItIs) {
    save("/a.vtn");
    store.write("NameFiles", "RecentFile1", "");
    shell::LoadRecentMenus(menus, store);
    EXPECT_EQ(menus.of(Page::Name), Entries{"/a.vtn"});
}

TEST_F(FileMenu, TheMenuShowsAtMostFourEntries) {
    for (const char* number : {"1", "2", "3", "4", "5", "6"}) {
        store.write("NameFiles", std::string("RecentFile") + number, std::string("/") + number + ".vtn");
    }
    shell::LoadRecentMenus(menus, store);
    EXPECT_EQ(menus.of(Page::Name), (Entries{"/1.vtn", "/2.vtn", "/3.vtn", "/4.vtn"}));
}

TEST_F(FileMenu, AddingDoesNotFillAHoleInTheList) {
    store.sections["NameFiles"] = {{"RecentFile1", "/1"}, {"RecentFile3", "/3"}};
    shell::AddRecent(store, "/new", Page::Name);
    EXPECT_EQ(stored("NameFiles", "RecentFile1"), "/new");
    EXPECT_EQ(stored("NameFiles", "RecentFile2"), "/1");
    EXPECT_EQ(stored("NameFiles", "RecentFile3"), "/3");
    EXPECT_EQ(stored("NameFiles", "RecentFile4"), "/3");
}

TEST_F(FileMenu, AFileThatAnotherInstanceHasSavedMeanwhileStaysInTheList) {
    save("/1.vtn");
    store.onRefresh = [this] {
        store.sections["NameFiles"] = {{"RecentFile1", "/other.vtn"}, {"RecentFile2", "/1.vtn"}};
    };
    save("/2.vtn");
    EXPECT_EQ(menus.of(Page::Name), (Entries{"/2.vtn", "/other.vtn", "/1.vtn"}));
}

TEST_F(FileMenu, AFileThatAnotherInstanceHasListedIsNotDoubled) {
    save("/1.vtn");
    store.onRefresh = [this] {
        store.sections["NameFiles"] = {{"RecentFile1", "/other.vtn"}, {"RecentFile2", "/1.vtn"}};
    };
    save("/other.vtn");
    EXPECT_EQ(menus.of(Page::Name), (Entries{"/other.vtn", "/1.vtn"}));
    EXPECT_EQ(store.list("NameFiles").size(), 2U);
}

TEST_F(FileMenu, ANewEntryLastsAtOnceAndAnOldOneWritesNothing) {
    save("/a.vtn");
    EXPECT_EQ(store.saves, 1);
    save("/a.vtn");
    EXPECT_EQ(store.saves, 1);
    EXPECT_EQ(store.writes.size(), 1U);
}

TEST_F(FileMenu, AStoreThatCannotBeWrittenIsReported) {
    store.saveFailure = "Could not write \"/x\": No space left on device.";
    const auto done = shell::AddRecentIfNew(menus, store, "/a.vtn", Page::Name);
    ASSERT_FALSE(done);
    EXPECT_EQ(done.failure().message, "Could not write \"/x\": No space left on device.");
    EXPECT_EQ(menus.of(Page::Name), Entries{"/a.vtn"});
}
