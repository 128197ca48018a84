// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/DesktopProgramDirectory.h"

#include <QFile>
#include <QStandardPaths>
#include <system_error>
#include <unistd.h>

namespace ui::qt {

namespace {

/// The file that tells where the data lie: without it the program does not start.
constexpr auto MarkFile = "vtmtc.dat";

bool IsFile(const Path& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

Path FindFolder(const Path& executable) {
    const Path beside = executable.parent_path();
    const Path installed = beside.parent_path() / "share" / "vtm";
    return !IsFile(beside / MarkFile) && IsFile(installed / MarkFile) ? installed : beside;
}

Path DataHome() {
    return QFile::encodeName(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation))
        .toStdString();
}

} // namespace

DesktopProgramDirectory::DesktopProgramDirectory()
    : DesktopProgramDirectory(Executable(), DataHome()) {}

DesktopProgramDirectory::DesktopProgramDirectory(const Path& executable, const Path& dataHome)
    : m_folder(FindFolder(executable))
    , m_standIn(dataHome / "vtm")
    , m_writable(::access(m_folder.c_str(), W_OK | X_OK) == 0) {}

Path DesktopProgramDirectory::Executable() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error);
}

Path DesktopProgramDirectory::toRead(const std::string& name) const {
    if (!m_writable && IsFile(m_standIn / name)) {
        return m_standIn / name;
    }
    return m_folder / name;
}

Path DesktopProgramDirectory::toWrite(const std::string& name) const {
    if (m_writable) {
        return m_folder / name;
    }
    std::error_code error;
    std::filesystem::create_directories(m_standIn, error);
    return m_standIn / name;
}

} // namespace ui::qt
