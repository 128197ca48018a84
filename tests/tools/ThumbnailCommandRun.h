// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/PngPicture.h"
#include "thumbnail/Command.h"
#include "tools/SetsCommandRun.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace support {

inline const std::string NameScript = "// Name File Created by Vortigo\r\nname \"x\"\r\n";
inline const std::string TwoNamesScript = "// Animation File Created by Vortigo\r\n"
                                          "// 15 Names In The Animation Sequence\r\n"
                                          "name \"first\"\r\nwait; \r\n"
                                          "name \"second\"\r\nwait; wait; \r\n";

/// Runs the command on files of its own, with two sets in a program directory of its own.
class ThumbnailCommand : public SetsCommand {
protected:
    ThumbnailCommand()
        : SetsCommand("vtm-thumbnail", 2) {}

    int command(const std::vector<std::string>& arguments) override {
        return thumbnail::RunCommand(arguments, {files, directory, output, errors});
    }

    [[nodiscard]] std::string at(const ui::Path& name) const { return ui::PathText(folder / name); }

    [[nodiscard]] ui::Picture png(const ui::Path& name) const {
        const auto picture = glyphs::DecodePng(folder.content(name));
        EXPECT_TRUE(picture) << picture.failure().message;
        return picture ? picture.value() : ui::Picture();
    }
};

} // namespace support
