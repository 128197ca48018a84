// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/TempProgramDirectory.h"
#include "ui/ByteSource.h"
#include "ui/FileWriter.h"
#include "ui/windows/WindowsFile.h"

#include <gtest/gtest.h>
#include <optional>
#include <thread>
#include <windows.h>

namespace {

using support::TempFolder;
using ui::DiskFiles;
using ui::Path;
using ui::native::Handle;

constexpr auto IsOpenElsewhere = "another program has opened it";

std::string Busy(const char* what, const Path& path) {
    return std::string(what) + " \"" + ui::PathText(path) + "\": " + IsOpenElsewhere + ".";
}

/// Another program's handle on a file.
Handle HoldOpen(const Path& path, DWORD access, DWORD sharing) {
    Handle handle(
        ::CreateFileW(path.c_str(), access, sharing, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    EXPECT_TRUE(handle) << path;
    return handle;
}

TEST(BusyFiles, AreLeftAloneThatAnotherProgramKeepsForItself) {
    const TempFolder folder;
    const Path path = folder.put("a", "one");
    DiskFiles files;
    {
        const Handle other = HoldOpen(path, GENERIC_READ, 0);
        EXPECT_EQ(files.read(path).failure().message, Busy("Could not open", path));
        EXPECT_EQ(ui::OpenSource(path).failure().message, IsOpenElsewhere);
        EXPECT_EQ(ui::WriteFile(files, path, "two").failure().message, Busy("Could not open", path));
        EXPECT_EQ(
            files.open(path, ui::Files::OpenMode::InPlace).failure().message, Busy("Could not open", path));
        EXPECT_EQ(files.remove(path).failure().message, Busy("Could not delete", path));
        EXPECT_TRUE(files.exists(path));
        EXPECT_TRUE(files.sameFile(path, path));
    }
    EXPECT_EQ(folder.content("a"), "one");
    EXPECT_EQ(files.list(folder.path()), std::vector<std::string>{"a"});
    EXPECT_TRUE(ui::WriteFile(files, path, "two"));
    EXPECT_EQ(folder.content("a"), "two");
}

TEST(BusyFiles, AreReplacedThatAnotherProgramLooksIntoForAMoment) {
    for (const DWORD share : {DWORD{0}, DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}}) {
        const TempFolder folder;
        const Path from = folder.put("new", "two");
        const Path path = folder.put("a", "one");
        DiskFiles files;
        std::optional<Handle> other(HoldOpen(path, GENERIC_READ, share));
        std::thread scanner([&other] {
            ::Sleep(60);
            other.reset();
        });
        const ui::Status renamed = files.rename(from, path);
        scanner.join();
        EXPECT_TRUE(renamed) << renamed.failure().message;
        EXPECT_EQ(folder.content("a"), "two");
    }
}

TEST(BusyFiles, AreWrittenOverThatAnotherProgramReads) {
    const TempFolder folder;
    const Path path = folder.put("a", "one, two");
    DiskFiles files;
    const Handle reader = HoldOpen(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
    const auto written = ui::WriteFile(files, path, "three");
    EXPECT_TRUE(written) << written.failure().message;
    EXPECT_EQ(files.read(path).value(), "three");
    EXPECT_EQ(files.list(folder.path()), std::vector<std::string>{"a"});
}

} // namespace
