// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/mdlKey.h"

#include "glyphs/mdlSwitches.h"

#include <algorithm>

namespace editing {

namespace {

/// Keys that follow one another both in number and in the key map.
struct KeyRange {
    int firstKey;
    int lastKey;
    std::size_t firstIndex;
};

constexpr std::array<KeyRange, 21> KeyRanges{{
    {KeyTab, KeyTab, 0},
    {KeyEnter, KeyEnter, 1},
    {KeyPause, KeyPause, 2},
    {KeyEscape, KeyEscape, 3},
    {KeySpace, KeySpace, 4},
    {KeyA, KeyZ, 5},
    {KeyDigit0, KeyDigit9, 31},
    {KeyPad0, KeyPad9, 41},
    {KeyPadMultiply, KeyPadAdd, 51},
    {KeyPadSubtract, KeyPadDivide, 53},
    {KeyF1, KeyF16, 56},
    {KeyBackquote, KeyBackquote, 72},
    {KeyMinus, KeyMinus, 73},
    {KeyEquals, KeyEquals, 74},
    {KeyOpenBracket, KeyOpenBracket, 75},
    {KeyCloseBracket, KeyCloseBracket, 76},
    {KeySemicolon, KeySemicolon, 77},
    {KeyApostrophe, KeyApostrophe, 78},
    {KeyComma, KeyComma, 79},
    {KeyPeriod, KeySlash, 80},
    {KeyBackslash, KeyBackslash, 82},
}};

constexpr std::array<int, 11> NavigationKeys{KeyEnter, KeyBackspace, KeyPageUp, KeyPageDown,
                                             KeyEnd,   KeyHome,      KeyLeft,   KeyUp,
                                             KeyRight, KeyDown,      KeyDelete};

/// The keys of the name list with Ctrl, in the order of the buttons `cmdName`.
constexpr std::array<int, 4> NameListKeys{KeyInsert, KeyDelete, KeyUp, KeyDown};

/// What the keys of the number pad are without Num Lock, from 0 to 9.
constexpr std::array<int, 10> NumberPadMoves{KeyInsert, KeyEnd,   KeyDown, KeyPageDown, KeyLeft,
                                             KeyClear,  KeyRight, KeyHome, KeyUp,       KeyPageUp};

template <class Container>
std::optional<std::size_t> IndexOf(const Container& container, int value) {
    const auto found = std::find(container.begin(), container.end(), value);
    if (found == container.end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - container.begin());
}

std::optional<std::size_t> ModeKeyIndex(int virtualKey) {
    for (std::size_t i = 0; i < ModeKeys.size(); ++i) {
        if (ModeKeys[i].virtualKey == virtualKey) {
            return i;
        }
    }
    return std::nullopt;
}

/// The key that a key of the number pad is with or without its digits.
int NumberPadKey(int virtualKey, bool typesDigits) {
    if (virtualKey == KeyPadDecimal || virtualKey == KeyDelete) {
        return typesDigits ? KeyPadDecimal : KeyDelete;
    }
    const auto digit = virtualKey >= KeyPad0 && virtualKey <= KeyPad9
                           ? std::optional(static_cast<std::size_t>(virtualKey - KeyPad0))
                           : IndexOf(NumberPadMoves, virtualKey);
    if (!digit) {
        return virtualKey;
    }
    return typesDigits ? KeyPad0 + static_cast<int>(*digit) : NumberPadMoves[*digit];
}

/// Fills the map's rows from `firstIndex` on with glyphs that follow one another.
void FillRows(
    KeyMap& map, std::size_t firstIndex, std::size_t count, GlyphCode plain,
    std::optional<GlyphCode> shifted) {
    for (std::size_t i = 0; i < count; ++i) {
        const auto step = static_cast<GlyphCode>(i);
        map[firstIndex + i][0] = static_cast<GlyphCode>(plain + step);
        if (shifted) {
            map[firstIndex + i][1] = static_cast<GlyphCode>(*shifted + step);
        }
    }
}

} // namespace

KeyMap DefaultKeyMap() {
    KeyMap map;
    map.fill({glyphs::BlankGlyph, glyphs::BlankGlyph, glyphs::BlankGlyph});
    FillRows(map, KeyIndex(KeyA), 26, 'a', 'A');
    FillRows(map, KeyIndex(KeyDigit0), 10, '0', std::nullopt);
    constexpr std::string_view ShiftedDigits = ")!@#$%^&*(";
    for (std::size_t digit = 0; digit < ShiftedDigits.size(); ++digit) {
        map[KeyIndex(KeyDigit0) + digit][1] = static_cast<unsigned char>(ShiftedDigits[digit]);
    }
    // The pad types the game's own small digits.
    FillRows(map, KeyIndex(KeyPad0), 10, 18, 18);
    FillRows(map, KeyIndex(KeyPadMultiply), 2, '*', '*');
    FillRows(map, KeyIndex(KeyPadSubtract), 3, '-', '-');
    FillRows(map, KeyIndex(KeyF1), 2, 128, std::nullopt);
    map[KeyIndex(KeyF1) + 2][0] = 131;
    map[KeyIndex(KeyF1) + 3][0] = 130;
    FillRows(map, KeyIndex(KeyF1) + 4, 3, 29, std::nullopt);

    struct Punctuation {
        int virtualKey;
        GlyphCode plain;
        GlyphCode shifted;
    };

    // Backquote and apostrophe type each other's glyphs; a double quote may not stand in a name, so the
    // shifted apostrophe types a blank.
    constexpr std::array<Punctuation, 11> PunctuationKeys{{
        {KeyBackquote, '\'', '~'},
        {KeyMinus, '-', '_'},
        {KeyEquals, '=', '+'},
        {KeyOpenBracket, '[', '{'},
        {KeyCloseBracket, ']', '}'},
        {KeySemicolon, ';', ':'},
        {KeyApostrophe, '`', glyphs::BlankGlyph},
        {KeyComma, ',', '<'},
        {KeyPeriod, '.', '>'},
        {KeySlash, '/', '?'},
        {KeyBackslash, '\\', '|'},
    }};
    for (const Punctuation& key : PunctuationKeys) {
        map[KeyIndex(key.virtualKey)] = {key.plain, key.shifted, glyphs::BlankGlyph};
    }
    return map;
}

const std::array<std::string_view, MappedKeys>& KeyNames() {
    static constexpr std::array<std::string_view, MappedKeys> Names{
        "Tab",      "Return",   "Pause",    "Escape",   "SpaceBar", "A",        "B",        "C",
        "D",        "E",        "F",        "G",        "H",        "I",        "J",        "K",
        "L",        "M",        "N",        "O",        "P",        "Q",        "R",        "S",
        "T",        "U",        "V",        "W",        "X",        "Y",        "Z",        "0",
        "1",        "2",        "3",        "4",        "5",        "6",        "7",        "8",
        "9",        "NumPad 0", "NumPad 1", "NumPad 2", "NumPad 3", "NumPad 4", "NumPad 5", "NumPad 6",
        "NumPad 7", "NumPad 8", "NumPad 9", "NumPad *", "NumPad +", "NumPad -", "NumPad .", "NumPad /",
        "F1",       "F2",       "F3",       "F4",       "F5",       "F6",       "F7",       "F8",
        "F9",       "F10",      "F11",      "F12",      "F13",      "F14",      "F15",      "F16",
        "`",        "-",        "=",        "[",        "]",        ";",        "'",        ",",
        ".",        "/",        "\\"};
    return Names;
}

bool CanType(std::size_t key, std::size_t layer) {
    constexpr std::size_t Ctrl = 2;
    return key != KeyIndex(KeyEnter) && !(key == KeyIndex(KeyPause) && layer == Ctrl);
}

std::vector<std::string> TypingKeys(const KeyMap& map, bool typesColour2, GlyphCode code) {
    constexpr std::array<std::string_view, 3> Held{"", "Shift+", "Ctrl+"};
    // Keys that bear a sign stand before Tab, Pause and Escape, which serve others as well or little.
    const std::size_t first = KeyIndex(KeySpace);
    std::vector<std::string> keys;
    for (std::size_t layer = 0; layer < Held.size(); ++layer) {
        for (std::size_t i = 0; i < map.size(); ++i) {
            const std::size_t key = (first + i) % map.size();
            const GlyphCode mapped = map[key][layer];
            const GlyphCode typed = typesColour2 ? glyphs::ToColor2Glyph(mapped) : mapped;
            if (mapped != 0 && typed == code && CanType(key, layer)) {
                keys.push_back(std::string(Held[layer]).append(KeyNames()[key]));
            }
        }
    }
    return keys;
}

std::size_t KeyIndex(int virtualKey) {
    for (const KeyRange& range : KeyRanges) {
        if (virtualKey >= range.firstKey && virtualKey <= range.lastKey) {
            return range.firstIndex + static_cast<std::size_t>(virtualKey - range.firstKey);
        }
    }
    return 0;
}

GlyphCode KeyToGlyph(const KeyMap& map, int virtualKey, bool isShifted, bool isCtrl) {
    const KeyGlyphs& row = map[KeyIndex(virtualKey)];
    if (isShifted) {
        return row[1];
    }
    return isCtrl ? row[2] : row[0];
}

void SetLockKey(ui::LockKeys& locks, int virtualKey, bool isOn) {
    if (const auto index = ModeKeyIndex(virtualKey)) {
        locks.setLocked(ModeKeys[*index].lock, isOn);
    }
}

std::optional<std::size_t> ToggleModeKey(Modes& modes, int virtualKey) {
    const auto index = ModeKeyIndex(virtualKey);
    if (index) {
        bool& flag = modes.*ModeKeys[*index].flag;
        flag = !flag;
    }
    return index;
}

KeyAction
RouteKey(const ui::KeyStroke& stroke, const Modes& modes, const KeyMap& map, NumberPadRule numberPad) {
    int key = stroke.virtualKey;
    if (key == KeyNone || key == KeyCtrl || key == KeyShift || key == KeyAlt || stroke.isAlt) {
        return {};
    }
    if (stroke.isOnNumberPad && numberPad == NumberPadRule::Mode) {
        // Shift turns a pad that types digits into one that moves the cursor.
        key = NumberPadKey(key, modes.numberPad && !stroke.isShift);
    }
    if (stroke.isCtrl) {
        if (const auto index = IndexOf(NameListKeys, key)) {
            return NameListAction{static_cast<int>(*index)};
        }
    }
    if (IndexOf(NavigationKeys, key)) {
        return NavigationAction{key};
    }
    if (std::any_of(
            ModeKeys.begin(), ModeKeys.end(), [key](const ModeKey& row) { return row.virtualKey == key; })) {
        // A held lock key would flip its mode back and forth.
        return stroke.isRepeat ? KeyAction() : ModeAction{key};
    }
    const GlyphCode code = KeyToGlyph(map, key, stroke.isShift || modes.upperCase, stroke.isCtrl);
    return code == 0 ? KeyAction() : GlyphAction{code};
}

Change NavigateKey(const PageCursor& cursor, int virtualKey) {
    switch (virtualKey) {
    case KeyPageUp:
        if (cursor.page == Page::Animation) {
            cursor.row = 1;
        }
        break;
    case KeyPageDown:
        if (cursor.page == Page::Animation) {
            cursor.row = cursor.rowsInUse;
        }
        break;
    case KeyHome:
        cursor.column = 1;
        break;
    case KeyEnd:
        cursor.column = cursor.rows.width();
        break;
    case KeyLeft:
        if (cursor.column > 1) {
            CursorLeft(cursor);
        }
        break;
    case KeyRight:
        if (cursor.column < cursor.rows.width()) {
            CursorRight(cursor);
        }
        break;
    case KeyUp:
        if (cursor.row > 1) {
            --cursor.row;
        }
        break;
    case KeyDown:
        if (cursor.row < cursor.rowsInUse) {
            ++cursor.row;
        }
        break;
    case KeyDelete:
        return DeleteGlyph(cursor);
    case KeyBackspace:
        if (cursor.column > 1) {
            CursorLeft(cursor);
            return DeleteGlyph(cursor);
        }
        break;
    case KeyEnter:
        if (cursor.rows.count() > 1) {
            NavigateKey(cursor, KeyHome);
            NavigateKey(cursor, KeyDown);
        }
        break;
    default:
        break;
    }
    return {};
}

} // namespace editing
