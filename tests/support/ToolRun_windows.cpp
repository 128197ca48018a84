// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/TempProgramDirectory.h"
#include "support/ToolRun.h"
#include "ui/windows/WideText.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <windows.h>

namespace support {

namespace {

constexpr DWORD LongestRun = 60000; // milliseconds

/// Runs a command line; its exit status, or -1 where it cannot be run.
int StatusOf(std::wstring command, HANDLE errors) {
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdError = errors;
    PROCESS_INFORMATION process{};
    if (::CreateProcessW(
            nullptr, command.data(), nullptr, nullptr, TRUE, DETACHED_PROCESS, nullptr, nullptr, &start,
            &process) == FALSE) {
        return -1;
    }
    EXPECT_EQ(::WaitForSingleObject(process.hProcess, LongestRun), WAIT_OBJECT_0);
    DWORD code = 0;
    ::GetExitCodeProcess(process.hProcess, &code);
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
    return static_cast<int>(code);
}

} // namespace

ToolRun RunProgram(const ui::Path& program, const std::vector<std::string>& arguments) {
    const TempFolder folder;
    const ui::Path file = folder / "errors";
    std::wstring command = L'"' + program.native() + L'"';
    for (const std::string& argument : arguments) {
        command += L" \"" + ui::native::WideText(argument) + L'"';
    }
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const HANDLE errors = ::CreateFileW(
        file.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    ToolRun run;
    run.exitCode = StatusOf(std::move(command), errors);
    ::CloseHandle(errors);
    run.errors = FileContent(file);
    std::erase(run.errors, '\r');
    return run;
}

} // namespace support
