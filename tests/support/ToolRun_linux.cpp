// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/TempProgramDirectory.h"
#include "support/ToolRun.h"

#include <cstdlib>
#include <sys/wait.h>

namespace support {

ToolRun RunProgram(const ui::Path& program, const std::vector<std::string>& arguments) {
    const TempFolder folder;
    const ui::Path output = folder / "output";
    const ui::Path errors = folder / "errors";
    std::string command = "'" + program.native() + "'";
    for (const std::string& argument : arguments) {
        command += " '" + argument + "'";
    }
    command += " >'" + output.native() + "' 2>'" + errors.native() + "'";
    // The tests of a program run one after the other, so nobody else changes the environment meanwhile.
    const int status = std::system(command.c_str()); // NOLINT(concurrency-mt-unsafe)
    ToolRun run;
    run.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    run.output = FileContent(output);
    run.errors = FileContent(errors);
    return run;
}

} // namespace support
