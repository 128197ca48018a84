// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/InChild.h"

#include "ui/Files.h"
#include "ui/windows/WideText.h"

#include <array>
#include <cstdlib>
#include <gtest/gtest.h>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>
#include <windows.h>

namespace support {

namespace {

constexpr auto FoldersVariable = "VTM_TEST_FOLDERS"; // how the names of the first process's folders begin
constexpr auto NumberVariable = "VTM_TEST_CHILD";    // which of the test's processes is started
constexpr DWORD Patience = 60000;                    // milliseconds

std::optional<std::string> Told(const char* variable) {
    const char* value = std::getenv(variable); // NOLINT(concurrency-mt-unsafe)
    return value == nullptr ? std::nullopt : std::optional<std::string>(value);
}

/// How many processes the test has started before this one; nothing in the first process.
std::optional<std::size_t> Before() {
    const auto told = Told(NumberVariable);
    return told ? std::optional<std::size_t>(std::stoul(*told)) : std::nullopt;
}

/// A test while it runs. Both processes count alike what it makes.
struct Run {
    const testing::TestInfo* test = nullptr;
    testing::TimeInMillis start = 0;
    std::string name; ///< how the names of its folders begin
    int folders = 0;
    std::vector<HANDLE> children; ///< null: of the first process, while the test is begun anew
};

Run& ThisRun() {
    static Run run;
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    const auto start = test == nullptr ? 0 : test->result()->start_timestamp();
    if (run.name.empty() || run.test != test || run.start != start) {
        const auto told = test == nullptr ? std::nullopt : Told(FoldersVariable);
        run = {
            .test = test,
            .start = start,
            .name = told.value_or("vtm-test-" + ui::RandomName()),
            .folders = 0,
            .children = {}};
    }
    return run;
}

ui::Path FolderOf(const Run& run, int number) {
    return std::filesystem::temp_directory_path() / ui::PathFromText(run.name + "-" + std::to_string(number));
}

/// Another name of a folder, where the new process does not come by.
ui::Path Aside(const ui::Path& folder) {
    ui::Path aside = folder;
    return aside += ".aside";
}

void PutAside(const Run& run) {
    for (int number = 0; number < run.folders; ++number) {
        if (const ui::Path folder = FolderOf(run, number); std::filesystem::exists(folder)) {
            std::filesystem::rename(folder, Aside(folder));
        }
    }
}

void PutBack(const Run& run) {
    for (int number = 0; number < run.folders; ++number) {
        const ui::Path folder = FolderOf(run, number);
        if (const ui::Path aside = Aside(folder); std::filesystem::exists(aside)) {
            std::filesystem::rename(aside, folder);
        }
    }
}

/// What one process tells the other.
class Signal {
public:
    Signal(const Run& run, const std::string& name)
        : m_event(::CreateEventW(nullptr, TRUE, FALSE, ui::native::WideText(run.name + name).c_str())) {}

    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;
    Signal(Signal&&) = delete;
    Signal& operator=(Signal&&) = delete;

    ~Signal() { ::CloseHandle(m_event); }

    [[nodiscard]] HANDLE event() const { return m_event; }

private:
    HANDLE m_event;
};

/// One for each process: the one before may not have let go of its own yet.
std::string There(const Run& run) {
    return "-there-" + std::to_string(run.children.size());
}

/// One for all processes of a test, which work at the same time.
Signal& Go(const Run& run) {
    static std::optional<Signal> go;
    static std::string name;
    if (name != run.name) {
        name = run.name;
        go.emplace(run, "-go");
    }
    return *go;
}

/// The test that runs now, begun anew.
HANDLE StartAnew(const Run& run) {
    std::array<wchar_t, 1024> program{};
    ::GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
    std::wstring command =
        L'"' + std::wstring(program.data()) + L"\" --gtest_filter=" +
        ui::native::WideText(std::string(run.test->test_suite_name()) + '.' + run.test->name());
    ::SetEnvironmentVariableA(FoldersVariable, run.name.c_str());
    ::SetEnvironmentVariableA(NumberVariable, std::to_string(run.children.size()).c_str());
    STARTUPINFOW start{};
    start.cb = sizeof start;
    // Without handles for it, its output goes nowhere.
    start.dwFlags = STARTF_USESTDHANDLES;
    PROCESS_INFORMATION process{};
    const BOOL isStarted = ::CreateProcessW(
        nullptr, command.data(), nullptr, nullptr, FALSE, DETACHED_PROCESS, nullptr, nullptr, &start,
        &process);
    ::SetEnvironmentVariableA(FoldersVariable, nullptr);
    ::SetEnvironmentVariableA(NumberVariable, nullptr);
    if (isStarted == FALSE) {
        throw std::runtime_error("the test program cannot be started");
    }
    ::CloseHandle(process.hThread);
    return process.hProcess;
}

HANDLE Start(const Run& run) {
    const Signal there(run, There(run));
    ::ResetEvent(Go(run).event());
    PutAside(run);
    const HANDLE process = StartAnew(run);
    const std::array<HANDLE, 2> either{there.event(), process};
    const DWORD came = ::WaitForMultipleObjects(either.size(), either.data(), FALSE, Patience);
    EXPECT_EQ(came, WAIT_OBJECT_0) << "the test took another way when it was begun anew";
    return process;
}

[[noreturn]] void GoOn(const Run& run, const std::function<int()>& what) {
    for (int folder = 0; folder < run.folders; ++folder) {
        std::filesystem::remove_all(FolderOf(run, folder));
    }
    const HANDLE go = Go(run).event();
    ::SetEvent(Signal(run, There(run)).event());
    ::WaitForSingleObject(go, Patience);
    std::_Exit(what());
}

} // namespace

Child StartChild(const std::function<int()>& run) {
    Run& now = ThisRun();
    const auto before = Before();
    if (before && now.children.size() == *before) {
        GoOn(now, run);
    }
    now.children.push_back(before ? nullptr : Start(now));
    return static_cast<Child>(now.children.size() - 1);
}

int EndOf(Child child) {
    const Run& run = ThisRun();
    const HANDLE process = run.children[static_cast<std::size_t>(child)];
    if (process == nullptr) {
        return 0;
    }
    PutBack(run);
    ::SetEvent(Go(run).event());
    EXPECT_EQ(::WaitForSingleObject(process, Patience), WAIT_OBJECT_0);
    DWORD code = 0;
    ::GetExitCodeProcess(process, &code);
    ::CloseHandle(process);
    return static_cast<int>(code);
}

int ChildrenBefore() {
    Run& run = ThisRun();
    run.children.resize(Before().value_or(run.children.size()));
    return static_cast<int>(run.children.size());
}

void EndByForce() {
    ::TerminateProcess(::GetCurrentProcess(), static_cast<UINT>(EndedByForce));
    ::Sleep(INFINITE);
    std::abort();
}

std::string NextFolderName() {
    Run& run = ThisRun();
    return run.name + "-" + std::to_string(run.folders++);
}

} // namespace support
