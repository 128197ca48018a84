// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/Files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>
#include <string>

namespace {

const ui::Path Sources = VTM_SOURCE_DIR;
const ui::Path Root = Sources.parent_path();

void expectSpelled(const std::string& shown, const std::string& where) {
    for (const char* word :
         {"colour", "Colour", "favourite", "Favourite", "grey", "Grey", "centre", "Centre", "licence"}) {
        const std::size_t at = shown.find(word);
        EXPECT_EQ(at, std::string::npos)
            << where << ": " << shown.substr(at < 60 ? 0 : std::min(at - 60, shown.size()), 120);
    }
}

std::string contentOf(const ui::Path& file) {
    return ui::DiskFiles().read(file).value();
}

/// Expects it of what `text` finds in the files below a folder; returns how many texts that were.
int expectAllSpelled(const ui::Path& folder, const std::string& extension, const std::regex& text) {
    int count = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.path().extension() != extension) {
            continue;
        }
        const std::string content = contentOf(entry.path());
        for (std::sregex_iterator found(content.begin(), content.end(), text);
             found != std::sregex_iterator(); ++found) {
            for (std::size_t group = 1; group < found->size(); ++group) {
                expectSpelled((*found)[group], entry.path().filename().string());
            }
            ++count;
        }
    }
    return count;
}

} // namespace

TEST(Spelling, IsOneInTheHelpTheFormsAndThePages) {
    expectSpelled(contentOf(ui::Path(VTM_PROGRAM_DIR) / "vtmhelp.htm"), "the help page");
    EXPECT_GT(expectAllSpelled(Sources, ".ui", std::regex("<string>([^<]*)</string>")), 50);
    EXPECT_GT(expectAllSpelled(Root / "share", ".1", std::regex("(.+)")), 100);
    EXPECT_GT(expectAllSpelled(Root / "share", ".in", std::regex("(.+)")), 20);
    for (const char* page : {"README.md", "CHANGELOG.md", "share/CMakeLists.txt"}) {
        expectSpelled(contentOf(Root / page), page);
    }
}

TEST(Spelling, IsTheSameInTheTextsOfTheSources) {
    // Comments, includes and characters by themselves are passed over.
    const std::regex text(
        R"re(//.*|#include.*|'(?:[^'\\\n]|\\.)'|R"\(([\s\S]*?)\)"|"((?:[^"\\\n]|\\.)*)")re");
    int count = expectAllSpelled(Sources, ".cpp", text) + expectAllSpelled(Sources, ".h", text);
    for (const char* command : {"charset", "check", "thumbnail"}) {
        count += expectAllSpelled(Root / "tools" / command, ".cpp", text);
    }
    EXPECT_GT(count, 500);
}
