// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "charset/Command.h"
#include "ui/DesktopProgramDirectory.h"

#include <iostream>
#include <string>
#include <sys/ioctl.h>
#include <unistd.h>
#include <vector>

namespace {

/// The width of the terminal that the output goes to; of a whole picture when it goes elsewhere.
int TerminalColumns() {
    constexpr int WholePicture = 128;
    winsize size{};
    const bool isTerminal = ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isTerminal ? size.ws_col : WholePicture;
}

} // namespace

int main(int argc, char** argv) {
    ui::SurviveFileSizeLimit();
    const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    const ui::DesktopProgramDirectory directory;
    ui::DiskFiles files(directory.spareFolder());
    return charset::RunCommand(arguments, {files, directory, std::cout, std::cerr, TerminalColumns()});
}
