// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "check/Command.h"
#include "ui/System.h"

#include <iostream>
#include <string>
#include <vector>

int main(int argc, char** argv) {
    ui::PrepareTerminal();
    const std::vector<std::string> arguments = ui::Arguments(argc, argv);
    const ui::DiskFiles files;
    return check::RunCommand(arguments, {files, std::cout, std::cerr});
}
