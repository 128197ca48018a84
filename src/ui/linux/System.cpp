// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/System.h"

#include <algorithm>
#include <cstdlib>
#include <sys/ioctl.h>
#include <system_error>
#include <unistd.h>

namespace ui {

namespace {

/// A folder of the user's: the one that the variable names, or the usual one in the home folder.
Path UserFolder(const char* variable, const char* usual) {
    Path folder = FolderVariable(variable);
    if (!folder.empty()) {
        return folder;
    }
    const Path home = HomeFolder();
    return home.empty() ? home : home / usual;
}

} // namespace

Path FolderVariable(const char* name) {
    const char* value = std::getenv(name); // NOLINT(concurrency-mt-unsafe)
    const Path folder = value != nullptr ? value : "";
    return folder.is_absolute() ? folder : Path();
}

std::string PathText(const Path& path) {
    return path.native();
}

Path PathFromText(std::string_view text) {
    return text;
}

System ThisSystem() {
    return System::Linux;
}

std::vector<std::string> Arguments(int argc, const char* const* argv) {
    return {argv + std::min(argc, 1), argv + argc};
}

std::vector<std::string> CommandLine(int argc, const char* const* argv) {
    return Arguments(argc, argv);
}

std::string ProgramFile(std::string_view program) {
    return std::string(program);
}

Path ExecutableFile() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error);
}

Path HomeFolder() {
    return FolderVariable("HOME");
}

Path DocumentsFolder() {
    return {};
}

Path SavedGamesFolder() {
    return {};
}

Path ConfigHome() {
    const Path folder = UserFolder("XDG_CONFIG_HOME", ".config");
    // A system's own user without a home has the root.
    return folder.empty() ? Path("/.config") : folder;
}

Path DataHome() {
    return UserFolder("XDG_DATA_HOME", ".local/share");
}

Path StateHome() {
    return UserFolder("XDG_STATE_HOME", ".local/state");
}

bool IsWritableFolder(const Path& folder) {
    return ::access(folder.c_str(), W_OK | X_OK) == 0;
}

void PrepareTerminal() {
    // Terminals show that by themselves.
}

std::optional<int> TerminalColumns() {
    winsize size{};
    const bool isTerminal = ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isTerminal ? std::optional<int>(size.ws_col) : std::nullopt;
}

} // namespace ui
