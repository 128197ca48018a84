// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/CharSetWorld.h"
#include "support/FailingFiles.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace support {

/// Runs a command that uses character sets, with some in a program directory of its own.
class SetsCommand : public testing::Test {
protected:
    /// `name`: what the command calls itself.
    SetsCommand(const std::string& name, unsigned sets)
        : prefix(name + ": ")
        , actedOn("a\x1b]0;title\a\n" + name + ": done") {
        (void)directory.files.put("vtmtc.dat", MakeSets(sets).list);
        (void)directory.files.put("vtmgrid.dat", MakeSets(sets).store);
    }

    /// Its exit status; what it has written replaces what is in `output` and `errors`.
    int run(const std::vector<std::string>& arguments) {
        output.str("");
        errors.str("");
        return command(arguments);
    }

    virtual int command(const std::vector<std::string>& arguments) = 0;

    void expectRefusal(const std::vector<std::string>& arguments, const std::string& message) {
        EXPECT_EQ(run(arguments), 1);
        EXPECT_EQ(errors.str(), prefix + message + "\n");
    }

    /// The command refuses that with one line, in which nothing is that a terminal acts on.
    void expectHarmlessRefusal(const std::vector<std::string>& arguments) {
        EXPECT_NE(run(arguments), 0);
        const std::string message = errors.str();
        EXPECT_EQ(message.find('\n'), message.size() - 1) << message;
        EXPECT_EQ(message.find_first_of("\x1b\a\r"), std::string::npos) << message;
    }

    const std::string prefix;
    const std::string actedOn; ///< what terminals act on, in a name
    TempProgramDirectory directory;
    TempFolder folder;
    ui::DiskFiles disk;
    FailingFiles files{disk};
    std::ostringstream output;
    std::ostringstream errors;
};

} // namespace support
