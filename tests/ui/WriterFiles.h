// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/FailingFiles.h"
#include "support/TempProgramDirectory.h"

#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

namespace support {

inline const std::string Old = "old content\r\n";
inline const std::string New = "old new\xFF content, which is longer\r\n";

inline std::ptrdiff_t EntriesIn(const TempFolder& folder) {
    return std::distance(std::filesystem::directory_iterator(folder.path()), {});
}

/// Where files lie that are written in different ways.
class Writer : public testing::Test {
protected:
    TempFolder folder;
    TempFolder spare;
    ui::DiskFiles disk{spare.path()};
    FailingFiles files{disk};
    ui::Path path = folder / "a.vtn";

    void putOld() const { folder.put("a.vtn", Old); }

    /// A file that is written over, as it has two names.
    void putWithTwoNames() const {
        putOld();
        std::filesystem::create_hard_link(path, folder / "b.vtn");
    }

    [[nodiscard]] std::string content() const { return folder.content("a.vtn"); }

    /// The only copy in a folder; fails the test when there is none or there are more.
    static std::string copyIn(const TempFolder& place) {
        std::vector<ui::Path> copies;
        for (const auto& entry : std::filesystem::directory_iterator(place.path())) {
            const auto extension = entry.path().extension();
            if (ui::PathText(entry.path().filename()).starts_with("vtm-copy-") && extension != ".note" &&
                extension != ".told") {
                copies.push_back(entry.path().filename());
            }
        }
        EXPECT_EQ(copies.size(), 1U);
        return copies.size() == 1 ? ui::PathText(copies[0]) : "";
    }
};

} // namespace support
