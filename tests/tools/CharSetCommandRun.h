// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "charset/Command.h"
#include "glyphs/PngPicture.h"
#include "tools/SetsCommandRun.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace support {

/// Runs the command, with three sets in a program directory of its own.
class CharSetCommand : public SetsCommand {
protected:
    CharSetCommand()
        : SetsCommand("vtm-charset", 3) {}

    int command(const std::vector<std::string>& arguments) override {
        return charset::RunCommand(arguments, {files, directory, output, errors, 128});
    }

    /// And nothing has changed.
    void expectRefusal(const std::vector<std::string>& arguments, const std::string& message) {
        const artwork::CharSetFiles before = now();
        SetsCommand::expectRefusal(arguments, message);
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

    [[nodiscard]] artwork::CharSetFiles now() const {
        return {directory.files.content("vtmtc.dat"), directory.files.content("vtmgrid.dat")};
    }

    /// A picture file of shade 9, outside the program directory.
    std::string picture(const ui::Path& name = "set.png") {
        return ui::PathText(folder.put(name, glyphs::EncodePng(SmallArtwork(9)).value()));
    }
};

} // namespace support
