// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/ConfigWorld.h"
#include "support/InChild.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using support::After;
using support::Before;
using support::FailingFiles;
using support::InChild;
using Step = FailingFiles::Step;

namespace {

class PosixRewrite : public support::ConfigWorld {};

} // namespace

TEST_F(PosixRewrite, AgainstTheFileSizeLimitOfTheSystemLeavesTheOldBytesWhole) {
    const auto limited = [&](std::size_t limit) {
        reset();
        return InChild([&] {
            ui::SurviveFileSizeLimit();
            const rlimit size{static_cast<rlim_t>(limit), static_cast<rlim_t>(limit)};
            if (::setrlimit(RLIMIT_FSIZE, &size) != 0) {
                return 2;
            }
            const auto done = scripts::RewriteConfig(disk, directory, path, Before, After);
            return !done && done.failure().message.find("File too large") != std::string::npos ? 0 : 1;
        });
    };
    ASSERT_LT(Before.size(), After.size());
    for (const bool isWrittenOver : {false, true}) {
        if (isWrittenOver) {
            giveTwoNames();
        }
        for (const std::size_t limit : {Before.size() - 1, Before.size(), After.size() - 1}) {
            EXPECT_EQ(0, limited(limit));
            EXPECT_EQ(Before, content());
            EXPECT_FALSE(directory.files.has("tempfile.cfg"));
            EXPECT_TRUE(isTidy());
        }
    }
}

TEST_F(PosixRewrite, WritesThroughLinksAndKeepsThePermissions) {
    std::filesystem::create_hard_link(path, game / "hard.cfg");
    std::filesystem::create_symlink("config.cfg", game / "soft.cfg");
    ASSERT_EQ(0, ::chmod(path.c_str(), 0640));

    struct stat old {};

    ASSERT_EQ(0, ::stat(path.c_str(), &old));
    path = game / "soft.cfg";
    ASSERT_TRUE(rewrite());
    EXPECT_EQ(After, game.content("hard.cfg"));
    EXPECT_TRUE(std::filesystem::is_symlink(game / "soft.cfg"));

    struct stat now {};

    ASSERT_EQ(0, ::stat((game / "config.cfg").c_str(), &now));
    EXPECT_EQ(old.st_ino, now.st_ino);
    EXPECT_EQ(old.st_mode, now.st_mode);
    EXPECT_EQ(old.st_uid, now.st_uid);
    EXPECT_EQ(2U, now.st_nlink);
}

TEST_F(PosixRewrite, CopiesForNobodyElseToRead) {
    // A configuration file may hold the password of a server.
    ASSERT_EQ(0, ::chmod(path.c_str(), 0600));
    giveTwoNames();
    files.failFrom(Step::Write, 2);
    ASSERT_FALSE(rewrite());

    struct stat kept {};

    ASSERT_EQ(0, ::stat(copy.c_str(), &kept));
    EXPECT_EQ(0600U, kept.st_mode & 0777U);
}

TEST_F(PosixRewrite, OfAFileThatMayNotBeWrittenLeavesNothingBehind) {
    ASSERT_EQ(0, ::chmod(path.c_str(), 0444));
    const auto run = [&] {
        const auto done = scripts::RewriteConfig(disk, directory, path, Before, After);
        const bool told =
            !done && done.failure().message ==
                         untouched("Could not open \"" + ui::PathText(path) + "\": Permission denied.");
        return told ? 0 : 1;
    };
    // The superuser may write everything, so somebody else tries.
    ASSERT_EQ(0, ::chmod(directory.folder().c_str(), 0777));
    ASSERT_EQ(0, ::chmod(game.path().c_str(), 0777));
    EXPECT_EQ(0, InChild([&] { return ::geteuid() == 0 && ::setuid(65534) != 0 ? 2 : run(); }));
    EXPECT_EQ(Before, content());
    EXPECT_FALSE(directory.files.has("tempfile.cfg"));
}

TEST_F(PosixRewrite, WithNoPlaceForTheCopyLeavesTheFileUntouched) {
    ASSERT_EQ(0, ::chmod(path.c_str(), 0666));
    ASSERT_EQ(0, ::chmod(directory.folder().c_str(), 0555));
    ASSERT_EQ(0, ::chmod(game.path().c_str(), 0777));
    EXPECT_EQ(0, InChild([&] {
                  if (::geteuid() == 0 && ::setuid(65534) != 0) {
                      return 2;
                  }
                  const auto done = scripts::RewriteConfig(disk, directory, path, Before, After);
                  const bool told =
                      !done &&
                      done.failure().message ==
                          untouched("Could not create \"" + ui::PathText(copy) + "\": Permission denied.");
                  return told ? 0 : 1;
              }));
    EXPECT_EQ(Before, content());
    ASSERT_EQ(0, ::chmod(directory.folder().c_str(), 0755));
}

TEST_F(PosixRewrite, StopsWhenALinkHasTheNameOfTheCopy) {
    std::filesystem::create_symlink("nowhere", copy);
    EXPECT_FALSE(rewrite());
    EXPECT_EQ(Before, content());
    EXPECT_FALSE(directory.files.has("nowhere"));
}

TEST_F(PosixRewrite, RefusesALinkToTheCopy) {
    directory.files.put("tempfile.cfg", Before);
    std::filesystem::create_symlink(copy, game / "soft.cfg");
    const auto done = scripts::RewriteConfig(files, directory, game / "soft.cfg", Before, After);
    ASSERT_FALSE(done);
    EXPECT_EQ(
        "Could not alter \"" + ui::PathText(game / "soft.cfg") +
            "\": VTM needs a file of this name for itself. Please copy it to another name first.",
        done.failure().message);
    EXPECT_EQ(Before, directory.files.content("tempfile.cfg"));
    EXPECT_TRUE(files.steps().empty());
}
