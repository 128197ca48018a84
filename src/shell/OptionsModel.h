// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/mdlKey.h"
#include "glyphs/mdlData.h"
#include "shell/Settings.h"
#include "ui/Dialogs.h"
#include "ui/Platform.h"

#include <array>
#include <cstddef>
#include <string>

namespace shell {

/// The pages of the options dialog, in the order of its tabs.
enum class OptionsPage : std::size_t { Other, Colours, Prompts, CharSets, Cursors, KeyMapping };

constexpr std::size_t OptionsPageCount = 6;

/// What the window has to do after options were applied.
struct AppliedOptions {
    bool colours = false; ///< the markers have new colours
    bool cursors = false; ///< the pages have new mouse pointers
    bool glyphs = false;  ///< the glyphs are drawn anew: grid, pages and glyph buttons
    bool keyMap = false;  ///< the key map goes into its file

    friend bool operator==(const AppliedOptions&, const AppliedOptions&) = default;
};

/// The options dialog's copy of the settings and which of its pages the user has changed. Every setter marks
/// its page as changed.
class OptionsModel {
public:
    OptionsModel(const Settings& settings, const glyphs::CharSetRecord& charSet)
        : m_settings(settings)
        , m_charSet(charSet) {}

    [[nodiscard]] const Settings& settings() const { return m_settings; }

    [[nodiscard]] const glyphs::CharSetRecord& charSet() const { return m_charSet; }

    [[nodiscard]] bool isChanged(OptionsPage page) const { return m_changed[static_cast<std::size_t>(page)]; }

    void setCaseChoice(bool value);
    void setScreenshot(const std::string& path);
    void setSound(std::size_t index, bool value);
    void setSaveAtExit(bool value);
    void setLoadAtStartup(bool value);

    void setColour(std::size_t index, ui::Pixel colour);

    void setPromptNames(bool value);
    void setPromptMessages(bool value);
    void setBindPrompt(bool value);

    /// Chooses the character set at a place (0-based) of the list.
    void setCharSet(int listIndex, const glyphs::CharSetRecord& record);

    /// Chooses the character set in use, at a place (0-based) of the list, as if no other had been chosen.
    void returnToCharSet(std::int16_t place, const glyphs::CharSetRecord& record);

    /// A mouse pointer: 0 none of its own, 1 arrow, 2 cross.
    void setCursor(std::size_t index, std::int16_t style);

    /// Puts a glyph into the key map itself; the page counts as changed only if the glyph is another one.
    void setKeyGlyph(editing::KeyMap& map, std::size_t key, std::size_t column, glyphs::GlyphCode code);

    /// Copies the changed pages, and only those, to the settings and the character set in use.
    [[nodiscard]] AppliedOptions applyTo(Settings& settings, glyphs::CharSetRecord& charSet) const;

private:
    void markChanged(OptionsPage page) { m_changed[static_cast<std::size_t>(page)] = true; }

    Settings m_settings;
    glyphs::CharSetRecord m_charSet;
    std::array<bool, OptionsPageCount> m_changed{};
};

/// What to tell when a character set that was chosen cannot be read: the one before stays "chosen" or "in
/// use". Takes the names as the records hold them.
[[nodiscard]] std::string CharSetStaysText(
    const std::string& chosen, const std::string& before, const char* stays, const ui::Failure& cause);

/// How the file chooser for the screenshot is opened. A relative path belongs to the program's folder.
[[nodiscard]] ui::FileDialogRequest
ScreenshotRequest(const std::string& screenshot, const ui::Path& programFolder);

} // namespace shell
