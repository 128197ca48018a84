// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "DesktopHome.h"
#include "support/Environment.h"
#include "support/ToolRun.h"
#include "ui/FileWriter.h"
#include "ui/linux/DesktopEntry.h"
#include "ui/linux/FreedesktopFileTypes.h"

#include <QStandardPaths>
#include <QTest>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct ScriptType {
    std::string extension;
    std::string description;
    std::string switchWord;
    std::string mimeType;
    std::string entry;
    std::string firstLine;
};

const std::vector<ScriptType> Types = {
    {".vtn", "Quake Name Script", "/name", "application/x-vtm-name", "vtm-name.desktop",
     "// Name File Created by Vortigo"},
    {".vta", "Quake Animation Script", "/animation", "application/x-vtm-animation", "vtm-animation.desktop",
     "// Animation File Created by Vortigo"},
    {".vtm", "Quake Message Script", "/macro", "application/x-vtm-message", "vtm-message.desktop",
     "// Macro File Created by Vortigo"},
};

/// Names that an opener could trip over.
const std::vector<std::string> AwkwardNames = {
    "plain.vtn",
    "with some  blanks.vtn",
    " it's.vtn",
    "6\" nails.vtn",
    "the \"best\" one.vtn",
    "100%.vtn",
    "%f %U %% %20.vtn",
    "$HOME ${PATH} $(id) `id`.vtn",
    "N\xC3\xA4me \xE5\x90\x8D.vtn",
    "-dash.vtn",
    "--help.vtn",
    "a&b;c|d<e>(f)*?[g]{h}#i~j!k=l^m.vtn",
};

/// Folders that an entry could trip over.
const std::vector<std::string> AwkwardFolders = {
    "my games", "it's", "6\" nails", "$HOME `id`", "a\\b", "N\xC3\xA4me", "a&b;c|d<e>(f)*?g#i~j",
    "x=y",      "100%",
};

std::vector<ui::FileType> fileTypes() {
    std::vector<ui::FileType> types;
    for (const ScriptType& row : Types) {
        ui::FileType type;
        type.extension = row.extension;
        type.description = row.description;
        type.switchText = " " + row.switchWord + " ";
        type.mimeType = row.mimeType;
        type.firstLine = row.firstLine;
        types.push_back(type);
    }
    return types;
}

void registerTypes(const DesktopHome& home, const ui::Path& program) {
    ui::native::FreedesktopFileTypes(home.dataHome(), program).registerTypes(fileTypes(), program);
}

std::string entryOf(const DesktopHome& home, const ScriptType& type) {
    return home.content("applications/" + type.entry);
}

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

bool knows(const fs::path& cache, const std::string& text) {
    QFile file(QFile::decodeName(cache.c_str()));
    return file.open(QFile::ReadOnly) && contains(file.readAll().toStdString(), text);
}

/// Registers the types and waits until the desktop's caches, renewed in the background, know them.
void registerAndWait(const DesktopHome& home, const ui::Path& program) {
    registerTypes(home, program);
    const fs::path& data = home.dataHome();
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            return knows(data / "applications/mimeinfo.cache", "x-vtm-message=vtm-message.desktop;") &&
                   knows(data / "mime/mime.cache", "x-vtm-message") && fs::exists(data / "mime/version");
        },
        Patience));
}

/// The tests that need programs of the desktop, and are skipped where one is missing.
class NeedingPrograms : public testing::Test {
protected:
    explicit NeedingPrograms(std::vector<const char*> programs)
        : m_programs(std::move(programs)) {}

    void SetUp() override {
        for (const char* program : m_programs) {
            if (QStandardPaths::findExecutable(QLatin1String(program)).isEmpty()) {
                GTEST_SKIP() << "this test needs the program " << program;
            }
        }
    }

    const DesktopHome home;

private:
    std::vector<const char*> m_programs;
};

class FileTypesChecked : public NeedingPrograms {
protected:
    FileTypesChecked()
        : NeedingPrograms({"desktop-file-validate", "xmllint"}) {}
};

class FileTypesAtADesktop : public NeedingPrograms {
protected:
    FileTypesAtADesktop()
        : NeedingPrograms({"gio", "update-desktop-database", "update-mime-database"}) {}
};

class FileTypesWithoutADesktop : public NeedingPrograms {
protected:
    FileTypesWithoutADesktop()
        : NeedingPrograms(
              {"xdg-open", "xdg-mime", "mimetype", "update-desktop-database", "update-mime-database"}) {}
};

struct Written {
    std::string name;
    ino_t inode;
    timespec modified;

    bool operator==(const Written& other) const {
        return name == other.name && inode == other.inode && modified.tv_sec == other.modified.tv_sec &&
               modified.tv_nsec == other.modified.tv_nsec;
    }
};

/// What lies in a folder and below it, with what a rewritten file would show.
std::vector<Written> filesIn(const fs::path& folder) {
    std::vector<Written> files;
    for (const auto& file : fs::recursive_directory_iterator(folder)) {
        struct stat information {};

        EXPECT_EQ(::lstat(file.path().c_str(), &information), 0);
        files.push_back(
            {fs::relative(file.path(), folder).native(), information.st_ino, information.st_mtim});
    }
    std::sort(files.begin(), files.end(), [](const Written& a, const Written& b) { return a.name < b.name; });
    return files;
}

QByteArray bytes(const fs::path& path) {
    return QByteArray::fromStdString(path.native());
}

} // namespace

TEST(FreedesktopFileTypes, WriteAnEntryForEachTypeAndOneDescriptionOfAll) {
    const Environment noTools("PATH", "/nowhere");
    const DesktopHome home;
    const ui::Path program = home.makeProgram("bin");
    registerTypes(home, program);
    for (const ScriptType& type : Types) {
        const std::string text = entryOf(home, type);
        EXPECT_TRUE(contains(text, "\nExec=" + program.native() + " \" " + type.switchWord + "\" %f\n"))
            << text;
        EXPECT_TRUE(contains(text, "\nComment=" + type.description + "\n")) << text;
        EXPECT_TRUE(contains(text, "\nMimeType=" + type.mimeType + ";\n")) << text;
        EXPECT_TRUE(contains(text, "\nNoDisplay=true\n")) << text;
        EXPECT_TRUE(contains(home.content("mime/packages/vtm.xml"), type.firstLine));
    }
    std::vector<std::string> names;
    for (const Written& file : filesIn(home.path())) {
        if (!file.name.starts_with("data/icons")) {
            names.push_back(file.name);
        }
    }
    EXPECT_EQ(
        names, (std::vector<std::string>{
                   "bin", "bin/VTM", "data", "data/applications", "data/applications/vtm-animation.desktop",
                   "data/applications/vtm-message.desktop", "data/applications/vtm-name.desktop",
                   "data/applications/vtm.desktop", "data/mime", "data/mime/packages",
                   "data/mime/packages/vtm.xml"}));
}

TEST(FreedesktopFileTypes, BringTheIconsThatTheSystemDoesNotHave) {
    const Environment noTools("PATH", "/nowhere");
    const support::TempFolder system;
    const Environment data("XDG_DATA_DIRS", bytes(system.path()));
    const DesktopHome home;
    registerTypes(home, home.makeProgram("bin"));
    std::size_t icons = 0;
    for (const auto& file : fs::recursive_directory_iterator(ICON_THEME)) {
        if (file.is_regular_file()) {
            const fs::path name = "icons/hicolor" / fs::relative(file.path(), ICON_THEME);
            EXPECT_EQ(home.content(name), support::FileContent(file.path())) << name;
            ++icons;
        }
    }
    EXPECT_EQ(icons, 36U) << "of the program and three types, in eight sizes and as a drawing";

    const DesktopHome other;
    (void)system.put("icons/hicolor/48x48/apps/vtm.png", "the system's");
    registerTypes(other, other.makeProgram("bin"));
    EXPECT_FALSE(fs::exists(other.dataHome() / "icons/hicolor/48x48/apps/vtm.png"));
    EXPECT_TRUE(fs::exists(other.dataHome() / "icons/hicolor/32x32/apps/vtm.png"));
}

TEST(FreedesktopFileTypes, ShowAProgramInMenusThatIsOnlyUnpacked) {
    const Environment noTools("PATH", "/nowhere");
    const support::TempFolder system;
    const Environment data("XDG_DATA_DIRS", bytes(system.path()));
    const DesktopHome home;
    const fs::path entry = home.dataHome() / "applications/vtm.desktop";
    const ui::Path program = home.makeProgram("bin");
    registerTypes(home, program);
    EXPECT_EQ(home.content("applications/vtm.desktop"), ui::native::ProgramEntryText(program));
    const ui::Path moved = home.makeProgram("moved");
    registerTypes(home, moved);
    EXPECT_EQ(home.content("applications/vtm.desktop"), ui::native::ProgramEntryText(moved));

    (void)system.put("applications/vtm.desktop", "[Desktop Entry]\n");
    registerTypes(home, moved);
    EXPECT_FALSE(fs::exists(entry)) << "it would hide the system's";
    registerTypes(home, moved);
    EXPECT_FALSE(fs::exists(entry));
}

TEST(FreedesktopFileTypes, LeaveTheUsersOwnEntryOfTheProgramAlone) {
    const Environment noTools("PATH", "/nowhere");
    const support::TempFolder system;
    const Environment data("XDG_DATA_DIRS", bytes(system.path()));
    const DesktopHome home;
    const std::string own = "[Desktop Entry]\nName=My own\n";
    fs::create_directories(home.dataHome() / "applications");
    ui::DiskFiles files;
    ASSERT_TRUE(ui::WriteFile(files, home.dataHome() / "applications/vtm.desktop", own));
    registerTypes(home, home.makeProgram("bin"));
    EXPECT_EQ(home.content("applications/vtm.desktop"), own);
    (void)system.put("applications/vtm.desktop", "[Desktop Entry]\n");
    registerTypes(home, home.makeProgram("bin"));
    EXPECT_EQ(home.content("applications/vtm.desktop"), own);
}

TEST(FreedesktopFileTypes, AreNotRewrittenWhenNothingChanged) {
    const Environment noTools("PATH", "/nowhere");
    for (const char* folder : {"bin", "my games"}) {
        const DesktopHome home;
        const ui::Path program = home.makeProgram(folder);
        registerTypes(home, program);
        const auto before = filesIn(home.path());
        registerTypes(home, program);
        EXPECT_EQ(filesIn(home.path()), before);
    }
}

TEST(FreedesktopFileTypes, FollowAProgramThatWasMoved) {
    const Environment noTools("PATH", "/nowhere");
    const DesktopHome home;
    registerTypes(home, home.makeProgram("old"));
    fs::rename(home.path() / "old", home.path() / "new");
    registerTypes(home, home.path() / "new/VTM");
    for (const ScriptType& type : Types) {
        const std::string text = entryOf(home, type);
        EXPECT_TRUE(contains(text, "Exec=" + (home.path() / "new/VTM").native() + " ")) << text;
        EXPECT_FALSE(contains(text, "old")) << text;
    }
}

TEST(FreedesktopFileTypes, ReplaceAnEntryThatSomethingElseWrote) {
    const Environment noTools("PATH", "/nowhere");
    const DesktopHome home;
    fs::create_directories(home.dataHome() / "applications");
    const fs::path file = home.dataHome() / "applications/vtm-name.desktop";
    ui::DiskFiles files;
    ASSERT_TRUE(ui::WriteFile(files, file, "[Desktop Entry]\nExec=other\n"));
    registerTypes(home, home.makeProgram("bin"));
    EXPECT_TRUE(contains(entryOf(home, Types[0]), "MimeType=application/x-vtm-name;"));
}

TEST(FreedesktopFileTypes, NameTheExecutableWhereTheProgramsFolderHasNone) {
    const Environment noTools("PATH", "/nowhere");
    const DesktopHome home;
    const ui::Path executable = home.makeProgram("bin");
    ui::native::FreedesktopFileTypes(home.dataHome(), executable)
        .registerTypes(fileTypes(), home.path() / "share/vtm/VTM");
    EXPECT_TRUE(contains(entryOf(home, Types[0]), "Exec=" + executable.native() + " "));
}

TEST(FreedesktopFileTypes, NameALinkToAProgramThatNotEveryOpenerCouldName) {
    const Environment noTools("PATH", "/nowhere");
    const DesktopHome home;
    const fs::path link = home.dataHome() / "vtm/VTM";
    for (const std::string& folder : AwkwardFolders) {
        SCOPED_TRACE(folder);
        const ui::Path program = home.makeProgram(folder);
        registerTypes(home, program);
        EXPECT_EQ(fs::read_symlink(link), program);
        EXPECT_TRUE(contains(entryOf(home, Types[0]), "\nExec=" + link.native() + " \" /name\" %f\n"));
    }
}

TEST(FreedesktopFileTypes, RemoveALinkThatIsOfNoUseAnyMore) {
    const Environment noTools("PATH", "/nowhere");
    const DesktopHome home;
    const fs::path link = home.dataHome() / "vtm/VTM";
    registerTypes(home, home.makeProgram("my games"));
    EXPECT_TRUE(fs::is_symlink(link));
    registerTypes(home, home.makeProgram("bin"));
    EXPECT_FALSE(fs::is_symlink(link));
    EXPECT_TRUE(fs::exists(home.path() / "my games/VTM"));
}

TEST(FreedesktopFileTypes, QuoteTheProgramWhereTheUsersFoldersNeedQuotesToo) {
    const Environment noTools("PATH", "/nowhere");
    const DesktopHome home("my data");
    const ui::Path program = home.makeProgram("my games");
    registerTypes(home, program);
    EXPECT_TRUE(contains(entryOf(home, Types[0]), "\nExec=\"" + program.native() + "\" \" /name\" %f\n"));
    EXPECT_FALSE(fs::exists(home.dataHome() / "vtm"));
}

TEST(FreedesktopFileTypes, QuoteTheLinkWhereTheProgramCouldNotEvenBeQuoted) {
    const Environment noTools("PATH", "/nowhere");
    const DesktopHome home("my data");
    const ui::Path program = home.makeProgram("100%");
    registerTypes(home, program);
    const fs::path link = home.dataHome() / "vtm/VTM";
    EXPECT_EQ(fs::read_symlink(link), program);
    EXPECT_TRUE(contains(entryOf(home, Types[0]), "\nExec=\"" + link.native() + "\" \" /name\" %f\n"));
}

TEST(FreedesktopFileTypes, NameTheLinkWhereOnlyTheProgramNeedsQuotes) {
    const Environment noTools("PATH", "/nowhere");
    const DesktopHome home("d\xC3\xA4ta");
    const fs::path link = home.dataHome() / "vtm/VTM";
    for (const char* folder : {"my g\xC3\xA4mes", "100%"}) {
        SCOPED_TRACE(folder);
        const ui::Path program = home.makeProgram(folder);
        registerTypes(home, program);
        EXPECT_EQ(fs::read_symlink(link), program);
        EXPECT_TRUE(contains(entryOf(home, Types[0]), "\nExec=" + link.native() + " \" /name\" %f\n"));
    }
    const ui::Path program = home.makeProgram("g\xC3\xA4mes");
    registerTypes(home, program);
    EXPECT_TRUE(contains(entryOf(home, Types[0]), "\nExec=" + program.native() + " \" /name\" %f\n"));
}

TEST(FreedesktopFileTypes, LeaveAFileAloneThatLiesWhereTheLinkWould) {
    const Environment noTools("PATH", "/nowhere");
    const DesktopHome home;
    const ui::Path other = home.makeProgram("data/vtm");
    const ui::Path program = home.makeProgram("my games");
    registerTypes(home, program);
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(other)));
    EXPECT_TRUE(contains(entryOf(home, Types[0]), "\nExec=\"" + program.native() + "\" \" /name\" %f\n"));
}

TEST(FreedesktopFileTypes, AreSilentWhereNothingCanBeWritten) {
    const DesktopHome home;
    for (const char* dataHome : {"", "relative", "/proc/nowhere", "/dev/null"}) {
        ui::native::FreedesktopFileTypes(dataHome, "/opt/VTM")
            .registerTypes(fileTypes(), "/opt/my games/VTM");
    }
    EXPECT_FALSE(fs::exists("applications"));
    EXPECT_FALSE(fs::exists("relative"));

    // A folder that stands where a file should be keeps even root from writing.
    fs::create_directories(home.dataHome() / "applications/vtm-name.desktop/inside");
    registerTypes(home, home.makeProgram("bin"));
    EXPECT_TRUE(fs::is_directory(home.dataHome() / "applications/vtm-name.desktop"));
    EXPECT_FALSE(fs::exists(home.dataHome() / "applications/vtm-name.desktop.new"));
    EXPECT_TRUE(contains(entryOf(home, Types[1]), "MimeType=application/x-vtm-animation;"));
}

/// Programs in place of those that renew the caches: they end only when they are let go, so that a start that
/// waited for them would never come to that, and note what they were called with.
class FileTypesCaches : public testing::Test {
protected:
    FileTypesCaches() {
        for (const char* tool : {"update-desktop-database", "update-mime-database"}) {
            fs::permissions(
                tools.put(
                    tool, "#!/bin/sh\nwhile ! [ -e \"$VTM_TEST_TOOLS/go\" ]; do sleep 0.02; done\n"
                          "echo \"$1\" >>\"$VTM_TEST_TOOLS/log-${0##*/}\"\n"),
                fs::perms::owner_all);
        }
    }

    void makeCache(const fs::path& file) const {
        fs::create_directories((home.dataHome() / file).parent_path());
        ui::DiskFiles files;
        ASSERT_TRUE(ui::WriteFile(files, home.dataHome() / file, "cache"));
    }

    void letGo() const { tools.put("go", ""); }

    /// Whether a tool is called with the folders of `log`, a line each, and with no others.
    [[nodiscard]] bool isLogged(const char* tool, const std::string& log) const {
        const std::string name = std::string("log-") + tool;
        return QTest::qWaitFor([&] { return tools.has(name) && tools.content(name) == log; }, Patience);
    }

    const DesktopHome home;
    const support::TempFolder tools;
    const Environment path{"PATH", bytes(tools.path()) + ":" + qgetenv("PATH")};
    const Environment folder{"VTM_TEST_TOOLS", bytes(tools.path())};
    const std::string entries = (home.dataHome() / "applications\n").native();
    const std::string mime = (home.dataHome() / "mime\n").native();
};

TEST_F(FileTypesCaches, AreRenewedInTheBackgroundAndOnlyAfterAChange) {
    makeCache("applications/mimeinfo.cache");
    makeCache("mime/mime.cache");
    const ui::Path program = home.makeProgram("bin");
    registerTypes(home, program);
    registerTypes(home, program);
    registerTypes(home, home.makeProgram("other"));
    letGo();
    EXPECT_TRUE(isLogged("update-mime-database", mime));
    EXPECT_TRUE(isLogged("update-desktop-database", entries + entries));
}

TEST_F(FileTypesCaches, AreMadeWhereAnEarlierStartCouldNot) {
    const ui::Path program = home.makeProgram("bin");
    {
        const Environment noTools("PATH", "/nowhere");
        registerTypes(home, program);
    }
    letGo();
    registerTypes(home, program);
    EXPECT_TRUE(isLogged("update-mime-database", mime));
    EXPECT_TRUE(isLogged("update-desktop-database", entries));
}

TEST_F(FileTypesChecked, TheFilesAreValid) {
    const auto check = [](const DesktopHome& someone) {
        const auto program = someone.run(
            "desktop-file-validate", {(someone.dataHome() / "applications/vtm.desktop").native()});
        EXPECT_EQ(program.exitCode, 0);
        EXPECT_EQ(program.output, "");
        for (const ScriptType& type : Types) {
            const auto entry = someone.run(
                "desktop-file-validate", {(someone.dataHome() / "applications" / type.entry).native()});
            EXPECT_EQ(entry.exitCode, 0);
            EXPECT_EQ(entry.output, "");
        }
        const auto package =
            someone.run("xmllint", {"--noout", (someone.dataHome() / "mime/packages/vtm.xml").native()});
        EXPECT_EQ(package.exitCode, 0);
        EXPECT_EQ(package.output, "");
    };
    registerTypes(home, home.makeProgram("bin"));
    check(home);
    for (const std::string& folder : AwkwardFolders) {
        SCOPED_TRACE(folder);
        registerTypes(home, home.makeProgram(folder));
        check(home);
    }
    const DesktopHome awkward("my data");
    for (const std::string& folder : AwkwardFolders) {
        SCOPED_TRACE(folder);
        registerTypes(awkward, awkward.makeProgram(folder));
        check(awkward);
    }
}

TEST_F(FileTypesAtADesktop, AFileIsKnownByItsNameOrByItsFirstLine) {
    registerAndWait(home, home.makeProgram("bin"));
    const auto typeOf = [&](const ui::Path& file) {
        return home.run("gio", {"info", "--attributes=standard::content-type", file.native()}).output;
    };
    for (const ScriptType& type : Types) {
        const std::string expected = "standard::content-type: " + type.mimeType;
        const std::string script = type.firstLine + "\r\n\xFF\x01\r\n";
        EXPECT_TRUE(typeOf(home.makeFile("a" + type.extension, "x")).ends_with(expected));
        const QString capitals = QString::fromStdString(type.extension).toUpper();
        EXPECT_TRUE(typeOf(home.makeFile("A" + capitals.toStdString(), "x")).ends_with(expected));
        EXPECT_TRUE(typeOf(home.makeFile("renamed.quake", script)).ends_with(expected));
        EXPECT_TRUE(typeOf(home.makeFile("renamed", script)).ends_with(expected));
        EXPECT_TRUE(contains(home.run("gio", {"mime", type.mimeType}).output, type.entry));
    }
    EXPECT_TRUE(typeOf(home.makeFile("other.txt", "name \"x\"\r\n")).ends_with(": text/plain"));
    EXPECT_FALSE(fs::exists(home.path() / "config/mimeapps.list"));
    EXPECT_FALSE(fs::exists(home.dataHome() / "applications/mimeapps.list"));
}

TEST_F(FileTypesAtADesktop, AFileIsOpenedWithTheSwitchOfItsType) {
    registerAndWait(home, home.makeProgram("bin"));
    for (const ScriptType& type : Types) {
        const std::string file = home.makeFile("a b" + type.extension, type.firstLine).native();
        EXPECT_EQ(home.run("gio", {"open", file}).exitCode, 0);
        EXPECT_EQ(home.takeRecord(), (std::vector<std::string>{" " + type.switchWord, file}));
    }
}

TEST_F(FileTypesAtADesktop, AwkwardFileNamesComeThrough) {
    registerAndWait(home, home.makeProgram("bin"));
    const std::string entry = (home.dataHome() / "applications/vtm-name.desktop").native();
    for (const std::string& name : AwkwardNames) {
        SCOPED_TRACE(name);
        const std::string file = home.makeFile(name, "").native();
        EXPECT_EQ(home.run("gio", {"launch", entry, file}).exitCode, 0);
        EXPECT_EQ(home.takeRecord(), (std::vector<std::string>{" /name", file}));
    }
}

TEST_F(FileTypesAtADesktop, AwkwardProgramFoldersComeThrough) {
    const DesktopHome awkward("my data");
    for (const DesktopHome* someone : {&home, &awkward}) {
        const std::string entry = (someone->dataHome() / "applications/vtm-name.desktop").native();
        const std::string file = someone->makeFile("a b.vtn", "").native();
        for (const std::string& folder : AwkwardFolders) {
            SCOPED_TRACE(folder);
            registerTypes(*someone, someone->makeProgram(folder));
            EXPECT_EQ(someone->run("gio", {"launch", entry, file}).exitCode, 0);
            EXPECT_EQ(someone->takeRecord(), (std::vector<std::string>{" /name", file}));
        }
    }
}

TEST_F(FileTypesAtADesktop, AProgramThatIsGoneIsNotOffered) {
    const ui::Path program = home.makeProgram("bin");
    registerAndWait(home, program);
    EXPECT_TRUE(contains(home.run("gio", {"mime", Types[0].mimeType}).output, Types[0].entry));
    fs::remove(program);
    EXPECT_FALSE(contains(home.run("gio", {"mime", Types[0].mimeType}).output, Types[0].entry));
}

TEST_F(FileTypesWithoutADesktop, AFileIsKnownByItsNameOrByItsFirstLine) {
    registerAndWait(home, home.makeProgram("bin"));
    for (const ScriptType& type : Types) {
        for (const std::string& name : {"a" + type.extension, std::string("renamed.quake")}) {
            const auto file = home.makeFile(name, type.firstLine + "\r\n\xFF\r\n");
            EXPECT_EQ(home.run("xdg-mime", {"query", "filetype", file.native()}).output, type.mimeType);
        }
        EXPECT_EQ(home.run("xdg-mime", {"query", "default", type.mimeType}).output, type.entry);
    }
}

// The switch comes in two pieces, with its quotes; the start-up takes it so, too.
TEST_F(FileTypesWithoutADesktop, AFileIsOpenedWithTheSwitchOfItsType) {
    registerAndWait(home, home.makeProgram("bin"));
    for (const ScriptType& type : Types) {
        const std::string file = home.makeFile("a b" + type.extension, type.firstLine).native();
        EXPECT_EQ(home.run("xdg-open", {file}).exitCode, 0);
        EXPECT_EQ(home.takeRecord(), (std::vector<std::string>{"\"", type.switchWord + "\"", file}));
    }
}

TEST_F(FileTypesWithoutADesktop, AwkwardFileNamesComeThrough) {
    registerAndWait(home, home.makeProgram("bin"));
    for (const std::string& name : AwkwardNames) {
        SCOPED_TRACE(name);
        const std::string file = home.makeFile(name, Types[0].firstLine).native();
        EXPECT_EQ(home.run("xdg-open", {file}).exitCode, 0);
        EXPECT_EQ(home.takeRecord(), (std::vector<std::string>{"\"", "/name\"", file}));
    }
}

TEST_F(FileTypesWithoutADesktop, AwkwardProgramFoldersComeThrough) {
    const std::string file = home.makeFile("a b.vtn", Types[0].firstLine).native();
    const DesktopHome other("d\xC3\xA4ta");
    for (const DesktopHome* someone : {&home, &other}) {
        for (const char* folder : {"my g\xC3\xA4mes", "N\xC3\xA4me", "100%"}) {
            SCOPED_TRACE(folder);
            registerAndWait(*someone, someone->makeProgram(folder));
            EXPECT_EQ(someone->run("xdg-open", {file}).exitCode, 0);
            EXPECT_EQ(someone->takeRecord(), (std::vector<std::string>{"\"", "/name\"", file}));
        }
    }
}
