// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/windows/RawCommandLine.h"

#include <algorithm>
#include <string>
#include <windows.h>

namespace ui::native {

namespace {

constexpr std::wstring_view Blanks = L" \t";

/// Whether a command line begins with that path, as a whole word.
bool BeginsWith(std::wstring_view commandLine, std::wstring_view program) {
    const std::size_t size = program.size();
    if (size == 0 || commandLine.size() < size ||
        (commandLine.size() > size && Blanks.find(commandLine[size]) == std::wstring_view::npos)) {
        return false;
    }
    const std::wstring begin(commandLine.substr(0, size));
    return ::CompareStringOrdinal(begin.c_str(), -1, std::wstring(program).c_str(), -1, TRUE) == CSTR_EQUAL;
}

std::size_t EndOfProgram(std::wstring_view commandLine, std::wstring_view program) {
    if (commandLine.starts_with(L'"')) {
        const std::size_t quote = commandLine.find(L'"', 1);
        return quote == std::wstring_view::npos ? commandLine.size() : quote + 1;
    }
    return BeginsWith(commandLine, program) ? program.size()
                                            : std::min(commandLine.find_first_of(Blanks), commandLine.size());
}

} // namespace

std::wstring_view WithoutProgram(std::wstring_view commandLine, std::wstring_view program) {
    std::wstring_view rest = commandLine.substr(EndOfProgram(commandLine, program));
    rest.remove_prefix(std::min(rest.find_first_not_of(Blanks), rest.size()));
    return rest.substr(0, rest.find_last_not_of(Blanks) + 1);
}

} // namespace ui::native
