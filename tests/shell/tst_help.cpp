// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/mdlKey.h"
#include "games/RowVerdict.h"
#include "glyphs/GlyphWords.h"
#include "glyphs/LookAlikes.h"
#include "shell/AltKeys.h"
#include "ui/Files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <sstream>

namespace {

const ui::Path ProgramFolder = VTM_PROGRAM_DIR;

std::string page() {
    return ui::DiskFiles().read(ProgramFolder / "vtmhelp.htm").value();
}

/// What a reader sees: no tags, entities decoded, all white space one blank.
std::string text(std::string html) {
    if (const auto body = html.find("<body>"); body != std::string::npos) {
        html.erase(0, body);
    }
    html = std::regex_replace(html, std::regex("</?(i|b|em|kbd|code|a|span)\\b[^>]*>"), "");
    html = std::regex_replace(html, std::regex("<[^>]*>"), " ");
    for (const auto& [entity, character] : std::vector<std::pair<const char*, const char*>>{
             {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}}) {
        html = std::regex_replace(html, std::regex(entity), character);
    }
    return std::regex_replace(html, std::regex("\\s+"), " ");
}

/// All that a pattern's first group matches.
std::vector<std::string> matches(const std::string& html, const std::string& pattern) {
    const std::regex expression(pattern);
    std::vector<std::string> found;
    for (std::sregex_iterator match(html.begin(), html.end(), expression); match != std::sregex_iterator();
         ++match) {
        found.push_back((*match)[1]);
    }
    return found;
}

void expectAllIn(const std::string& shown, const std::vector<std::string>& wanted) {
    for (const auto& one : wanted) {
        EXPECT_NE(shown.find(one), std::string::npos) << one;
    }
}

/// The codes of a list like "1-9 11".
std::vector<int> codesOf(const std::string& list) {
    std::vector<int> codes;
    std::istringstream words(list);
    for (std::string word; words >> word;) {
        const int first = std::stoi(word);
        const std::size_t dash = word.find('-');
        const int last = dash == std::string::npos ? first : std::stoi(word.substr(dash + 1));
        for (int code = first; code <= last; ++code) {
            codes.push_back(code);
        }
    }
    return codes;
}

/// What the page says of a glyph between two others, as the verdict on the three is.
std::string tellingOf(const games::RowVerdict& verdict, int code) {
    using games::Reason;
    const std::map<Reason, std::string> refusals{
        {Reason::Unnamed, "the server calls you <em>unnamed</em>"},
        {Reason::BadInfo, "the server calls you <em>badinfo</em>"},
        {Reason::ServerRefuses, "the server refuses the name"},
        {Reason::UnlessTurned, "the server refuses the name, except from ezQuake"},
        {Reason::GameRefuses, "the game refuses the name"},
        {Reason::NotSent, "the game does not send the name"},
        {Reason::EndsQuotes, "the name breaks off"},
        {Reason::RestIsRun, "the name ends there, the rest is run as a command"}};
    if (const auto refusal = refusals.find(verdict.reason); refusal != refusals.end()) {
        return refusal->second;
    }
    switch (verdict.fates[1]) {
    case games::Fate::Lost:
        return "the name ends there";
    case games::Fate::Dropped:
        return verdict.fates[2] == games::Fate::Changed ? "gone; the next glyph gets the second color"
                                                        : "left out";
    case games::Fate::Changed:
        return code == 160 ? "an ordinary blank" : "shown in the first color";
    default:
        return "kept";
    }
}

} // namespace

TEST(Help, ExplainsEveryMessage) {
    expectAllIn(
        text(page()),
        {
            "Do you wish to format all names?",
            "Do you wish to format all macros?",
            "Is this animation to be used in Quake2?",
            "Is this name to be used in Quake2?",
            "Done! The script file, path, was written.",
            "Error reading animation from path.",
            "Done! path was read succesfully.",
            ("The Animation Data file/s needed by VTM 'vtmani01.dat or vtmani02.dat' is not in the programs "
             "directory! Automatic animation has been disabled."),
            "Nothing to do!",
            ("There is no screen shot chosen to display. Please go to the options and select a new screen "
             "shot."),
            ("The chosen screen shot, file, was not found in the VTM directory. Please go to the options and "
             "select a new screen shot."),
            "Would you like to use the Binding Wizard to bind the script file you just saved?",
            "Error reading name from path.",
            ("Your name is now in the Windows Clipboard. Place the cursor anywhere you can Paste or "
             "Shift-Insert to use your new name. Like the Profile Name of GameSpy."),
            "This config file does not contain a name.",
            "Done! The name was read from the config file.",
            "Done! The config file, path, was updated with your new name.",
            "This config file does not contain a name. Do you wish to add it?",
            "Done! Your name was added to the config file, path.",
            "You need to select at least 1 message to display!",
            "Error retrieving Macro from script file.",
            "Please select a config file!",
            "Please select a script file!",
            "Please select a key!",
            "You have selected a key that is already bound! VTM will now replace it with your binding, OK?",
            "Done! The config file, path, was updated with your new binding.",
            ("The file \"vtmhelp.htm\" was not found in the VTM directory. This is the help file. It is "
             "included in the zip, \"vtmhelp.zip\". Please unzip it and place the files in the VTM "
             "directory!"),
            "Are you sure you wish to reset the current configuration?",
            ("The file \"vtmhelp.htm\" was not found in the VTM directory. Either download it from the VTM "
             "website or use your internet browser to locate it on your hard drive."),
            "File not found",
            "Path not found",
            "Access denied",
            "Out of memory",
            "Invalid EXE file or error in EXE image",
            "A sharing violation occurred",
            "Incomplete or invalid file association",
            "DDE Time out",
            "DDE transaction failed",
            "DDE busy",
            "No association for file extension",
            "DLL not found",
            "Unknown error",
        });
}

TEST(Help, TellsWhatBecomesOfAConfiguration) {
    expectAllIn(
        text(page()), {
                          "Quit the game first",
                          "all of them end with CR LF afterwards",
                          "A carriage return alone, in a file whose lines end with line feeds, ends no line",
                          "if the last line has no line end, your name is joined to it",
                          "write their keys without quotes. VTM lists such keys as free",
                          "The key ESC is in the list, but games do not know it by this name.",
                      });
}

TEST(Help, ExplainsTheMessagesAboutFiles) {
    expectAllIn(
        text(page()),
        {
            "The file \"path\" is not a script of this kind. Do you wish to replace it?",
            "The config file, path, has more than 32,767 lines. VTM cannot handle it.",
            "There is no such file yet.",
            "This file cannot be changed.",
            "This file cannot be read.",
            "There is no such file.",
            "This is a folder.",
            "This is not a file.",
            "This is a script, not a config file.",
            "This file writes keys without quotes: its n bound keys are listed as free",
            "Games cannot run a script with a blank in its file name.",
            "Some games cannot run a script with a ( in its file name.",
            "Some games run no script with more than 27 characters before its extension.",
            "Line n will be replaced: line",
            "A line will be added",
            "A line will be added; line n binds this key too and stays",
            "A file with one line will be made",
            "Line n has no line end: your name will be joined to it",
            "This file has more than 32,767 lines and cannot be changed",
            "Line n was read: line",
            ("Could not alter \"path\": VTM needs a file of this name for itself. Please copy it to another "
             "name first."),
            "Another program has just changed the file.",
            "The config file, path, was not changed.",
            ("The config file, path, may be incomplete now. It was copied before, and the whole copy is kept "
             "as "
             "\"path\"."),
            "The config file, path, was put back as it was.",
            "The config file, path, holds the new line, but that may not be on the disk yet.",
            ("\"path\" may be incomplete: VTM was ended while it wrote the file. What it held before is kept "
             "whole as \"path\"."),
            ("\"path\" may be incomplete: writing it did not end well. What it held before is kept whole as "
             "\"path\". Please put that back, or delete it, and try again."),
            "The damaged key map \"path\" is not replaced: too many others are kept.",
            "The file was put back as it was.",
            "The file holds what was to be written, but that may not be on the disk yet.",
            "The file may be incomplete now. What it held before is kept whole as \"path\".",
            "\"path\" was not changed, as no copy of it could be made first.",
            "Could not open \"path\": it is a link of another user.",
            "Could not lock \"path\": another program is writing it.",
            "Ctrl+key typed a blank. What keys type is set in Tools > Configure > Key Mapping.",
            "The command line names no script. Write it like this: vtm \" /name my.vtn\"",
            "The character set \"name\" cannot be read; \"name\" is shown instead.",
            "VTM was not closed at time. What stood on its pages then can be restored.",
            "What is on the pages is not kept for after a crash: reason",
            "It would become too large.",
            "An older copy is kept as \"path\".",
            "VTM cannot start, because no character set can be read.",
            ("The character set \"name\" cannot be read, so the program ends. The next start takes the first "
             "one that can be read, \"name\"."),
            "The character set \"name\" cannot be read, so \"name\" stays chosen.",
            "The character set \"name\" cannot be read, so \"name\" stays in use.",
            ("The keys type what you chose, but only until the program ends: the key map could not be "
             "stored."),
            "Your options were not saved: the next start has those of before.",
            "Automatic animation has been disabled, because its patterns cannot be read.",
            "Your settings cannot be read, so the defaults are used and the file is left as it is.",
            "Every key types its default glyph, because the key map cannot be used.",
            "Before the options replace it, it is kept as \"path\".",
            "The key map \"path\" is damaged:",
            "The character-set list \"path\" holds no record.",
            "The artwork store \"path\" has no slot",
            "Slot number of the artwork store \"path\" is not a usable GIF picture:",
            "Could not write the settings \"path\".",
            "Could not open \"path\":",
            "Could not read \"path\":",
            "Could not write \"path\":",
            "Could not create \"path\":",
            "Could not delete \"path\":",
            "Could not replace \"path\":",
            "Could not lock \"path\":",
            "The name is longer than 15 glyphs; the first 15 were read.",
            "A message is longer than 31 glyphs; its first 31 were read.",
            "A stored setting could not be read, its default is used:",
            "\"path\" was written: w x h pixels, n seconds.",
            "The clipboard holds this text: text",
            "The clipboard holds a picture of w x h pixels.",
            "n glyphs pasted. No room was left for m glyphs. No glyph looks like characters",
            "The clipboard holds no text for glyphs.",
        });
}

TEST(Help, ShowsWhatEveryKeyTypes) {
    const auto rows = matches(page(), "<tr><td>(<kbd>[^]*?)</tr>");
    std::set<std::string> shown;
    for (const auto& row : rows) {
        // Without the words of the glyphs.
        shown.insert(text(std::regex_replace(row, std::regex("<i class[^]*?</i>"), "") + " "));
    }
    const auto map = editing::DefaultKeyMap();
    const auto& names = editing::KeyNames();
    for (std::size_t key = 0; key < map.size(); ++key) {
        std::string expected(names[key]);
        for (const auto code : map[key]) {
            expected += " " + std::to_string(code);
        }
        EXPECT_TRUE(shown.contains(expected + " ")) << expected;
    }
}

/// A glyph that the page shows, with its words.
struct ShownGlyph {
    glyphs::GlyphCode code;
    std::string words;
};

/// The glyphs that a part of the page shows.
std::vector<ShownGlyph> glyphsOf(const std::string& html) {
    const std::regex pattern("<i class=\"g\" style=\"--x:(\\d+);--y:(\\d+)\">([^<]*)</i>");
    std::vector<ShownGlyph> found;
    for (std::sregex_iterator match(html.begin(), html.end(), pattern); match != std::sregex_iterator();
         ++match) {
        const int code = std::stoi((*match)[1]) + 16 * std::stoi((*match)[2]);
        found.push_back({static_cast<glyphs::GlyphCode>(code), text((*match)[3])});
    }
    return found;
}

TEST(Help, ShowsTheGlyphOfEveryCodeInTheKeyTable) {
    const auto cells = matches(page(), "(<i class=\"g\" style=\"[^\"]*\">[^<]*</i> \\d+)");
    EXPECT_EQ(cells.size(), 3 * editing::MappedKeys);
    for (const auto& cell : cells) {
        EXPECT_EQ(glyphsOf(cell).at(0).code, std::stoi(cell.substr(cell.rfind(' '))));
    }
}

TEST(Help, ShowsTheLookAlikesOfGlyphs) {
    const std::string html = page();
    const std::regex row("<tr data-looks=\"([^\"]*)\"><td>([^]*?)</td><td>([^<]*)</td>");
    std::set<int> shown;
    for (std::sregex_iterator match(html.begin(), html.end(), row); match != std::sregex_iterator();
         ++match) {
        std::string signs;
        std::vector<glyphs::GlyphCode> codes;
        for (const int code : codesOf((*match)[1])) {
            codes.push_back(static_cast<glyphs::GlyphCode>(code));
            signs += (signs.empty() ? "" : " ") + glyphs::LookAlikeText(std::span(codes).last(1));
            shown.insert(code);
        }
        EXPECT_EQ((*match)[3], signs);
        const std::vector<ShownGlyph> pictures = glyphsOf((*match)[2]);
        EXPECT_TRUE(std::ranges::equal(pictures, codes, {}, &ShownGlyph::code)) << (*match)[1];
    }
    for (int code = 0; code <= 131; ++code) {
        const char32_t sign = glyphs::LookAlikeOf(static_cast<glyphs::GlyphCode>(code));
        EXPECT_EQ(shown.contains(code), sign != U' ' && sign != static_cast<char32_t>(code)) << code;
    }
}

TEST(Help, HasWordsForEveryGlyphThatItShows) {
    const std::string html = page();
    const std::string body = html.substr(html.find("</header>"));
    const std::regex row("<span class=\"row\">[^]*?</span>");
    std::size_t count = 0;
    for (std::sregex_iterator match(body.begin(), body.end(), row); match != std::sregex_iterator();
         ++match) {
        // A row reads as it would be typed.
        for (const auto& [code, words] : glyphsOf(match->str())) {
            EXPECT_EQ(words, glyphs::ReadableRow(std::vector{code})) << code;
            ++count;
        }
    }
    for (const auto& [code, words] : glyphsOf(std::regex_replace(body, row, ""))) {
        const std::string name = glyphs::GlyphName(code);
        EXPECT_EQ(words, name.substr(name.starts_with("code ") ? name.find(", ") + 2 : 0)) << code;
        ++count;
    }
    EXPECT_GT(count, 3 * editing::MappedKeys);
    EXPECT_EQ(matches(body, "(class=\"row\" aria-hidden)").size(), 0U);
}

TEST(Help, TellsOfEveryCommandAndOption) {
    expectAllIn(
        text(page()), {
                          "File New",
                          "File Open",
                          "File Save",
                          "Switch To Name",
                          "Switch To Animate",
                          "Switch To Messages",
                          "Edit > Cut",
                          "Edit > Copy",
                          "File > Export",
                          "Edit > Copy As Text",
                          "Edit > Copy As Picture",
                          "Edit > Paste Text",
                          "Edit > Paste",
                          "Align Left",
                          "Align Center",
                          "Align Right",
                          "Upper To Lower Case",
                          "Lower To Upper Case",
                          "Switch Case",
                          "Color1 To Color2",
                          "Color2 To Color1",
                          "Switch Color",
                          "Reverse Name Order",
                          "Reverse Character Order",
                          "Tools > Animation Wizard",
                          "Tools > Full Screen Preview",
                          "Tools > Binding Wizard",
                          "Tools > Configure",
                          "Help > About VTM",
                          "Help > VTM Help",
                          "File > Exit",
                          "File > Load > Name > From Config File",
                          "File > Save > Name > To A Config File",
                          "File > Save > Name > To Clipboard",
                          "Save Messages Wizard",
                          "Convert all characters upper-lower on format",
                          "Ranking Screen Shot",
                          "When hitting key",
                          "When selecting name, animated name, macro",
                          "When Previewing Animation",
                          "When formatting",
                          "Save Settings When Quitting",
                          "Load Settings From Last Session At Startup",
                          "Prompt For Names",
                          "Prompt For Messages",
                          "Prompt For Binding When Saving Script Files",
                          "Conversion List",
                          "Key Mapping",
                          "Ctrl+Insert",
                          "Ctrl+Delete",
                          "Ctrl+Up",
                          "Ctrl+Down",
                          "Scroll Lock",
                          "Num Lock",
                          "Caps Lock",
                      });
}

TEST(Help, TellsOfTheCommandsThatComeWithTheProgram) {
    expectAllIn(
        text(page()), {
                          "vtm-charset add \"My Quake\" ~/quake/id1/pak0.pak",
                          "vtm-charset --help",
                          "vtm-check clan.vtn",
                          "vtm-thumbnail clan.vtn clan.png",
                          "vtm-thumbnail wave.vta --animate wave.gif",
                      });
}

TEST(Help, TellsWhatGamesMakeOfEveryGlyph) {
    const std::string html = page();
    const std::regex row(
        "<tr data-codes=\"([0-9 -]+)\"><td>.*?</td><td>(.*?)</td><td>(.*?)</td><td>(.*?)</td></tr>");
    std::set<int> told;
    for (std::sregex_iterator match(html.begin(), html.end(), row), end; match != end; ++match) {
        for (const int code : codesOf((*match)[1])) {
            EXPECT_TRUE(told.insert(code).second) << code;
            for (const games::Family family : games::Families) {
                const std::vector<glyphs::GlyphCode> name{'a', static_cast<glyphs::GlyphCode>(code), 'b'};
                const auto verdict = games::JudgeName(family, games::Audience::Others, name);
                EXPECT_EQ(tellingOf(verdict, code), (*match)[2 + static_cast<std::size_t>(family)])
                    << code << " in " << games::NameOf(family);
            }
        }
    }
    EXPECT_EQ(told.size(), 256U);
}

TEST(Help, TellsOfEveryKeyWithAlt) {
    // A row may stand for several: "Alt+1 to Alt+5".
    const std::string shown = text(page());
    for (const shell::AltKey& key : shell::AltKeys()) {
        const std::string keys(key.keys);
        const bool isWithin =
            keys.ends_with('2') || keys.ends_with('3') || keys.ends_with('4') || keys.ends_with('7');
        if (!keys.empty() && !isWithin) {
            EXPECT_NE(shown.find(keys + " "), std::string::npos) << keys;
        }
    }
    EXPECT_NE(shown.find("Alt+Shift+1 to Alt+Shift+5"), std::string::npos);
}

TEST(Help, ShowsThePictureOfEveryToolbarButton) {
    const std::string html = page();
    for (const auto& [key, caption] : std::vector<std::pair<std::string, std::string>>{
             {"fnew", "File New"},
             {"fopen", "File Open"},
             {"fsave", "File Save"},
             {"sname", "Switch To Name"},
             {"sani", "Switch To Animate"},
             {"smess", "Switch To Messages"},
             {"cut", "Cut"},
             {"copy", "Copy"},
             {"paste", "Paste"},
             {"aleft", "Align Left"},
             {"acenter", "Align Center"},
             {"aright", "Align Right"},
             {"lcase", "Upper To Lower Case"},
             {"ucase", "Lower To Upper Case"},
             {"scase", "Switch Case"},
             {"color1", "Color2 To Color1"},
             {"color2", "Color1 To Color2"},
             {"scolor", "Switch Color"},
             {"revorder", "Reverse Name Order"},
             {"revchar", "Reverse Character Order"},
             {"wiz", "Animation Wizard"},
             {"view", "Full Screen Preview"},
             {"config", "Configure"},
             {"about", "About VTM"},
             {"help", "VTM Help"},
         }) {
        const std::string picture = "vtmhelp/" + key + ".png";
        EXPECT_NE(
            html.find("src=\"" + picture + "\" width=\"24\" height=\"24\" alt=\"\"> " + caption + "</td>"),
            std::string::npos)
            << key;
        EXPECT_TRUE(std::filesystem::exists(ProgramFolder / picture)) << key;
    }
}

TEST(Help, EveryLinkWithinThePageLeadsSomewhere) {
    const std::string html = page();
    const auto ids = matches(html, "\\bid=\"([^\"]+)\"");
    const std::set<std::string> places(ids.begin(), ids.end());
    EXPECT_EQ(places.size(), ids.size()) << "an id is used twice";
    const auto links = matches(html, "href=\"([^\"]+)\"");
    EXPECT_GT(links.size(), 30U);
    for (const auto& link : links) {
        ASSERT_TRUE(link.starts_with('#')) << link << " leads out of the page";
        EXPECT_TRUE(places.contains(link.substr(1))) << link;
    }
}

TEST(Help, EveryChapterIsInTheContents) {
    const std::string html = page();
    const std::string contents = html.substr(html.find("<nav"), html.find("</nav>") - html.find("<nav"));
    const auto chapters = matches(html, "<h2 id=\"([^\"]+)\"");
    EXPECT_GT(chapters.size(), 20U);
    for (const auto& chapter : chapters) {
        EXPECT_NE(contents.find("href=\"#" + chapter + "\""), std::string::npos) << chapter;
    }
}

TEST(Help, TheGlyphsLieBesideThePage) {
    const auto glyphs = matches(page(), "url\\(([^)]+)\\)");
    ASSERT_FALSE(glyphs.empty());
    for (const auto& file : glyphs) {
        const auto bytes = ui::DiskFiles().read(ProgramFolder / file);
        ASSERT_TRUE(bytes) << file;
        EXPECT_TRUE(bytes.value().starts_with("GIF8")) << file;
    }
}

TEST(Help, EveryPictureLiesBesideThePage) {
    const auto pictures = matches(page(), "src=\"([^\"]+)\"");
    EXPECT_FALSE(pictures.empty());
    if (!std::filesystem::exists(VTM_SCREENSHOTS_DIR)) {
        GTEST_SKIP() << "the pictures of the windows have not been taken";
    }
    for (const auto& picture : pictures) {
        EXPECT_TRUE(std::filesystem::exists(ProgramFolder / picture)) << picture;
    }
}
