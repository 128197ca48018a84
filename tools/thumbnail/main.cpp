// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "thumbnail/Command.h"
#include "ui/DesktopProgramDirectory.h"
#include "ui/System.h"

#include <iostream>
#include <string>
#include <vector>

int main(int argc, char** argv) {
    ui::SurviveFileSizeLimit();
    ui::PrepareTerminal();
    const std::vector<std::string> arguments = ui::Arguments(argc, argv);
    const ui::DesktopProgramDirectory directory;
    ui::DiskFiles files(directory.spareFolder());
    return thumbnail::RunCommand(arguments, {files, directory, std::cout, std::cerr});
}
