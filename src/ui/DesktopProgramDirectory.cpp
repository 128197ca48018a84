// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/DesktopProgramDirectory.h"

#include <cstdlib>
#include <system_error>
#include <unistd.h>

namespace ui {

namespace {

/// The file that tells where the data lie: without it the program does not start.
constexpr auto MarkFile = "vtmtc.dat";

/// Whether a file is there, or may be: a file that cannot be looked at must not be taken for another one.
bool IsFile(const Path& path) {
    std::error_code error;
    const auto type = std::filesystem::status(path, error).type();
    return type == std::filesystem::file_type::regular || type == std::filesystem::file_type::none;
}

Path FindFolder(const Path& executable) {
    const Path beside = executable.parent_path();
    const Path installed = beside.parent_path() / "share" / "vtm";
    return !IsFile(beside / MarkFile) && IsFile(installed / MarkFile) ? installed : beside;
}

/// The folder that a variable names; none unless its path is absolute.
Path FolderVariable(const char* name) {
    const char* value = std::getenv(name); // NOLINT(concurrency-mt-unsafe)
    const Path folder = value != nullptr ? value : "";
    return folder.is_absolute() ? folder : Path();
}

/// A folder of the user's: the one that the variable names, or the usual one in the home folder.
Path UserFolder(const char* variable, const char* usual) {
    Path folder = FolderVariable(variable);
    if (!folder.empty()) {
        return folder;
    }
    const Path home = FolderVariable("HOME");
    return home.empty() ? home : home / usual;
}

} // namespace

DesktopProgramDirectory::DesktopProgramDirectory()
    : DesktopProgramDirectory(Executable()) {}

DesktopProgramDirectory::DesktopProgramDirectory(const Path& executable)
    : DesktopProgramDirectory(executable, UserFolder("XDG_DATA_HOME", ".local/share")) {}

DesktopProgramDirectory::DesktopProgramDirectory(const Path& executable, const Path& dataHome)
    : m_folder(FindFolder(executable))
    , m_standIn(dataHome.empty() ? dataHome : dataHome / "vtm")
    , m_writable(::access(m_folder.c_str(), W_OK | X_OK) == 0) {}

Path DesktopProgramDirectory::StateFolder() {
    const Path home = UserFolder("XDG_STATE_HOME", ".local/state");
    return home.empty() ? home : home / "vtm";
}

Path DesktopProgramDirectory::Executable() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error);
}

Path DesktopProgramDirectory::spareFolder() const {
    return m_writable ? m_folder : m_standIn;
}

Path DesktopProgramDirectory::toRead(const std::string& name) const {
    if (!m_writable && !m_standIn.empty() && IsFile(m_standIn / name)) {
        return m_standIn / name;
    }
    return m_folder / name;
}

Path DesktopProgramDirectory::toWrite(const std::string& name) const {
    if (m_writable || m_standIn.empty()) {
        return m_folder / name;
    }
    std::error_code error;
    std::filesystem::create_directories(m_standIn, error);
    return m_standIn / name;
}

} // namespace ui
