// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "scripts/ConfigRewrite.h"
#include "support/FailingFiles.h"
#include "support/TempProgramDirectory.h"

#include <gtest/gtest.h>
#include <iterator>
#include <string>

namespace support {

inline const std::string Before = "bind a b\nname \"old\"\n" + std::string(5000, 'x') + "\nlast";
inline const std::string After = scripts::ReplaceLine(Before, 2, "name \"new and longer\"");

/// A configuration file that a line of is replaced.
class ConfigWorld : public testing::Test {
protected:
    TempProgramDirectory directory;
    TempFolder game;
    ui::DiskFiles disk;
    FailingFiles files{disk};
    ui::Path path = game.put("config.cfg", Before);
    ui::Path copy = directory.folder() / "tempfile.cfg";

    /// Gives the file a second name, so that it is written over.
    void giveTwoNames() const { std::filesystem::create_hard_link(path, game / "other.cfg"); }

    ui::Result<scripts::Rewritten> rewrite() {
        return scripts::RewriteConfig(files, directory, path, Before, After);
    }

    std::string content() { return game.content("config.cfg"); }

    bool copyIsWhole() { return disk.exists(copy) && directory.files.content("tempfile.cfg") == Before; }

    bool fileIsWhole() { return content() == Before || content() == After; }

    /// Whether nothing but the file lies in the game's folder.
    bool isTidy() {
        const auto names = std::distance(std::filesystem::directory_iterator(game.path()), {});
        return names == (game.has("other.cfg") ? 2 : 1);
    }

    /// Starts again with the file as it was and nothing beside the program.
    void reset() {
        files.failNothing();
        for (const auto& entry : std::filesystem::directory_iterator(directory.folder())) {
            std::filesystem::remove(entry.path());
        }
        game.put("config.cfg", Before);
    }

    std::string untouched(const std::string& cause) {
        return cause + "\nThe config file, " + ui::PathText(path) + ", was not changed.";
    }
};

} // namespace support
