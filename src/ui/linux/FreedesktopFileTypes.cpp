// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/linux/FreedesktopFileTypes.h"

#include "ui/FileWriter.h"
#include "ui/System.h"
#include "ui/linux/DesktopEntry.h"
#include "ui/linux/PosixFile.h"
#include "ui/qt/Text.h"

#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QString>
#include <algorithm>
#include <system_error>
#include <utility>

namespace ui::native {

namespace {

constexpr auto MimePackageName = "vtm.xml";

/// Where the executable holds the icons, laid out as in an icon theme.
constexpr auto IconResources = ":/hicolor";

/// Runs a program that nobody waits for, if it is there.
void RunInBackground(const char* program, const Path& argument) {
    const QString path = QStandardPaths::findExecutable(QLatin1String(program));
    if (path.isEmpty()) {
        return;
    }
    QProcess process;
    process.setProgram(path);
    process.setArguments({qt::FromPath(argument)});
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.startDetached();
}

/// Makes `link` lead to `target`; whether it does. A file or folder of that name is left alone.
bool EnsureLink(DiskFiles& files, const Path& link, const Path& target) {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::file_status there = fs::symlink_status(link, error);
    if (fs::is_symlink(there)) {
        if (fs::read_symlink(link, error) == target) {
            return true;
        }
    } else if (there.type() != fs::file_type::not_found) {
        return false;
    }
    return files.makeFolder(link.parent_path()) && PutLink(link, target);
}

void RemoveLink(const Path& link) {
    std::error_code ignored;
    if (std::filesystem::is_symlink(std::filesystem::symlink_status(link, ignored))) {
        std::filesystem::remove(link, ignored);
    }
}

} // namespace

FreedesktopFileTypes::FreedesktopFileTypes()
    : FreedesktopFileTypes(
          qt::ToPath(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)),
          ExecutableFile()) {}

FreedesktopFileTypes::FreedesktopFileTypes(Path dataHome, Path executable)
    : m_dataHome(std::move(dataHome))
    , m_executable(std::move(executable)) {}

void FreedesktopFileTypes::registerTypes(const std::vector<FileType>& types, const Path& program) {
    if (!m_dataHome.is_absolute()) {
        return;
    }
    const Path started = startable(m_files.exists(program) || m_executable.empty() ? program : m_executable);
    const Path entries = m_dataHome / "applications";
    bool areEntriesNew = false;
    for (const FileType& type : types) {
        areEntriesNew |= writeIfOther(entries / DesktopEntryName(type), DesktopEntryText(type, started));
    }
    areEntriesNew |= putProgramEntry(entries / ProgramEntryName, started);
    putIcons();
    const Path mime = m_dataHome / "mime";
    const bool isPackageNew = writeIfOther(mime / "packages" / MimePackageName, MimePackageText(types));
    if (areEntriesNew && started != link()) {
        RemoveLink(link());
    }
    // A missing cache could not be made before: its tool may have been installed since.
    if (isPackageNew || !m_files.exists(mime / "mime.cache")) {
        RunInBackground("update-mime-database", mime);
    }
    if (areEntriesNew || !m_files.exists(entries / "mimeinfo.cache")) {
        RunInBackground("update-desktop-database", entries);
    }
}

/// Whether the program was installed for all users, with such a file in the system's data.
bool FreedesktopFileTypes::isInSystem(const Path& name) const {
    const QStringList folders = QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
    return std::any_of(folders.begin(), folders.end(), [this, &name](const QString& folder) {
        const Path path = qt::ToPath(folder);
        return path != m_dataHome && m_files.exists(path / name);
    });
}

/// Shows the program in menus, unless the system or the user already does; whether anything changed.
bool FreedesktopFileTypes::putProgramEntry(const Path& entry, const Path& program) {
    const auto old = m_files.read(entry);
    const bool isOwn = old && IsOwnProgramEntry(old.value());
    if (isInSystem(Path("applications") / ProgramEntryName)) {
        // The user's entry would hide the system's.
        return isOwn && m_files.remove(entry);
    }
    return (isOwn || !m_files.exists(entry)) && writeIfOther(entry, ProgramEntryText(program));
}

/// Puts the icons of the program and of its types into the user's icon theme.
void FreedesktopFileTypes::putIcons() {
    bool isNew = false;
    const Path theme = Path("icons") / "hicolor";
    QDirIterator icons(QLatin1String(IconResources), QDir::Files, QDirIterator::Subdirectories);
    while (icons.hasNext()) {
        QFile icon(icons.next());
        const Path name = theme / qt::ToPath(icon.fileName().mid(QLatin1String(IconResources).size() + 1));
        if (!isInSystem(name) && icon.open(QFile::ReadOnly)) {
            isNew |= writeIfOther(m_dataHome / name, icon.readAll().toStdString());
        }
    }
    if (isNew) {
        // The folder's new time tells desktops that the theme's cache is out of date.
        std::error_code ignored;
        std::filesystem::last_write_time(
            m_dataHome / theme, std::filesystem::file_time_type::clock::now(), ignored);
    }
}

Path FreedesktopFileTypes::link() const {
    return m_dataHome / "vtm" / "VTM";
}

/// The path by which the entries name the program. Some openers misread a path with, say, blanks: such a
/// program is named by a link to it, unless the link's own path is no better.
Path FreedesktopFileTypes::startable(const Path& program) {
    // Of two doubtful paths the better one needs no quotes or escapes in an entry.
    const auto doubt = [](const Path& path) {
        return std::pair(ExecPathOf(path), ExecArgument(PathText(path)) != PathText(path));
    };
    return doubt(link()) < doubt(program) && EnsureLink(m_files, link(), program) ? link() : program;
}

/// Replaces a file if it holds anything else; whether it did.
bool FreedesktopFileTypes::writeIfOther(const Path& file, std::string_view content) {
    if (const auto old = m_files.read(file); old && old.value() == content) {
        return false;
    }
    return m_files.makeFolder(file.parent_path()) && WriteFile(m_files, file, content, Links::Replace).ok();
}

} // namespace ui::native
