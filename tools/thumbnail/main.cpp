// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "thumbnail/Command.h"
#include "ui/DesktopProgramDirectory.h"

#include <iostream>
#include <string>
#include <vector>

int main(int argc, char** argv) {
    ui::SurviveFileSizeLimit();
    const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    const ui::DesktopProgramDirectory directory;
    ui::DiskFiles files(directory.spareFolder());
    return thumbnail::RunCommand(arguments, {files, directory, std::cout, std::cerr});
}
