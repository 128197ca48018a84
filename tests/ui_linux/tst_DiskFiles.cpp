// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/InChild.h"
#include "support/TempProgramDirectory.h"
#include "ui/linux/PosixFile.h"

#include <chrono>
#include <csignal>
#include <functional>
#include <future>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

using support::TempFolder;
using ui::DiskFiles;
using Mode = ui::Files::OpenMode;

std::string AllBytes() {
    std::string bytes;
    for (int i = 0; i < 256; ++i) {
        bytes.push_back(static_cast<char>(i));
    }
    return bytes;
}

TEST(DiskFiles, ReadsEveryByteAsItIs) {
    const TempFolder folder;
    const DiskFiles files;
    folder.put("a", AllBytes() + "\r\n\x1A");
    EXPECT_EQ(files.read(folder / "a").value(), AllBytes() + "\r\n\x1A");
}

TEST(DiskFiles, ReadsAnEmptyFile) {
    const TempFolder folder;
    folder.put("a", "");
    EXPECT_EQ(DiskFiles().read(folder / "a").value(), "");
}

TEST(DiskFiles, NamesTheMissingFileAndTheCause) {
    const TempFolder folder;
    const auto read = DiskFiles().read(folder / "gone.vtn");
    ASSERT_FALSE(read);
    EXPECT_EQ(
        read.failure().message,
        "Could not open \"" + (folder / "gone.vtn").native() + "\": No such file or directory.");
}

TEST(DiskFiles, RefusesAFolder) {
    const TempFolder folder;
    const auto read = DiskFiles().read(folder.path());
    ASSERT_FALSE(read);
    EXPECT_EQ(read.failure().message, "Could not read \"" + folder.path().native() + "\": Is a directory.");
    EXPECT_FALSE(DiskFiles().exists(folder.path()));
}

TEST(DiskFiles, DoesNotWaitForANamedPipe) {
    const TempFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    const auto read = DiskFiles().read(folder / "pipe");
    ASSERT_FALSE(read);
    EXPECT_EQ(
        read.failure().message, "Could not read \"" + (folder / "pipe").native() + "\": it is not a file.");
    EXPECT_FALSE(DiskFiles().open(folder / "pipe", Mode::Device));
    EXPECT_FALSE(DiskFiles().exists(folder / "pipe"));
}

TEST(DiskFiles, RefusesADevice) {
    EXPECT_FALSE(DiskFiles().read("/dev/zero"));
}

TEST(DiskFiles, ReadsUpToTheGreatestSize) {
    const TempFolder folder;
    folder.put("a", "");
    std::filesystem::resize_file(folder / "a", ui::Files::MaxFileSize);
    EXPECT_EQ(DiskFiles().read(folder / "a").value().size(), ui::Files::MaxFileSize);
    std::filesystem::resize_file(folder / "a", ui::Files::MaxFileSize + 1);
    const auto read = DiskFiles().read(folder / "a");
    ASSERT_FALSE(read);
    EXPECT_EQ(read.failure().message, "Could not read \"" + (folder / "a").native() + "\": File too large.");
}

TEST(DiskFiles, RefusesAHugeFileWithoutLoadingIt) {
    const TempFolder folder;
    folder.put("a", "");
    // A sparse file: were it loaded, there would not be the memory for it.
    std::filesystem::resize_file(folder / "a", std::uintmax_t{1} << 40U);
    EXPECT_FALSE(DiskFiles().read(folder / "a"));
}

TEST(DiskFiles, ReportsWhatMayNotBeRead) {
    const TempFolder folder;
    folder.put("a", "secret");
    std::filesystem::permissions(folder / "a", std::filesystem::perms::none);
    // The superuser may read everything, so it becomes somebody else meanwhile.
    const bool isSuperuser = ::geteuid() == 0;
    if (isSuperuser) {
        std::filesystem::permissions(folder.path(), std::filesystem::perms{0755});
        ASSERT_EQ(::seteuid(65534), 0);
    }
    const auto read = DiskFiles().read(folder / "a");
    if (isSuperuser) {
        ASSERT_EQ(::seteuid(0), 0);
    }
    ASSERT_FALSE(read);
    EXPECT_EQ(
        read.failure().message, "Could not open \"" + (folder / "a").native() + "\": Permission denied.");
}

/// Makes a file by open() that holds `bytes`.
ui::Status Make(DiskFiles& files, const ui::Path& path, Mode mode, std::string_view bytes) {
    auto file = files.open(path, mode);
    if (!file) {
        return file.failure();
    }
    if (auto written = file.value()->write(bytes); !written) {
        return written;
    }
    return file.value()->close();
}

TEST(DiskFiles, CreatesOnlyWhatIsNotThere) {
    const TempFolder folder;
    DiskFiles files;
    EXPECT_TRUE(Make(files, folder / "a", Mode::CreateNew, "one"));
    const auto again = Make(files, folder / "a", Mode::CreateNew, "two");
    ASSERT_FALSE(again);
    EXPECT_EQ(again.failure().message, "Could not create \"" + (folder / "a").native() + "\": File exists.");
    EXPECT_EQ(folder.content("a"), "one");
    std::filesystem::create_symlink(folder / "nowhere", folder / "dangling");
    EXPECT_FALSE(Make(files, folder / "dangling", Mode::CreateNew, "two"));
    EXPECT_FALSE(folder.has("nowhere"));
}

TEST(DiskFiles, CreatesWhatNobodyElseMayRead) {
    const TempFolder folder;
    DiskFiles files;
    EXPECT_TRUE(Make(files, folder / "a", Mode::CreatePrivate, "one"));
    EXPECT_EQ(
        std::filesystem::status(folder / "a").permissions(),
        std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    const auto again = Make(files, folder / "a", Mode::CreatePrivate, "two");
    ASSERT_FALSE(again);
    EXPECT_EQ(again.failure().message, "Could not create \"" + (folder / "a").native() + "\": File exists.");
    EXPECT_EQ(folder.content("a"), "one");
}

TEST(DiskFiles, WritesOverAFileWithoutLosingItFirst) {
    const TempFolder folder;
    DiskFiles files;
    folder.put("a", "0123456789");
    auto opened = files.open(folder / "a", Mode::InPlace);
    ASSERT_TRUE(opened);
    ui::OutputFile& file = *opened.value();
    EXPECT_EQ(folder.content("a"), "0123456789");
    EXPECT_TRUE(file.seek(8));
    EXPECT_TRUE(file.write("abc"));
    EXPECT_EQ(folder.content("a"), "01234567abc");
    EXPECT_TRUE(file.reserve(13));
    EXPECT_EQ(folder.content("a"), "01234567abc" + std::string(2, '\0'));
    EXPECT_TRUE(file.reserve(3)) << "nothing is cut off";
    EXPECT_TRUE(file.resize(4));
    EXPECT_TRUE(file.check("0123"));
    EXPECT_FALSE(file.check("012"));
    EXPECT_FALSE(file.check("01234"));
    const auto other = file.check("012x");
    ASSERT_FALSE(other);
    EXPECT_EQ(
        other.failure().message,
        "Could not write \"" + (folder / "a").native() + "\": it holds something else.");
    EXPECT_TRUE(file.close());
    EXPECT_EQ(folder.content("a"), "0123");
}

TEST(DiskFiles, ChecksEveryByteOfALargeFile) {
    const TempFolder folder;
    DiskFiles files;
    std::string bytes;
    while (bytes.size() < 200000) {
        bytes += AllBytes();
    }
    folder.put("a", bytes);
    const auto file = files.open(folder / "a", Mode::InPlace);
    ASSERT_TRUE(file);
    EXPECT_TRUE(file.value()->check(bytes));
    for (const std::size_t place : {std::size_t{0}, std::size_t{65536}, bytes.size() - 1}) {
        std::string other = bytes;
        other[place] = static_cast<char>(other[place] ^ 1);
        EXPECT_FALSE(file.value()->check(other)) << place;
    }
}

TEST(DiskFiles, WritesOverNoLink) {
    const TempFolder folder;
    DiskFiles files;
    folder.put("a", "one");
    std::filesystem::create_symlink(folder / "a", folder / "link");
    EXPECT_FALSE(files.open(folder / "link", Mode::InPlace));
    EXPECT_FALSE(files.open(folder / "gone", Mode::InPlace));
    EXPECT_FALSE(folder.has("gone"));
}

TEST(DiskFiles, MakesAFileBesideAnotherWithItsPermissionsAndItsOwner) {
    const TempFolder folder;
    DiskFiles files;
    folder.put("a", "one");
    ASSERT_EQ(::chmod((folder / "a").c_str(), 0640), 0);
    const bool isSuperuser = ::geteuid() == 0;
    if (isSuperuser) {
        ASSERT_EQ(::chown((folder / "a").c_str(), 1234, 5678), 0);
    }
    auto made = files.createBeside(folder / "a");
    ASSERT_TRUE(made);
    const ui::Path path = made.value().path;
    EXPECT_EQ(path.parent_path(), folder.path());
    EXPECT_TRUE(path.filename().native().starts_with(".vtm-")) << path;

    struct stat information {};

    ASSERT_EQ(::stat(path.c_str(), &information), 0);
    EXPECT_EQ(information.st_mode & 07777U, 0640U);
    EXPECT_EQ(information.st_uid, isSuperuser ? 1234U : ::geteuid());
    EXPECT_EQ(information.st_size, 0);
    EXPECT_EQ(folder.content("a"), "one");
    EXPECT_NE(files.createBeside(folder / "a").value().path, path);
}

TEST(DiskFiles, MakesAFileBesideNothingAsTheUserMakesFiles) {
    const TempFolder folder;
    DiskFiles files;
    const mode_t old = ::umask(0027);
    const auto made = files.createBeside(folder / "a");
    ::umask(old);
    ASSERT_TRUE(made);

    struct stat information {};

    ASSERT_EQ(::stat(made.value().path.c_str(), &information), 0);
    EXPECT_EQ(information.st_mode & 07777U, 0640U);
    EXPECT_FALSE(folder.has("a"));
    const auto nowhere = files.createBeside(folder / "gone/a");
    ASSERT_FALSE(nowhere);
    EXPECT_EQ(
        nowhere.failure().message,
        "Could not open \"" + (folder / "gone/a").native() + "\": No such file or directory.");
}

TEST(DiskFiles, SaysWhatLiesWhereAFileIsToBeWritten) {
    using Kind = ui::FileFacts::Kind;
    const TempFolder folder;
    const DiskFiles files;
    folder.put("a", "one");
    folder.put("file", "");
    std::filesystem::create_symlink("a", folder / "link");
    std::filesystem::create_symlink("link", folder / "links");
    std::filesystem::create_symlink(folder / "new", folder / "dangling");
    std::filesystem::create_symlink("loop", folder / "loop");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    const auto facts = [&](const char* name, ui::Links links = ui::Links::Follow) {
        return files.inspect(folder / name, links).value();
    };
    for (const char* name : {"a", "link", "links"}) {
        EXPECT_EQ(facts(name).kind, Kind::File) << name;
        EXPECT_EQ(facts(name).target, folder / "a") << name;
        EXPECT_TRUE(facts(name).standsAlone) << name;
    }
    EXPECT_EQ(facts("link", ui::Links::Replace).target, folder / "link");
    EXPECT_EQ(facts("link", ui::Links::Replace).kind, Kind::File);
    EXPECT_EQ(facts("new").kind, Kind::Absent);
    EXPECT_EQ(facts("dangling").kind, Kind::Absent);
    EXPECT_EQ(facts("dangling").target, folder / "new");
    EXPECT_EQ(facts("dangling", ui::Links::Replace).kind, Kind::File);
    EXPECT_EQ(facts("pipe").kind, Kind::Device);
    EXPECT_EQ(files.inspect("/dev/null", ui::Links::Follow).value().kind, Kind::Device);
    EXPECT_FALSE(files.inspect(folder / "pipe", ui::Links::Replace));
    const auto loop = files.inspect(folder / "loop", ui::Links::Follow);
    ASSERT_FALSE(loop);
    EXPECT_EQ(
        loop.failure().message,
        "Could not open \"" + (folder / "loop").native() + "\": Too many levels of symbolic links.");
    const auto directory = files.inspect(folder.path(), ui::Links::Follow);
    ASSERT_FALSE(directory);
    EXPECT_EQ(
        directory.failure().message, "Could not open \"" + folder.path().native() + "\": Is a directory.");
}

TEST(DiskFiles, KnowsAFileThatCannotSimplyBeReplaced) {
    const TempFolder folder;
    const DiskFiles files;
    folder.put("a", "one");
    folder.put("noted", "one");
    EXPECT_TRUE(files.inspect(folder / "a", ui::Links::Follow).value().standsAlone);
    std::filesystem::create_hard_link(folder / "a", folder / "b");
    EXPECT_FALSE(files.inspect(folder / "a", ui::Links::Follow).value().standsAlone);
    if (::setxattr((folder / "noted").c_str(), "user.note", "x", 1, 0) == 0) {
        EXPECT_FALSE(files.inspect(folder / "noted", ui::Links::Follow).value().standsAlone);
    }
}

TEST(DiskFiles, FollowsNoLinkThatSomebodyElseHasPutThere) {
    const TempFolder folder;
    folder.put("private", "mine");
    std::filesystem::create_symlink("private", folder / "link");
    ASSERT_EQ(::chmod(folder.path().c_str(), 01777), 0);
    EXPECT_TRUE(DiskFiles().inspect(folder / "link", ui::Links::Follow));
    // Only the superuser can make another user's link; anybody can be the user who meets it.
    if (::geteuid() != 0) {
        return;
    }
    ASSERT_EQ(::lchown((folder / "link").c_str(), 1234, 1234), 0);
    const auto facts = DiskFiles().inspect(folder / "link", ui::Links::Follow);
    ASSERT_FALSE(facts);
    // A system that protects its users says the first.
    const std::string start = "Could not open \"" + (folder / "link").native() + "\": ";
    EXPECT_TRUE(
        facts.failure().message == start + "Permission denied." ||
        facts.failure().message == start + "it is a link of another user.")
        << facts.failure().message;
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    EXPECT_TRUE(DiskFiles().inspect(folder / "link", ui::Links::Follow));
}

TEST(DiskFiles, RemovesAndRenames) {
    const TempFolder folder;
    DiskFiles files;
    folder.put("a", "one");
    folder.put("b", "two");
    EXPECT_TRUE(files.rename(folder / "a", folder / "b"));
    EXPECT_FALSE(folder.has("a"));
    EXPECT_EQ(folder.content("b"), "one");
    EXPECT_TRUE(files.remove(folder / "b"));
    const auto again = files.remove(folder / "b");
    ASSERT_FALSE(again);
    EXPECT_EQ(
        again.failure().message,
        "Could not delete \"" + (folder / "b").native() + "\": No such file or directory.");
    EXPECT_FALSE(files.rename(folder / "a", folder / "b"));
}

TEST(DiskFiles, RenamesToAFreeNameOnly) {
    const TempFolder folder;
    DiskFiles files;
    folder.put("a", "one");
    folder.put("b", "two");
    const auto taken = files.renameNew(folder / "a", folder / "b");
    ASSERT_FALSE(taken);
    EXPECT_EQ(taken.failure().message, "Could not create \"" + (folder / "b").native() + "\": File exists.");
    EXPECT_EQ(folder.content("a"), "one");
    EXPECT_EQ(folder.content("b"), "two");
    EXPECT_TRUE(files.renameNew(folder / "a", folder / "c"));
    EXPECT_FALSE(folder.has("a"));
    EXPECT_EQ(folder.content("c"), "one");
}

TEST(DiskFiles, MakesFoldersAndFlushesThem) {
    const TempFolder folder;
    DiskFiles files;
    EXPECT_TRUE(files.makeFolder(folder / "a/b"));
    EXPECT_TRUE(files.makeFolder(folder / "a/b"));
    EXPECT_TRUE(std::filesystem::is_directory(folder / "a/b"));
    EXPECT_TRUE(files.flushFolder(folder / "a/b"));
    EXPECT_FALSE(files.flushFolder(folder / "gone"));
    folder.put("file", "x");
    const auto made = files.makeFolder(folder / "file/b");
    ASSERT_FALSE(made);
    EXPECT_EQ(
        made.failure().message,
        "Could not create \"" + (folder / "file/b").native() + "\": Not a directory.");
}

TEST(PutLink, PutsALinkInPlaceOfWhateverHasItsName) {
    const TempFolder folder;
    folder.put("old", "x");
    for (const char* target : {"first", "second"}) {
        EXPECT_TRUE(ui::native::PutLink(folder / "old", target));
        EXPECT_EQ(std::filesystem::read_symlink(folder / "old"), target);
    }
    EXPECT_FALSE(ui::native::PutLink(folder / "gone/link", "first"));
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

/// Runs something as a user who is not the superuser.
int AsSomebody(const std::function<int()>& run) {
    return support::InChild([&] { return ::geteuid() == 0 && ::setuid(65534) != 0 ? 2 : run(); });
}

TEST(DiskFiles, CountsWhatCannotBeLookedAtAsThere) {
    const TempFolder folder;
    ASSERT_EQ(::chmod(folder.path().c_str(), 0755), 0);
    folder.put("closed/a", "one");
    folder.put("b", "two");
    std::filesystem::create_symlink("loop", folder / "loop");
    ASSERT_EQ(::chmod((folder / "closed").c_str(), 0), 0);
    EXPECT_EQ(0, AsSomebody([&] {
                  const DiskFiles files;
                  const bool told = files.exists(folder / "closed/a") && files.exists(folder / "loop") &&
                                    !files.inspect(folder / "closed/a", ui::Links::Follow) &&
                                    files.sameFile(folder / "closed/a", folder / "b");
                  return told ? 0 : 1;
              }));
    EXPECT_FALSE(DiskFiles().exists(folder / "b/c")) << "a file holds nothing";
    ASSERT_EQ(::chmod((folder / "closed").c_str(), 0755), 0);
}

TEST(DiskFiles, ReplacesNothingThatMayNotBeWritten) {
    const TempFolder folder;
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    folder.put("a", "one");
    ASSERT_EQ(::chmod((folder / "a").c_str(), 0444), 0);
    EXPECT_EQ(0, AsSomebody([&] {
                  const auto facts = DiskFiles().inspect(folder / "a", ui::Links::Follow);
                  return !facts && facts.failure().message == "Could not open \"" + (folder / "a").native() +
                                                                  "\": Permission denied."
                             ? 0
                             : 1;
              }));
}

TEST(DiskFiles, ExistsFollowsLinks) {
    const TempFolder folder;
    folder.put("a", "one");
    std::filesystem::create_symlink(folder / "a", folder / "link");
    std::filesystem::create_symlink(folder / "nowhere", folder / "dangling");
    EXPECT_TRUE(DiskFiles().exists(folder / "link"));
    EXPECT_FALSE(DiskFiles().exists(folder / "dangling"));
    EXPECT_FALSE(DiskFiles().exists(folder / "b"));
}

TEST(PathText, KeepsForeignBytes) {
    EXPECT_EQ(ui::PathText("/tmp/\xFF.vtn"), "/tmp/\xFF.vtn");
}

TEST(DiskFiles, KnowsAFileByAllItsNames) {
    const TempFolder folder;
    const DiskFiles files;
    folder.put("a", "x");
    folder.put("b", "x");
    std::filesystem::create_symlink(folder / "a", folder / "soft");
    std::filesystem::create_hard_link(folder / "a", folder / "hard");
    EXPECT_TRUE(files.sameFile(folder / "a", folder / "a"));
    EXPECT_TRUE(files.sameFile(folder / "a", folder / "." / "soft"));
    EXPECT_TRUE(files.sameFile(folder / "hard", folder / "soft"));
    EXPECT_TRUE(files.sameFile(folder.path(), folder / "."));
    EXPECT_FALSE(files.sameFile(folder / "a", folder / "b"));
    EXPECT_FALSE(files.sameFile(folder / "a", folder / "gone"));
    EXPECT_FALSE(files.sameFile(folder / "gone", folder / "gone"));
}

TEST(DiskFiles, LocksAFolderForOneAtATime) {
    const TempFolder folder;
    const TempFolder other;
    DiskFiles files;
    auto lock = files.lockFolder(folder.path());
    ASSERT_TRUE(lock);
    EXPECT_TRUE(files.lockFolder(other.path()));
    const auto second = files.lockFolder(folder / ".");
    ASSERT_FALSE(second);
    EXPECT_EQ(
        second.failure().message,
        "Could not lock \"" + (folder / ".").native() + "\": another program is writing in it.");
    lock = ui::Failure{"released"};
    EXPECT_TRUE(files.lockFolder(folder.path()));
}

TEST(DiskFiles, CannotLockAFolderThatIsNotThere) {
    const TempFolder folder;
    const auto lock = DiskFiles().lockFolder(folder / "gone");
    ASSERT_FALSE(lock);
    EXPECT_EQ(
        lock.failure().message,
        "Could not lock \"" + (folder / "gone").native() + "\": No such file or directory.");
}

TEST(DiskFiles, LocksAFileByAllItsNames) {
    const TempFolder folder;
    DiskFiles files;
    folder.put("a", "x");
    folder.put("b", "x");
    std::filesystem::create_symlink("a", folder / "soft");
    std::filesystem::create_hard_link(folder / "a", folder / "hard");
    auto lock = files.lockFile(folder / "a");
    ASSERT_TRUE(lock);
    EXPECT_TRUE(files.lockFile(folder / "b"));
    auto hard = std::async(std::launch::async, [&] { return DiskFiles().lockFile(folder / "hard").ok(); });
    const auto soft = files.lockFile(folder / "soft");
    ASSERT_FALSE(soft);
    EXPECT_EQ(
        soft.failure().message,
        "Could not lock \"" + (folder / "soft").native() + "\": another program is writing it.");
    EXPECT_FALSE(hard.get());
    lock = ui::Failure{"released"};
    EXPECT_TRUE(files.lockFile(folder / "soft"));
    EXPECT_FALSE(files.lockFile(folder / "gone"));
    EXPECT_FALSE(folder.has("gone"));
}

TEST(DiskFiles, LocksAFileWithoutWaitingForAnother) {
    const TempFolder folder;
    DiskFiles files;
    folder.put("a", "x");
    auto lock = files.tryLockFile(folder / "a");
    ASSERT_TRUE(lock);
    EXPECT_FALSE(files.tryLockFile(folder / "a"));
    lock = ui::Failure{"released"};
    EXPECT_TRUE(files.tryLockFile(folder / "a"));
}

TEST(DiskFiles, LocksTheFileThatHasTheNameInTheEnd) {
    const TempFolder folder;
    DiskFiles files;
    folder.put("a", "x");
    auto lock = files.lockFile(folder / "a");
    ASSERT_TRUE(lock);
    auto waiting = std::async(std::launch::async, [&] {
        DiskFiles other;
        const auto second = other.lockFile(folder / "a");
        // Whoever locks what the name leads to now must be kept out.
        return second && !other.lockFile(folder / "a");
    });
    // Nothing shows that it waits; too early, it would find the other file right away.
    EXPECT_EQ(waiting.wait_for(std::chrono::milliseconds(100)), std::future_status::timeout);
    folder.put("b", "y");
    ASSERT_TRUE(files.rename(folder / "b", folder / "a"));
    lock = ui::Failure{"released"};
    EXPECT_TRUE(waiting.get());
}

TEST(SurviveFileSizeLimit, LetsTheWriteFail) {
    const TempFolder folder;
    EXPECT_EQ(0, support::InChild([&] {
                  ui::SurviveFileSizeLimit();
                  const rlimit size{100, 100};
                  DiskFiles files;
                  auto file = files.open(folder / "a", Mode::CreateNew);
                  if (!file || ::setrlimit(RLIMIT_FSIZE, &size) != 0) {
                      return 2;
                  }
                  const auto written = file.value()->write(std::string(200, 'x'));
                  return !written && written.failure().message == "Could not write \"" +
                                                                      (folder / "a").native() +
                                                                      "\": File too large."
                             ? 0
                             : 1;
              }));
}

TEST(SurviveFileSizeLimit, IsNotHandedOnToOtherPrograms) {
    EXPECT_EQ(-SIGXFSZ, support::InChild([] {
        ui::SurviveFileSizeLimit();
        ::execl("/bin/sh", "sh", "-c", "kill -XFSZ $$", nullptr);
        return 2;
    }));
}

TEST(RandomName, IsAnotherEveryTime) {
    std::set<std::string> names;
    for (int i = 0; i < 1000; ++i) {
        const std::string name = ui::RandomName();
        EXPECT_EQ(name.find_first_not_of("0123456789abcdefghijklmnopqrstuvwxyz"), std::string::npos) << name;
        EXPECT_TRUE(names.insert(name).second) << name;
    }
}

TEST(DiskFiles, FlushesNewFilesOfTheCurrentFolderToo) {
    const TempFolder folder;
    DiskFiles files;
    const auto old = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    {
        auto file = files.open("new", Mode::CreateNew);
        ASSERT_TRUE(file);
        EXPECT_TRUE(file.value()->write("x"));
        EXPECT_TRUE(file.value()->flush());
        EXPECT_TRUE(file.value()->close());
    }
    std::filesystem::current_path(old);
    EXPECT_EQ(folder.content("new"), "x");
}

} // namespace
