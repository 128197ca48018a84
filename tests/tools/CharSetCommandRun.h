// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "charset/Command.h"
#include "glyphs/PngPicture.h"
#include "support/CharSetWorld.h"
#include "support/FailingFiles.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace support {

/// Runs the command, with three sets in a program directory of its own.
class CharSetCommand : public testing::Test {
protected:
    /// What terminals act on, in a name.
    static inline const std::string ActedOn = "a\x1b]0;title\a\nvtm-charset: done";

    CharSetCommand() {
        (void)directory.files.put("vtmtc.dat", MakeSets(3).list);
        (void)directory.files.put("vtmgrid.dat", MakeSets(3).store);
    }

    int run(const std::vector<std::string>& arguments) {
        output.str("");
        errors.str("");
        return charset::RunCommand(arguments, {files, directory, output, errors, 128});
    }

    void expectRefusal(const std::vector<std::string>& arguments, const std::string& message) {
        const artwork::CharSetFiles before = now();
        EXPECT_EQ(run(arguments), 1);
        EXPECT_EQ(errors.str(), "vtm-charset: " + message + "\n");
        EXPECT_EQ(output.str(), "");
        EXPECT_EQ(now(), before);
    }

    void expectWrongUsage(const std::vector<std::string>& arguments) {
        const artwork::CharSetFiles before = now();
        EXPECT_EQ(run(arguments), 2);
        EXPECT_NE(errors.str(), "");
        EXPECT_EQ(output.str(), "");
        EXPECT_EQ(now(), before);
    }

    /// The command refuses that with one line, in which nothing is that a terminal acts on.
    void expectHarmlessRefusal(const std::vector<std::string>& arguments) {
        EXPECT_NE(run(arguments), 0);
        const std::string message = errors.str();
        EXPECT_EQ(message.find('\n'), message.size() - 1) << message;
        EXPECT_EQ(message.find_first_of("\x1b\a\r"), std::string::npos) << message;
    }

    [[nodiscard]] artwork::CharSetFiles now() const {
        return {directory.files.content("vtmtc.dat"), directory.files.content("vtmgrid.dat")};
    }

    /// A picture file of shade 9, outside the program directory.
    std::string picture(const ui::Path& name = "set.png") {
        return ui::PathText(folder.put(name, glyphs::EncodePng(SmallArtwork(9)).value()));
    }

    TempProgramDirectory directory;
    TempFolder folder;
    ui::DiskFiles disk;
    FailingFiles files{disk};
    std::ostringstream output;
    std::ostringstream errors;
};

} // namespace support
