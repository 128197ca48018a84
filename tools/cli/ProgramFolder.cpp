// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "cli/ProgramFolder.h"

#include "glyphs/mdlData.h"

#include <cstdlib>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace cli {

namespace {

bool IsFile(const ui::Path& path) {
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

bool IsWritable(const ui::Path& folder) {
    return ::access(folder.c_str(), W_OK | X_OK) == 0;
}

/// The folder of the variable if it is an absolute path.
ui::Path FolderVariable(const char* name) {
    const char* value = std::getenv(name); // NOLINT(concurrency-mt-unsafe)
    const ui::Path folder = value != nullptr ? value : "";
    return folder.is_absolute() ? folder : ui::Path();
}

ui::Path DataHome() {
    const ui::Path dataHome = FolderVariable("XDG_DATA_HOME");
    if (!dataHome.empty()) {
        return dataHome;
    }
    const ui::Path home = FolderVariable("HOME");
    return home.empty() ? home : home / ".local" / "share";
}

ui::Path FindFolder(const ui::Path& executable) {
    const ui::Path beside = executable.parent_path();
    const ui::Path installed = beside.parent_path() / "share" / "vtm";
    // The character sets tell where the data lie: without them the program does not start.
    return !IsFile(beside / glyphs::CharSetListName) && IsFile(installed / glyphs::CharSetListName)
               ? installed
               : beside;
}

} // namespace

ProgramFolder ProgramFolder::OfThisCommand() {
    std::error_code error;
    return {std::filesystem::read_symlink("/proc/self/exe", error), DataHome()};
}

ProgramFolder::ProgramFolder(const ui::Path& executable, const ui::Path& dataHome)
    : m_folder(FindFolder(executable))
    , m_standIn(dataHome.empty() ? ui::Path() : dataHome / "vtm")
    , m_writable(IsWritable(m_folder)) {}

ProgramFolder::ProgramFolder(ui::Path folder)
    : m_folder(std::move(folder))
    , m_writable(IsWritable(m_folder)) {}

ui::Path ProgramFolder::toRead(const std::string& name) const {
    if (!m_writable && !m_standIn.empty() && IsFile(m_standIn / name)) {
        return m_standIn / name;
    }
    return m_folder / name;
}

ui::Path ProgramFolder::toWrite(const std::string& name) const {
    if (m_writable || m_standIn.empty()) {
        return m_folder / name;
    }
    // Where the folder cannot be made, writing in it says why.
    std::error_code error;
    std::filesystem::create_directories(m_standIn, error);
    return m_standIn / name;
}

} // namespace cli
