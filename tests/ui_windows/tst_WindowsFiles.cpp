// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/TempProgramDirectory.h"
#include "ui/ByteSource.h"
#include "ui/FileWriter.h"
#include "ui/windows/WindowsFile.h"

#include <gtest/gtest.h>
#include <sddl.h>

namespace {

using support::TempFolder;
using ui::DiskFiles;
using ui::Path;
using ui::PathFromText;
using ui::PathText;
using ui::native::Handle;
using Kind = ui::FileFacts::Kind;
using Mode = ui::Files::OpenMode;

std::string Told(const char* what, const Path& path, const char* cause) {
    return std::string(what) + " \"" + PathText(path) + "\": " + cause + ".";
}

std::string AllBytes() {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    return bytes + "\r\n\n\x1A";
}

/// Folders and files as users call them.
std::vector<Path> Names() {
    return {
        "plain.cfg", PathFromText("\xC3\xA9\xC3\xBC \xE6\xBC\xA2 \xF0\x9F\x98\x80.cfg"), "a b/c d.cfg",
        std::string(200, 'x') + ".cfg"};
}

/// A folder with a path of more than 260 characters.
Path LongFolder(const TempFolder& folder) {
    const std::string name(100, 'd');
    return folder / name / name / name;
}

TEST(WindowsFiles, WriteAndReadEveryByteUnderEveryName) {
    const TempFolder folder;
    DiskFiles files;
    for (const Path& name : Names()) {
        const Path path = folder / name;
        ASSERT_TRUE(files.makeFolder(path.parent_path())) << path;
        for (const std::string& bytes : {AllBytes(), std::string("shorter\r\n"), std::string()}) {
            const auto written = ui::WriteFile(files, path, bytes);
            ASSERT_TRUE(written) << written.failure().message;
            EXPECT_EQ(files.read(path).value(), bytes) << path;
        }
    }
}

TEST(WindowsFiles, TakePathsOfAnyLength) {
    const TempFolder folder;
    DiskFiles files;
    const Path deep = LongFolder(folder);
    const auto made = files.makeFolder(deep);
    ASSERT_TRUE(made) << made.failure().message;
    EXPECT_TRUE(files.makeFolder(deep)) << "it is there";
    EXPECT_EQ(files.kindOf(deep), ui::PathKind::Folder);
    const Path path = deep / "a.cfg";
    ASSERT_TRUE(ui::WriteFile(files, path, "one"));
    ASSERT_TRUE(ui::WriteFile(files, path, "two"));
    EXPECT_EQ(files.read(path).value(), "two");
    EXPECT_EQ(files.list(deep), std::vector<std::string>{"a.cfg"});
    EXPECT_TRUE(files.sameFile(path, deep / "." / "a.cfg"));
    EXPECT_TRUE(files.lockFile(path));
    EXPECT_EQ(ui::OpenSource(path).value()->read(1, 2).value(), "wo");
    EXPECT_TRUE(files.rename(path, deep / "b.cfg"));
    EXPECT_TRUE(files.remove(deep / "b.cfg"));
    EXPECT_EQ(files.read(path).failure().message, Told("Could not open", path, "No such file or directory"));
}

TEST(WindowsFiles, ListNamesSortedAndWhole) {
    const TempFolder folder;
    folder.put("b", "");
    folder.put("a", "");
    folder.put(PathFromText("\xC3\xA9"), "");
    std::filesystem::create_directory(folder / "c");
    EXPECT_EQ(DiskFiles().list(folder.path()), (std::vector<std::string>{"a", "b", "c", "\xC3\xA9"}));
    EXPECT_TRUE(DiskFiles().list(folder / "gone").empty());
}

TEST(WindowsFiles, TellWhatLiesAtAPath) {
    const TempFolder folder;
    folder.put("a", "");
    const DiskFiles files;
    EXPECT_EQ(files.kindOf(folder / "a"), ui::PathKind::File);
    EXPECT_EQ(files.kindOf(folder / "A"), ui::PathKind::File) << "names have no case";
    EXPECT_EQ(files.kindOf(folder.path()), ui::PathKind::Folder);
    EXPECT_EQ(files.kindOf("NUL"), ui::PathKind::Device);
    for (const Path& nothing :
         {folder / "gone", folder / "gone/b", folder / "a/b", folder / "a*", Path("?:\\x"), Path()}) {
        EXPECT_EQ(files.kindOf(nothing), ui::PathKind::Nothing) << nothing;
    }
}

TEST(WindowsFiles, TellFailuresAsEverywhere) {
    const TempFolder folder;
    folder.put("a", "one");
    DiskFiles files;
    const Path gone = folder / "gone";
    EXPECT_EQ(files.read(gone).failure().message, Told("Could not open", gone, "No such file or directory"));
    EXPECT_EQ(
        files.read(folder.path()).failure().message,
        "Could not read \"" + PathText(folder.path()) + "\": Is a directory.");
    EXPECT_EQ(files.read("NUL").failure().message, "Could not read \"NUL\": it is not a file.");
    EXPECT_EQ(
        files.open(folder / "a", Mode::CreateNew).failure().message,
        Told("Could not create", folder / "a", "File exists"));
    EXPECT_EQ(
        files.open(gone, Mode::InPlace).failure().message,
        Told("Could not open", gone, "No such file or directory"));
    EXPECT_EQ(
        files.remove(gone).failure().message, Told("Could not delete", gone, "No such file or directory"));
    EXPECT_EQ(
        files.rename(gone, folder / "a").failure().message,
        Told("Could not replace", folder / "a", "No such file or directory"));
    folder.put("b", "two");
    EXPECT_EQ(
        files.renameNew(folder / "a", folder / "b").failure().message,
        Told("Could not create", folder / "b", "File exists"));
    EXPECT_EQ(
        files.inspect(folder.path(), ui::Links::Follow).failure().message,
        Told("Could not open", folder.path(), "Is a directory"));
    EXPECT_EQ(
        files.makeFolder(folder / "a/b").failure().message,
        Told("Could not create", folder / "a/b", "Not a directory"));
    EXPECT_EQ(
        ui::WriteFile(files, folder / "a?.cfg", "x").failure().message,
        Told("Could not create", folder / "a?.cfg", "a file cannot be called this"));
    EXPECT_EQ(files.list(folder.path()), (std::vector<std::string>{"a", "b"})) << "nothing is left behind";
    EXPECT_EQ(folder.content("b"), "two");
}

TEST(WindowsFiles, LeaveAReadOnlyFileAlone) {
    const TempFolder folder;
    const Path path = folder.put("a", "one");
    ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
    DiskFiles files;
    EXPECT_EQ(
        ui::WriteFile(files, path, "two").failure().message,
        Told("Could not open", path, "Permission denied"));
    EXPECT_EQ(folder.content("a"), "one");
    EXPECT_EQ(files.list(folder.path()), std::vector<std::string>{"a"});
    ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST(WindowsFiles, KnowAFileThatCannotSimplyBeReplaced) {
    const TempFolder folder;
    const Path path = folder.put("a", "one");
    DiskFiles files;
    const auto standsAlone = [&] {
        return files.inspect(path, ui::Links::Follow).value().standsAlone;
    };
    EXPECT_TRUE(standsAlone());
    ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_HIDDEN);
    EXPECT_FALSE(standsAlone());
    EXPECT_TRUE(ui::WriteFile(files, path, "two"));
    EXPECT_NE(::GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U) << "it stays hidden";
    ::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    ASSERT_NE(::CreateHardLinkW((folder / "b").c_str(), path.c_str(), nullptr), FALSE);
    EXPECT_FALSE(standsAlone());
    EXPECT_TRUE(ui::WriteFile(files, path, "three"));
    EXPECT_EQ(folder.content("b"), "three") << "the other name is the same file";
    EXPECT_TRUE(files.sameFile(path, folder / "b"));
    EXPECT_FALSE(files.sameFile(path, "NUL"));
    EXPECT_FALSE(files.sameFile("NUL", path));
}

TEST(WindowsFiles, InspectWhatIsNotThere) {
    const TempFolder folder;
    const DiskFiles files;
    EXPECT_EQ(files.inspect(folder / "new", ui::Links::Follow).value().kind, Kind::Absent);
    EXPECT_EQ(files.inspect("NUL", ui::Links::Follow).value().kind, Kind::Device);
    EXPECT_FALSE(files.inspect("NUL", ui::Links::Replace));
    DiskFiles writing;
    EXPECT_TRUE(ui::WriteFile(writing, "NUL", "x"));
}

TEST(WindowsFiles, MakeATemporaryFileBesideAnother) {
    const TempFolder folder;
    folder.put("a", "one");
    DiskFiles files;
    auto made = files.createBeside(folder / "a");
    ASSERT_TRUE(made) << made.failure().message;
    const Path path = made.value().path;
    EXPECT_EQ(path.parent_path(), folder.path());
    EXPECT_TRUE(PathText(path.filename()).starts_with(".vtm-")) << path;
    EXPECT_NE(files.createBeside(folder / "a").value().path, path);
    EXPECT_EQ(
        files.createBeside(folder / "gone/a").failure().message,
        Told("Could not open", folder / "gone/a", "No such file or directory"));
}

TEST(WindowsFiles, WriteOverAFileWithoutLosingItFirst) {
    const TempFolder folder;
    const Path path = folder.put("a", "0123456789");
    DiskFiles files;
    auto opened = files.open(path, Mode::InPlace);
    ASSERT_TRUE(opened);
    ui::OutputFile& file = *opened.value();
    EXPECT_EQ(folder.content("a"), "0123456789");
    EXPECT_TRUE(file.seek(8));
    EXPECT_TRUE(file.write("abc"));
    EXPECT_TRUE(file.reserve(13));
    EXPECT_EQ(folder.content("a"), "01234567abc" + std::string(2, '\0'));
    EXPECT_TRUE(file.reserve(3)) << "nothing is cut off";
    EXPECT_TRUE(file.resize(4));
    EXPECT_TRUE(file.check("0123"));
    EXPECT_FALSE(file.check("012"));
    EXPECT_FALSE(file.check("01234"));
    EXPECT_EQ(file.check("0124").failure().message, Told("Could not write", path, "it holds something else"));
    EXPECT_TRUE(file.flush());
    EXPECT_TRUE(file.close());
    EXPECT_EQ(folder.content("a"), "0123");
}

TEST(WindowsFiles, CheckEveryByteOfALargeFile) {
    const TempFolder folder;
    DiskFiles files;
    std::string bytes(200'001, 'x');
    auto file = files.open(folder / "a", Mode::CreateNew);
    ASSERT_TRUE(file);
    EXPECT_TRUE(file.value()->write(bytes));
    EXPECT_TRUE(file.value()->check(bytes));
    bytes.back() = 'y';
    EXPECT_FALSE(file.value()->check(bytes));
}

TEST(WindowsFiles, RefuseAHugeFile) {
    const TempFolder folder;
    const Path path = folder.put("a", "");
    std::filesystem::resize_file(path, ui::Files::MaxFileSize + 1);
    EXPECT_EQ(DiskFiles().read(path).failure().message, Told("Could not read", path, "File too large"));
    std::filesystem::resize_file(path, ui::Files::MaxFileSize);
    EXPECT_EQ(DiskFiles().read(path).value().size(), ui::Files::MaxFileSize);
}

TEST(WindowsFiles, CanBeForNobodyButTheUser) {
    const TempFolder folder;
    DiskFiles files;
    ASSERT_TRUE(files.open(folder / "private", Mode::CreatePrivate));
    ASSERT_TRUE(files.open(folder / "usual", Mode::CreateNew));
    const auto rightsOf = [&folder](const char* name) {
        std::vector<std::byte> told(1024);
        DWORD size = 0;
        wchar_t* text = nullptr;
        EXPECT_NE(
            ::GetFileSecurityW(
                (folder / name).c_str(), DACL_SECURITY_INFORMATION, told.data(),
                static_cast<DWORD>(told.size()), &size),
            FALSE);
        ::ConvertSecurityDescriptorToStringSecurityDescriptorW(
            told.data(), SDDL_REVISION_1, DACL_SECURITY_INFORMATION, &text, nullptr);
        const std::wstring rights = text;
        ::LocalFree(text);
        return rights;
    };
    constexpr auto Everybody = L";;;WD)";
    EXPECT_EQ(rightsOf("private").find(Everybody), std::wstring::npos);
    EXPECT_NE(rightsOf("private").find(L"(A;;FA;;;S-1-5-"), std::wstring::npos);
    EXPECT_NE(rightsOf("private"), rightsOf("usual"));
}

TEST(WindowsFiles, RemoveWhatIsStillBeingWritten) {
    const TempFolder folder;
    DiskFiles files;
    auto file = files.open(folder / "a", Mode::CreatePrivate);
    ASSERT_TRUE(file);
    EXPECT_TRUE(files.remove(folder / "a"));
    EXPECT_TRUE(file.value()->close());
    EXPECT_FALSE(folder.has("a"));
}

TEST(WindowsFiles, AreFoundInTheCurrentFolderAndDrive) {
    const TempFolder folder;
    const Path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    DiskFiles files;
    EXPECT_TRUE(ui::WriteFile(files, "new.cfg", "x\r\n"));
    EXPECT_EQ(files.read("new.cfg").value(), "x\r\n");
    EXPECT_EQ(std::filesystem::current_path().root_name(), folder.path().root_name());
    std::filesystem::current_path(before);
    EXPECT_EQ(folder.content("new.cfg"), "x\r\n");
}

TEST(WindowsFiles, AreFoundByPathsOfTheNetwork) {
    const TempFolder folder;
    folder.put("a", "one");
    // The computer's own drives are shared with itself.
    std::wstring shared = folder.path().native();
    ASSERT_EQ(shared[1], L':');
    EXPECT_EQ(ui::native::SystemPath(LR"(\\host\share\a.cfg)"), LR"(\\?\UNC\host\share\a.cfg)");
    EXPECT_EQ(ui::native::SystemPath(LR"(\\?\C:\a)"), LR"(\\?\C:\a)");
    EXPECT_EQ(ui::native::SystemPath("C:/a/./b/../c"), LR"(\\?\C:\a\c)");
    EXPECT_EQ(DiskFiles().read(LR"(\\?\)" + (folder / "a").native()).value(), "one");
}

TEST(WindowsFiles, LockAFileByAllItsNames) {
    const TempFolder folder;
    folder.put("a", "");
    folder.put("b", "");
    ASSERT_NE(::CreateHardLinkW((folder / "hard").c_str(), (folder / "a").c_str(), nullptr), FALSE);
    DiskFiles files;
    {
        const auto lock = files.lockFile(folder / "a");
        ASSERT_TRUE(lock);
        EXPECT_TRUE(files.lockFile(folder / "b"));
        EXPECT_EQ(
            files.tryLockFile(folder / "hard").failure().message,
            Told("Could not lock", folder / "hard", "another program is writing it"));
        EXPECT_FALSE(files.tryLockFile(folder / "A"));
        EXPECT_TRUE(ui::WriteFile(files, folder / "b", "new")) << "a lock is in nobody's way";
    }
    EXPECT_TRUE(files.tryLockFile(folder / "hard"));
    EXPECT_FALSE(files.lockFile(folder / "gone"));
    EXPECT_FALSE(folder.has("gone"));
}

TEST(WindowsFiles, CanBeReplacedWhileLocked) {
    const TempFolder folder;
    const Path path = folder.put("a", "one");
    DiskFiles files;
    const auto lock = files.lockFile(path);
    ASSERT_TRUE(lock);
    EXPECT_TRUE(ui::WriteFile(files, path, "two"));
    EXPECT_TRUE(files.remove(path));
    EXPECT_FALSE(folder.has("a"));
}

TEST(WindowsFiles, LockAFolder) {
    const TempFolder folder;
    DiskFiles files;
    const auto lock = files.lockFolder(folder.path());
    ASSERT_TRUE(lock);
    EXPECT_EQ(
        files.lockFolder(folder / ".").failure().message,
        Told("Could not lock", folder / ".", "another program is writing in it"));
    EXPECT_EQ(
        files.lockFolder(folder / "gone").failure().message,
        Told("Could not lock", folder / "gone", "No such file or directory"));
}

} // namespace
