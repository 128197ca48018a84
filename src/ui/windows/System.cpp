// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/System.h"

#include "ui/windows/RawCommandLine.h"
#include "ui/windows/WideText.h"
#include "ui/windows/WindowsFile.h"

#include <cstdlib>

// The order of these matters to the system's own headers.
#include <windows.h>

#include <initguid.h>

#include <knownfolders.h>
#include <shellapi.h>
#include <shlobj.h>

namespace ui {

namespace {

Path KnownFolder(const KNOWNFOLDERID& folder) {
    wchar_t* found = nullptr;
    const HRESULT result = ::SHGetKnownFolderPath(folder, KF_FLAG_DEFAULT, nullptr, &found);
    Path path = SUCCEEDED(result) ? Path(found) : Path();
    ::CoTaskMemFree(found);
    return path;
}

} // namespace

System ThisSystem() {
    return System::Windows;
}

std::vector<std::string> Arguments(int /*argc*/, const char* const* /*argv*/) {
    // What main() is handed is in a code page that lacks most characters.
    int count = 0;
    wchar_t** words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; words != nullptr && i < count; ++i) {
        arguments.push_back(native::NarrowText(words[i]));
    }
    ::LocalFree(static_cast<HLOCAL>(words));
    return arguments;
}

std::vector<std::string> CommandLine(int /*argc*/, const char* const* /*argv*/) {
    const std::string line =
        native::NarrowText(native::WithoutProgram(::GetCommandLineW(), ExecutableFile().native()));
    return line.empty() ? std::vector<std::string>() : std::vector<std::string>{line};
}

std::string ProgramFile(std::string_view program) {
    return std::string(program) + ".exe";
}

std::string PathText(const Path& path) {
    return native::NarrowText(path.native());
}

Path PathFromText(std::string_view text) {
    return native::WideText(text);
}

Path FolderVariable(const char* name) {
    const std::wstring wideName = native::WideText(name);
    std::wstring value(::GetEnvironmentVariableW(wideName.c_str(), nullptr, 0), L'\0');
    value.resize(::GetEnvironmentVariableW(wideName.c_str(), value.data(), static_cast<DWORD>(value.size())));
    Path folder(value);
    return folder.is_absolute() ? folder : Path();
}

Path ExecutableFile() {
    constexpr std::size_t LongestPath = 32768;
    std::wstring path(LongestPath, L'\0');
    path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

Path HomeFolder() {
    return KnownFolder(FOLDERID_Profile);
}

Path DocumentsFolder() {
    return KnownFolder(FOLDERID_Documents);
}

Path SavedGamesFolder() {
    return KnownFolder(FOLDERID_SavedGames);
}

Path ConfigHome() {
    return KnownFolder(FOLDERID_RoamingAppData);
}

Path DataHome() {
    return KnownFolder(FOLDERID_RoamingAppData);
}

Path StateHome() {
    return KnownFolder(FOLDERID_LocalAppData);
}

bool IsWritableFolder(const Path& folder) {
    // Nothing is made: other programs would notice.
    const auto opened = native::OpenExisting(folder, FILE_ADD_FILE, FILE_FLAG_BACKUP_SEMANTICS);
    FILE_ATTRIBUTE_TAG_INFO tag{};
    return opened &&
           ::GetFileInformationByHandleEx(opened.get(), FileAttributeTagInfo, &tag, sizeof tag) != FALSE &&
           (tag.FileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

void PrepareTerminal() {
    // The console goes on after the program, with the code page that its other programs expect.
    static const UINT before = ::GetConsoleOutputCP();
    if (before != 0 && ::SetConsoleOutputCP(CP_UTF8) != FALSE) {
        std::atexit([] { ::SetConsoleOutputCP(before); });
    }
    constexpr DWORD TakesColours = 4; // the system's ENABLE_VIRTUAL_TERMINAL_PROCESSING
    DWORD mode = 0;
    HANDLE output = ::GetStdHandle(STD_OUTPUT_HANDLE);
    if (::GetConsoleMode(output, &mode) != FALSE) {
        ::SetConsoleMode(output, mode | TakesColours);
    }
}

std::optional<int> TerminalColumns() {
    CONSOLE_SCREEN_BUFFER_INFO screen{};
    const bool isTerminal = ::GetConsoleScreenBufferInfo(::GetStdHandle(STD_OUTPUT_HANDLE), &screen) != FALSE;
    return isTerminal ? std::optional<int>(screen.srWindow.Right - screen.srWindow.Left + 1) : std::nullopt;
}

} // namespace ui
