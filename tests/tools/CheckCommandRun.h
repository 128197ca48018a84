// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "check/Command.h"
#include "support/TempProgramDirectory.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace support {

inline const std::string NameHead = "// Name File Created by Vortigo\r\n";

/// Runs the command on files of its own.
class CheckCommand : public testing::Test {
protected:
    /// What terminals act on, in the name of a file and in a line of a script.
    static inline const std::string ActedOnFile = "a\x1b]0;title\a\n.vtn";
    static inline const std::string ActedOnLine = "name \"\x1B[31m\x9B\x07 \xC1\"\r\n";

    int run(const std::vector<std::string>& arguments) {
        output.str("");
        errors.str("");
        return check::RunCommand(arguments, {files, output, errors});
    }

    /// A file with that content; its path.
    std::string file(const std::string& name, const std::string& content) {
        return ui::PathText(folder.put(name, content));
    }

    /// A text holds nothing that a terminal acts on.
    static void expectHarmless(const std::string& text) {
        EXPECT_EQ(text.find_first_of("\x1b\a\r\x9B"), std::string::npos) << text;
    }

    TempFolder folder;
    ui::DiskFiles files;
    std::ostringstream output;
    std::ostringstream errors;
};

} // namespace support
