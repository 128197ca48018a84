// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "charset/Command.h"
#include "ui/DesktopProgramDirectory.h"
#include "ui/System.h"

#include <iostream>
#include <string>
#include <vector>

namespace {

/// How wide a picture is where the output goes to no terminal.
constexpr int WholePicture = 128;

} // namespace

int main(int argc, char** argv) {
    ui::SurviveFileSizeLimit();
    ui::PrepareTerminal();
    const std::vector<std::string> arguments = ui::Arguments(argc, argv);
    const ui::DesktopProgramDirectory directory;
    ui::DiskFiles files(directory.spareFolder());
    return charset::RunCommand(
        arguments, {files, directory, std::cout, std::cerr, ui::TerminalColumns().value_or(WholePicture)});
}
