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

/// A file that takes what a program writes.
class Written {
public:
    explicit Written(ui::Path path)
        : m_path(std::move(path)) {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        m_file = ::CreateFileW(
            m_path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_NEW, FILE_ATTRIBUTE_NORMAL,
            nullptr);
        EXPECT_NE(m_file, INVALID_HANDLE_VALUE) << m_path;
    }

    Written(const Written&) = delete;
    Written& operator=(const Written&) = delete;
    Written(Written&&) = delete;
    Written& operator=(Written&&) = delete;

    ~Written() { ::CloseHandle(m_file); }

    [[nodiscard]] HANDLE file() const { return m_file; }

    [[nodiscard]] std::string text() const {
        std::string text = FileContent(m_path);
        std::erase(text, '\r');
        return text;
    }

private:
    ui::Path m_path;
    HANDLE m_file = INVALID_HANDLE_VALUE;
};

/// A word of a command line, which holds no quotes: backslashes before one would be for the quote.
std::wstring Quoted(const std::wstring& word) {
    const std::size_t after = word.find_last_not_of(L'\\') + 1;
    return L'"' + word + std::wstring(word.size() - after, L'\\') + L'"';
}

/// Runs a command line; its exit status, or -1 where it cannot be run or does not end.
int StatusOf(std::wstring command, const Written& output, const Written& errors) {
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = output.file();
    start.hStdError = errors.file();
    PROCESS_INFORMATION process{};
    if (::CreateProcessW(
            nullptr, command.data(), nullptr, nullptr, TRUE, DETACHED_PROCESS, nullptr, nullptr, &start,
            &process) == FALSE) {
        return -1;
    }
    if (::WaitForSingleObject(process.hProcess, LongestRun) != WAIT_OBJECT_0) {
        ADD_FAILURE() << "the program does not end";
        ::TerminateProcess(process.hProcess, static_cast<UINT>(-1));
        ::WaitForSingleObject(process.hProcess, LongestRun);
    }
    DWORD code = 0;
    ::GetExitCodeProcess(process.hProcess, &code);
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
    return static_cast<int>(code);
}

} // namespace

ToolRun RunProgram(const ui::Path& program, const std::vector<std::string>& arguments) {
    const TempFolder folder;
    const Written output(folder / "output");
    const Written errors(folder / "errors");
    std::wstring command = Quoted(program.native());
    for (const std::string& argument : arguments) {
        command += L' ' + Quoted(ui::native::WideText(argument));
    }
    ToolRun run;
    run.exitCode = StatusOf(std::move(command), output, errors);
    run.output = output.text();
    run.errors = errors.text();
    return run;
}

} // namespace support
