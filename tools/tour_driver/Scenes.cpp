// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "tour_driver/Scenes.h"

#include "glyphs/FieldReader.h"
#include "ui/FileWriter.h"

#include <X11/keysym.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace tour {

namespace {

constexpr const char* NameTitle = "Vortigo [Name]";
constexpr const char* AnimationTitle = "Vortigo [Animation]";
constexpr const char* MessagesTitle = "Vortigo [Messages]";
constexpr const char* BoxTitle = "Vortigo";

/// The frames around a name in the artwork: an opening and a closing bracket.
constexpr char OpeningBracket = 16;
constexpr char ClosingBracket = 17;

/// Typed letters as they are placed in colour 2.
std::string inColour2(std::string text) {
    for (char& character : text) {
        if (character > 32) {
            character = static_cast<char>(static_cast<unsigned char>(character) + 128U);
        }
    }
    return text;
}

std::string blanks(std::size_t count) {
    return std::string(count, ' ');
}

/// What the name page shows after the scene of the name.
std::string finishedName() {
    return blanks(2) + OpeningBracket + ' ' + inColour2("Vortigo") + ' ' + ClosingBracket;
}

void writeFile(const ui::Path& path, std::string_view bytes) {
    ui::DiskFiles files;
    if (const auto written = ui::WriteFile(files, path, bytes); !written) {
        throw TourFailure(written.failure().message);
    }
}

/// Answers the box that has come up with a letter of its button or, for OK, with Return.
void answer(Tour& tour, unsigned long key) {
    if (key == XK_Return) {
        tour.desktop().press(key);
    } else {
        tour.desktop().press(key, {XK_Alt_L});
    }
}

/// The rows that the wizard's first positional pattern makes of a name, read from the program's own data.
std::vector<std::string> AnimatedByFirstPattern(Tour& tour, const std::string& name) {
    const std::string data = Tour::contentOf(tour.dataFolder() / "vtmani01.dat");
    glyphs::FieldReader fields(data);
    tour.expect(fields.number().value_or(0) > 0 && fields.text().has_value(), "vtmani01.dat has no pattern");
    std::vector<std::string> rows(14, std::string(name.size(), ' '));
    for (std::string& row : rows) {
        for (char& glyph : row) {
            const int from = fields.number().value_or(0);
            glyph = from == 0 ? ' ' : name.at(static_cast<std::size_t>(from - 1));
        }
    }
    rows.push_back(name);
    return rows;
}

ui::Path settingsFile() {
    const char* home = std::getenv("XDG_CONFIG_HOME");
    return ui::Path(home == nullptr ? "" : home) / "VTM" / "VTM.ini";
}

} // namespace

void PlayFirstStart(Tour& tour) {
    tour.start(AnimationTitle);
    const auto window = tour.desktop().activeWindow();
    tour.expect(
        window && window->className == tour.desktop().classOfProgram(),
        "the window does not say whose it is");
    tour.stop("first-start");
}

void PlayName(Tour& tour) {
    Desktop& desktop = tour.desktop();
    tour.menu("vn");
    tour.expectMain(NameTitle);

    desktop.type("Vortigo");
    const Position name = tour.expectRow(inColour2("Vortigo"));
    tour.stop("name-typed");

    tour.menu("o");
    tour.stop("format-menu");
    desktop.type("c");
    tour.expectRowAt(name, blanks(4) + inColour2("Vortigo") + blanks(4));

    // Brackets from the glyph grid, at the cells that are clicked.
    const int side = tour.reader().cellSide();
    const auto clickCell = [&](int column) {
        desktop.click(name.x + (column - 1) * side + side / 2, name.y + side / 2);
    };
    clickCell(3);
    tour.clickGrid(OpeningBracket);
    tour.expectRowAt(name, blanks(2) + OpeningBracket + ' ' + inColour2("Vortigo"));
    clickCell(13);
    tour.clickGrid(ClosingBracket);
    tour.expectRowAt(name, finishedName() + blanks(2));
    tour.stop("name-framed");

    tour.menu("vf");
    desktop.type("bracket");
    tour.stop("glyph-found");
    desktop.press(XK_Escape);

    tour.menu("fsn");
    tour.stop("save-menu");
    desktop.type("s");
    tour.expectWindow("Save as a Script File");
    tour.stop("save-dialog");
    tour.chooseFile("player.vtn");
    tour.expectWindow(BoxTitle);
    tour.stop("which-game");
    answer(tour, XK_y);
    tour.expectWindow(BoxTitle);
    tour.expectFile("player.vtn", "// Name File Created by Vortigo\r\nname \"" + finishedName() + "\"\r\n");
    tour.stop("script-written");
    answer(tour, XK_Return);

    // The binding wizard is offered, and binds a key of a configuration file to the script.
    tour.expectWindow(BoxTitle);
    tour.stop("binding-offered");
    writeFile(tour.folder() / "autoexec.cfg", "bind \"q\" \"impulse 12\"\nname \"nobody\"\nsensitivity 4\n");
    answer(tour, XK_y);
    tour.expectWindow("Binding Wizard");
    desktop.press(XK_f, {XK_Alt_L});
    desktop.type((tour.folder() / "autoexec.cfg").string());
    desktop.press(XK_r, {XK_Alt_L});
    desktop.type("F4");
    tour.portrait("binding-wizard");
    desktop.press(XK_Return);
    tour.expectWindow(BoxTitle);
    tour.expectFile(
        "autoexec.cfg",
        "bind \"q\" \"impulse 12\"\nname \"nobody\"\nsensitivity 4\nbind \"F4\" \"exec player.vtn\"\r\n");
    answer(tour, XK_Return);
    tour.expectMain(NameTitle);

    // Away with the name, and back from the script.
    tour.menu("fnn");
    tour.expectRowAt(name, blanks(15));
    tour.menu("flns");
    tour.expectWindow("Select the Script file");
    tour.chooseFile("player.vtn");
    tour.expectWindow(BoxTitle);
    answer(tour, XK_Return);
    tour.expectMain(NameTitle);
    tour.expectRowAt(name, finishedName() + blanks(2));
    tour.stop("name-loaded");

    tour.menu("fsnb");
    tour.expectWindow(BoxTitle);
    tour.expect(
        desktop.clipboardText() == finishedName(), "the clipboard holds something else than the name");
    tour.stop("on-the-clipboard");
    answer(tour, XK_Return);
    tour.expectMain(NameTitle);
}

void PlayConfigurationFile(Tour& tour) {
    tour.menu("fsnc");
    tour.expectWindow("Select The CFG File To Alter");
    tour.chooseFile("autoexec.cfg");
    tour.expectWindow(BoxTitle);
    tour.expectFile(
        "autoexec.cfg", "bind \"q\" \"impulse 12\"\r\nname \"" + finishedName() +
                            "\"\r\nsensitivity 4\r\nbind \"F4\" \"exec player.vtn\"\r\n");
    answer(tour, XK_Return);
    tour.expectMain(NameTitle);
    tour.stop("configuration-updated");
}

void PlayAnimation(Tour& tour) {
    Desktop& desktop = tour.desktop();
    // The name is copied into the animation's current row, the fifteenth.
    tour.menu("ec");
    tour.menu("va");
    tour.expectMain(AnimationTitle);
    tour.menu("ep");
    const Position last = tour.expectRow(finishedName() + blanks(2));
    const int side = tour.reader().cellSide();
    const Position first{last.x, last.y - 14 * side};

    tour.menu("ta");
    tour.expectWindow("Animation Wizard");
    // Paused, the strip shows a name from the middle; playing, it would never come to rest.
    desktop.press(XK_p, {XK_Alt_L});
    tour.settle();
    desktop.press(XK_1, {XK_Alt_L});
    desktop.press(XK_Down);
    tour.portrait("animation-wizard");
    desktop.press(XK_Return);
    tour.expectMain(AnimationTitle);

    const std::vector<std::string> names = AnimatedByFirstPattern(tour, finishedName() + blanks(2));
    for (std::size_t row = 0; row < names.size(); ++row) {
        tour.expectRowAt({first.x, first.y + static_cast<int>(row) * side}, names[row]);
    }
    tour.stop("animation-built");

    tour.menu("fsas");
    tour.expectWindow("Save As");
    tour.chooseFile("animation.vta");
    tour.expectWindow(BoxTitle);
    answer(tour, XK_n);
    tour.expectWindow(BoxTitle);
    std::string script = "// Animation File Created by Vortigo\r\n// 15 Names In The Animation Sequence\r\n";
    for (const std::string& name : names) {
        script += "set name \"" + name.substr(0, name.find_last_not_of(' ') + 1) + "\"\r\nwait; wait; \r\n";
    }
    tour.expectFile("animation.vta", script);
    answer(tour, XK_Return);
    tour.expectWindow(BoxTitle);
    answer(tour, XK_n);
    tour.expectMain(AnimationTitle);
}

void PlayPreview(Tour& tour) {
    Desktop& desktop = tour.desktop();
    tour.menu("tf");
    tour.expectWindow("Full Screen Preview");
    desktop.press(XK_space);
    const auto seen = tour.expectEnlargedRow(finishedName());
    // It begins anew, where other names stand than the one it ends with.
    const auto showsLast = [&] {
        return seen.first.matches(desktop.grab(), seen.second, finishedName());
    };
    desktop.press(XK_space);
    tour.until([&] { return !showsLast(); }, "the preview to play");
    tour.snap("preview-playing");
    tour.until(showsLast, "the preview to end");
    tour.stop("preview");
    desktop.press(XK_Escape);
    tour.expectMain(AnimationTitle);
}

void PlayMessages(Tour& tour) {
    Desktop& desktop = tour.desktop();
    tour.menu("vm");
    tour.expectMain(MessagesTitle);
    desktop.type("Meet at the bridge!");
    tour.expectRow(inColour2("Meet at the bridge!"));
    desktop.press(XK_Down);
    desktop.press(XK_Home);
    desktop.type("Need some armour here");
    tour.expectRow(inColour2("Need some armour here"));
    tour.stop("messages-typed");

    tour.menu("fsms");
    tour.expectWindow("Save Messages Wizard");
    desktop.press(XK_space);
    desktop.press(XK_Tab);
    desktop.press(XK_space);
    desktop.press(XK_Tab);
    desktop.press(XK_Tab);
    desktop.press(XK_Down);
    tour.portrait("save-messages-wizard");
    desktop.press(XK_Return);
    tour.expectWindow("Save as a Script File");
    tour.chooseFile("team.vtm");
    tour.expectWindow(BoxTitle);
    tour.expectFile(
        "team.vtm", "// Macro File Created by Vortigo\r\nsay_team \"" + inColour2("Meet at the bridge!") +
                        "\"\r\nsay_team \"" + inColour2("Need some armour here") + "\"\r\n");
    answer(tour, XK_Return);
    tour.expectMain(MessagesTitle);
}

void PlayOnScreenKeyboard(Tour& tour) {
    Desktop& desktop = tour.desktop();
    desktop.press(XK_Down);
    desktop.press(XK_Home);
    desktop.typeAsShown("GG @all {1:0}");
    tour.expectRow(inColour2("GG @all {1:0}"));
}

void PlayPicker(Tour& tour) {
    constexpr char Steps = 5;
    Desktop& desktop = tour.desktop();
    // The first favourite becomes another glyph, which is copied.
    tour.clickButton(OpeningBracket, 3);
    tour.expectWindow("Pick a Glyph");
    for (int step = 0; step < Steps; ++step) {
        desktop.press(XK_Right);
    }
    tour.portrait("picker");
    desktop.press(XK_Return);
    tour.expectMain(MessagesTitle);
    tour.expectCopied(OpeningBracket + Steps);
    tour.stop("favourite-changed");
}

void PlayOptions(Tour& tour) {
    Desktop& desktop = tour.desktop();
    const auto goThroughTabs = [&](const std::vector<const char*>& tabs) {
        for (const char* tab : tabs) {
            tour.portrait(tab);
            desktop.press(XK_Tab, {XK_Control_L});
        }
    };
    tour.menu("tc");
    tour.expectWindow("Options");
    goThroughTabs({"options-other", "options-colors", "options-prompts"});
    // The tab comes first, then its list. There the second character set is chosen.
    desktop.press(XK_Tab);
    PlayAddedSet(tour);
    desktop.press(XK_Down);
    goThroughTabs({"options-conversion", "options-cursors"});
    // Down to the A, in the list of keys.
    for (int step = 0; step < 5; ++step) {
        desktop.press(XK_Down);
    }
    tour.portrait("options-keys");
    // Past what sets one key, to the button of the drawn keyboard.
    for (int step = 0; step < 5; ++step) {
        desktop.press(XK_Tab);
    }
    desktop.press(XK_space);
    tour.portrait("options-keyboard");
    desktop.press(XK_Return);
    tour.expectMain(MessagesTitle);
    tour.useCharSet(1);
    tour.expectRow(inColour2("Meet at the bridge!"));
    tour.stop("character-set-changed");
}

void PlayHelp(Tour& tour) {
    tour.menu("ha");
    tour.expectWindow("About VTM");
    tour.portrait("about");
    tour.desktop().press(XK_Escape);
    tour.expectMain(MessagesTitle);
    tour.menu("hh");
    tour.until(
        [&] {
            return Tour::contentOf(tour.folder() / "opened.url").find("/vtmhelp.htm") != std::string::npos;
        },
        "the help page to be opened");
}

void PlayExit(Tour& tour) {
    tour.menu("fx");
    tour.expect(tour.waitForExit() == 0, "the program ended with a failure");
    tour.expect(
        Tour::contentOf(settingsFile()).find("maketype=2") != std::string::npos,
        "the settings were not saved");
}

void PlaySecondStart(Tour& tour) {
    tour.start(MessagesTitle);
    tour.menu("fr");
    tour.stop("recent-names");
    tour.desktop().press(XK_Return);
    tour.expectWindow(BoxTitle);
    answer(tour, XK_Return);
    tour.expectMain(NameTitle);
    tour.expectRow(finishedName().substr(2));
    tour.stop("second-start");

    tour.menu("vz");
    tour.desktop().type("2");
    tour.settle();
    const auto enlarged = tour.expectEnlargedRow(finishedName().substr(2));
    tour.expect(enlarged.first.cellSide() == 2 * tour.reader().cellSide(), "the name is not twice as large");
    tour.stop("name-enlarged");
    tour.menu("fx");
    tour.expect(tour.waitForExit() == 0, "the program ended with a failure");
}

} // namespace tour
