// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "animation/PlacedLines.h"
#include "editing/Documents.h"
#include "games/Engines.h"
#include "glyphs/GlyphCode.h"
#include "glyphs/mdlPaint.h"
#include "glyphs/mdlSwitches.h"
#include "ui/Files.h"
#include "ui/Picture.h"
#include "ui/Platform.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace shell {

/// The store section that holds the options.
constexpr std::string_view OptionsSection = "options";

constexpr std::size_t ColourCount = 5;
constexpr std::size_t CursorCount = 4;

/// Places in Settings::colours; those behind them are the kinds' own (editing::Kind::markerColour).
enum SettingColour : std::size_t { BackgroundColour, GridMarkerColour };

/// The place of the glyph grid in Settings::cursors; those behind it are the kinds' own
/// (editing::Kind::pointer).
constexpr std::size_t GridCursor = 0;

/// The largest zoom of the grid and the pages, and the setting that takes as large a one as there is room
/// for.
constexpr int MaxZoom = 6;
constexpr int FitZoom = 0;

/// Everything that is kept between runs. A new object holds the defaults, but no screenshot and frequent
/// glyphs 0.
struct Settings {
    bool loadAtStartup = true;
    bool saveAtExit = true;
    bool bindPrompt = true; ///< offer the binding wizard after a script was saved
    bool caseChoice = true; ///< case operations change letters only
    std::array<ui::Pixel, ColourCount> colours{
        ui::OpaquePixel(0, 0, 0), ui::OpaquePixel(255, 255, 0), ui::OpaquePixel(0, 255, 0),
        ui::OpaquePixel(0, 255, 0), ui::OpaquePixel(0, 255, 0)};
    glyphs::SoundOptions sounds{true, true, true, true};
    std::string screenshot;     ///< path of the picture behind the full-screen preview; may be empty
    bool promptNames = true;    ///< ask before formatting all names
    bool promptMessages = true; ///< ask before formatting all messages
    std::int16_t charSet = 0;   ///< 0-based place of the character set in its list; unchecked
    std::array<std::int16_t, CursorCount> cursors{
        0, 2, 2, 2}; ///< 0 none, 1 arrow, 2 cross; any other is none
    std::array<glyphs::GlyphCode, 3> frequent{0, 0, 0};
    std::array<glyphs::GlyphCode, 5> favourites{16, 86, 84, 77, 17};
    editing::Modes modes;
    games::FamilyChoice games{true, true, true}; ///< that are played; kept apart from the other options
    bool showsReadout = true;                    ///< what a glyph is, under the grid; likewise
    int zoom = 1;                                ///< of grid and pages, 1 to MaxZoom, or FitZoom
    animation::PlacedLines previewLines;         ///< of the preview's screenshots; likewise
    std::int16_t makeType = 1;                   ///< page in view: 0 name, 1 animation, 2 messages

    /// caseChoice as the case operations take it.
    [[nodiscard]] glyphs::CaseChoice letterChoice() const {
        return caseChoice ? glyphs::CaseChoice::LettersOnly : glyphs::CaseChoice::AllCharacters;
    }

    /// makeType as a page.
    [[nodiscard]] editing::Page page() const { return static_cast<editing::Page>(makeType); }
};

/// A stored value that cannot be read as what its key holds.
struct UnreadableSetting {
    std::string key;
    std::string value;
};

struct LoadedSettings {
    Settings settings;
    std::vector<UnreadableSetting> unreadable; ///< each of these has its default in `settings`
};

/// The path of the screenshot that comes with the program.
[[nodiscard]] std::string DefaultScreenshot(const ui::Path& programFolder);

/// Sets everything but the frequent glyphs to its default.
void Defaults(Settings& settings, const ui::Path& programFolder);

/// Whether the stored settings are to be loaded at start; yes, if nothing (readable) is stored.
[[nodiscard]] bool LoadsAtStartup(const ui::SettingsStore& store);

/// Reads all keys; an absent or unreadable one yields its default, which is 32 for the frequent glyphs. A
/// page number that does not exist yields the animation page.
[[nodiscard]] LoadedSettings Load(const ui::SettingsStore& store, const ui::Path& programFolder);

/// Writes all keys and saves the store. A setting that has not changed since it was `loaded` keeps what the
/// store holds by now; if nothing was loaded, everything stored is overwritten.
ui::Status
Save(ui::SettingsStore& store, const Settings& settings, const std::optional<Settings>& loaded = {});

/// The place (0-based) of a character set after the one at another place was removed from the list; the first
/// one if it was that set itself.
[[nodiscard]] constexpr std::int16_t PlaceWithout(std::int16_t place, int removed) {
    if (place == removed) {
        return 0;
    }
    return place < removed ? place : static_cast<std::int16_t>(place - 1);
}

/// Lets the stored character set be the same one after another was removed from the list, and saves the
/// store if that needs another number.
ui::Status StoreCharSetRemoved(ui::SettingsStore& store, int removed);

/// One sentence that names the settings that could not be read; empty when there is none.
[[nodiscard]] std::string UnreadableSettingsText(const std::vector<UnreadableSetting>& unreadable);

/// That the whole store could not be read, and why.
[[nodiscard]] std::string UnreadableStoreText(const ui::Failure& cause);

/// A colour as it is stored: red + 256 x green + 65536 x blue.
[[nodiscard]] std::int32_t PackedColour(ui::Pixel colour);

/// The opaque pixel of a stored colour; only its lower 24 bits count.
[[nodiscard]] ui::Pixel UnpackedColour(std::int32_t packed);

} // namespace shell
