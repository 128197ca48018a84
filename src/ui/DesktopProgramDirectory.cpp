// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/DesktopProgramDirectory.h"

#include "ui/System.h"

#include <system_error>

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

} // namespace

DesktopProgramDirectory::DesktopProgramDirectory()
    : DesktopProgramDirectory(ExecutableFile()) {}

DesktopProgramDirectory::DesktopProgramDirectory(const Path& executable)
    : DesktopProgramDirectory(executable, DataHome()) {}

DesktopProgramDirectory::DesktopProgramDirectory(const Path& executable, const Path& dataHome)
    : m_folder(FindFolder(executable))
    , m_standIn(dataHome.empty() ? dataHome : dataHome / "vtm")
    , m_writable(IsWritableFolder(m_folder)) {}

Path DesktopProgramDirectory::StateFolder() {
    const Path home = StateHome();
    return home.empty() ? home : home / "vtm";
}

Path DesktopProgramDirectory::spareFolder() const {
    return m_writable ? m_folder : m_standIn;
}

Path DesktopProgramDirectory::toRead(const std::string& name) const {
    const Path file = PathFromText(name);
    return !m_writable && !m_standIn.empty() && IsFile(m_standIn / file) ? m_standIn / file : m_folder / file;
}

Path DesktopProgramDirectory::toWrite(const std::string& name) const {
    if (m_writable || m_standIn.empty()) {
        return m_folder / PathFromText(name);
    }
    std::error_code error;
    std::filesystem::create_directories(m_standIn, error);
    return m_standIn / PathFromText(name);
}

} // namespace ui
