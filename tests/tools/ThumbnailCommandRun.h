// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/PngPicture.h"
#include "support/CharSetWorld.h"
#include "support/FailingFiles.h"
#include "thumbnail/Command.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace support {

inline const std::string NameScript = "// Name File Created by Vortigo\r\nname \"x\"\r\n";
inline const std::string TwoNamesScript = "// Animation File Created by Vortigo\r\n"
                                          "// 15 Names In The Animation Sequence\r\n"
                                          "name \"first\"\r\nwait; \r\n"
                                          "name \"second\"\r\nwait; wait; \r\n";

/// Runs the command on files of its own, with two sets in a program directory of its own.
class ThumbnailCommand : public testing::Test {
protected:
    /// What terminals act on, in a name.
    static inline const std::string ActedOn = "a\x1b]0;title\a\nvtm-thumbnail: done";

    ThumbnailCommand() {
        (void)directory.files.put("vtmtc.dat", MakeSets(2).list);
        (void)directory.files.put("vtmgrid.dat", MakeSets(2).store);
    }

    int run(const std::vector<std::string>& arguments) {
        output.str("");
        errors.str("");
        return thumbnail::RunCommand(arguments, {files, directory, output, errors});
    }

    void expectRefusal(const std::vector<std::string>& arguments, const std::string& message) {
        EXPECT_EQ(run(arguments), 1);
        EXPECT_EQ(errors.str(), "vtm-thumbnail: " + message + "\n");
    }

    /// The command refuses that with one line, in which nothing is that a terminal acts on.
    void expectHarmlessRefusal(const std::vector<std::string>& arguments) {
        EXPECT_NE(run(arguments), 0);
        const std::string message = errors.str();
        EXPECT_EQ(message.find('\n'), message.size() - 1) << message;
        EXPECT_EQ(message.find_first_of("\x1b\a\r"), std::string::npos) << message;
    }

    [[nodiscard]] std::string at(const ui::Path& name) const { return ui::PathText(folder / name); }

    [[nodiscard]] ui::Picture png(const ui::Path& name) const {
        const auto picture = glyphs::DecodePng(folder.content(name));
        EXPECT_TRUE(picture) << picture.failure().message;
        return picture ? picture.value() : ui::Picture();
    }

    TempProgramDirectory directory;
    TempFolder folder;
    ui::DiskFiles disk;
    FailingFiles files{disk};
    std::ostringstream output;
    std::ostringstream errors;
};

} // namespace support
