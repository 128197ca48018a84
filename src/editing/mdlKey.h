// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/mdlCommon.h"
#include "ui/KeyStroke.h"
#include "ui/Platform.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace editing {

using enum ui::VirtualKey;

constexpr std::size_t MappedKeys = 83;

/// The glyphs of one key: typed alone, with Shift or in case mode, with Ctrl.
using KeyGlyphs = std::array<GlyphCode, 3>;

/// What every key types, by key index 0 to 82; glyph 0 types nothing. Row 0 (Tab) also serves every key that
/// has no row.
using KeyMap = std::array<KeyGlyphs, MappedKeys>;

[[nodiscard]] KeyMap DefaultKeyMap();

/// The names of the keys in the order of their rows, as the options dialog lists them.
[[nodiscard]] const std::array<std::string_view, MappedKeys>& KeyNames();

/// Whether a place of the key map ever types: Enter moves the cursor, and Pause with Ctrl is another key.
[[nodiscard]] bool CanType(std::size_t key, std::size_t layer);

/// The keys that type a glyph in the present typing colour, as people read them ("Shift+7"): those alone
/// first, then with Shift, then with Ctrl.
[[nodiscard]] std::vector<std::string> TypingKeys(const KeyMap& map, bool typesColour2, GlyphCode code);

/// The row of a key.
[[nodiscard]] std::size_t KeyIndex(int virtualKey);

/// The glyph that a key types; Shift goes before Ctrl.
[[nodiscard]] GlyphCode KeyToGlyph(const KeyMap& map, int virtualKey, bool isShifted, bool isCtrl);

/// A mode, the lock key that toggles it and the lock that mirrors it, in the order of the buttons `cmdKey`.
struct ModeKey {
    int virtualKey;
    ui::LockKey lock;
    bool Modes::*flag;
};

constexpr std::array<ModeKey, 4> ModeKeys{{
    {KeyScrollLock, ui::LockKey::Scroll, &Modes::typingColour},
    {KeyInsert, ui::LockKey::Insert, &Modes::insert},
    {KeyCapsLock, ui::LockKey::Caps, &Modes::upperCase},
    {KeyNumLock, ui::LockKey::Num, &Modes::numberPad},
}};

/// Sets the lock of a lock key, as far as the desktop lets a program do so; other keys have none.
void SetLockKey(ui::LockKeys& locks, int virtualKey, bool isOn);

/// Flips the mode of a lock key; the index of its button, or nothing when it is no lock key.
std::optional<std::size_t> ToggleModeKey(Modes& modes, int virtualKey);

struct NameListAction {
    int index; ///< of the button `cmdName`: 0 insert, 1 delete, 2 move up, 3 move down
    friend bool operator==(const NameListAction&, const NameListAction&) = default;
};

struct NavigationAction {
    int virtualKey;
    friend bool operator==(const NavigationAction&, const NavigationAction&) = default;
};

struct ModeAction {
    int virtualKey;
    friend bool operator==(const ModeAction&, const ModeAction&) = default;
};

struct GlyphAction {
    GlyphCode code; ///< as the key map has it: never 0, the typing colour not applied
    friend bool operator==(const GlyphAction&, const GlyphAction&) = default;
};

/// What a key stroke in the main window means; std::monostate: nothing is to be done.
using KeyAction = std::variant<std::monostate, NameListAction, NavigationAction, ModeAction, GlyphAction>;

/// Who says whether the number pad types digits or moves the cursor.
enum class NumberPadRule {
    Desktop, ///< the key stroke itself: the mode is mirrored by the real Num Lock
    Mode,    ///< the number-pad mode: the real Num Lock is out of reach
};

/// What a key stroke means. Changes nothing.
[[nodiscard]] KeyAction
RouteKey(const ui::KeyStroke& stroke, const Modes& modes, const KeyMap& map, NumberPadRule numberPad);

/// Does what a navigation key does on a page: moves its cursor, or removes a glyph.
Change NavigateKey(const PageCursor& cursor, int virtualKey);

} // namespace editing
