// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/KeyboardLayout.h"

#include "editing/mdlKey.h"

#include <algorithm>
#include <cstdlib>
#include <initializer_list>

namespace editing {

namespace {

constexpr int PadLeft = 62; // half a key behind the others
constexpr int FirstRow = 5; // the function keys stand apart

/// Puts keys side by side.
class KeyRow {
public:
    KeyRow(std::vector<DrawnKey>& keys, int left, int top)
        : m_keys(keys)
        , m_left(left)
        , m_top(top) {}

    KeyRow& gap(int width) {
        m_left += width;
        return *this;
    }

    KeyRow& mapped(std::string_view cap, int virtualKey, int width = KeyQuarters) {
        return add(cap, DrawnKeyUse::Mapped, width, KeyIndex(virtualKey));
    }

    /// Letters, digits and signs, which bear their names.
    KeyRow& mapped(std::initializer_list<int> virtualKeys) {
        for (const int virtualKey : virtualKeys) {
            mapped(KeyNames()[KeyIndex(virtualKey)], virtualKey);
        }
        return *this;
    }

    /// `count` keys from a virtual key on, with their names without the first `skipped` characters.
    KeyRow& run(int virtualKey, int count, std::size_t skipped = 0) {
        for (int i = 0; i < count; ++i) {
            mapped(KeyNames()[KeyIndex(virtualKey + i)].substr(skipped), virtualKey + i);
        }
        return *this;
    }

    KeyRow& add(std::string_view cap, DrawnKeyUse use, int width, std::size_t key = 0) {
        m_keys.push_back({m_left, m_top, width, KeyQuarters, cap, use, key});
        return gap(width);
    }

private:
    std::vector<DrawnKey>& m_keys;
    int m_left;
    int m_top;
};

std::vector<DrawnKey> MakeKeyboard() {
    constexpr std::size_t PadWord = std::string_view("NumPad ").size();
    constexpr auto None = DrawnKeyUse::None;
    constexpr auto Shift = DrawnKeyUse::Shift;
    constexpr auto Ctrl = DrawnKeyUse::Ctrl;
    constexpr auto RowAt = [](int row) {
        return FirstRow + row * KeyQuarters;
    };
    constexpr auto Letter = [](char letter) {
        return KeyA + (letter - 'A');
    };
    std::vector<DrawnKey> keys;
    KeyRow(keys, 0, 0)
        .mapped("Esc", KeyEscape)
        .gap(1)
        .run(KeyF1, 4)
        .gap(1)
        .run(KeyF1 + 4, 4)
        .gap(1)
        .run(KeyF1 + 8, 4)
        .gap(0)
        .mapped("Pause", KeyPause, 5);
    KeyRow(keys, PadLeft, 0).run(KeyF13, 4);

    KeyRow(keys, 0, RowAt(0))
        .mapped({KeyBackquote})
        .run(KeyDigit0 + 1, 9)
        .mapped({KeyDigit0, KeyMinus, KeyEquals})
        .add("Back", None, 8);
    KeyRow(keys, PadLeft, RowAt(0))
        .add("Num", None, KeyQuarters)
        .mapped("/", KeyPadDivide)
        .mapped("*", KeyPadMultiply)
        .mapped("-", KeyPadSubtract);

    KeyRow second(keys, 0, RowAt(1));
    second.mapped("Tab", KeyTab, 6);
    for (const char letter : std::string_view("QWERTYUIOP")) {
        second.mapped({Letter(letter)});
    }
    second.mapped({KeyOpenBracket, KeyCloseBracket}).mapped("\\", KeyBackslash, 6);
    KeyRow(keys, PadLeft, RowAt(1)).run(KeyPad0 + 7, 3, PadWord).mapped("+", KeyPadAdd);
    keys.back().height = 2 * KeyQuarters;

    KeyRow third(keys, 0, RowAt(2));
    third.add("Caps", None, 7);
    for (const char letter : std::string_view("ASDFGHJKL")) {
        third.mapped({Letter(letter)});
    }
    third.mapped({KeySemicolon, KeyApostrophe}).mapped("Enter", KeyEnter, 9);
    KeyRow(keys, PadLeft, RowAt(2)).run(KeyPad0 + 4, 3, PadWord);

    KeyRow fourth(keys, 0, RowAt(3));
    fourth.add("Shift", Shift, 9);
    for (const char letter : std::string_view("ZXCVBNM")) {
        fourth.mapped({Letter(letter)});
    }
    fourth.mapped({KeyComma, KeyPeriod, KeySlash}).add("Shift", Shift, 11);
    KeyRow(keys, PadLeft, RowAt(3)).run(KeyPad0 + 1, 3, PadWord).add("Enter", None, KeyQuarters);
    keys.back().height = 2 * KeyQuarters;

    KeyRow(keys, 0, RowAt(4))
        .add("Ctrl", Ctrl, 6)
        .add("", None, 5)
        .add("Alt", None, 5)
        .mapped("Space", KeySpace, 25)
        .add("Alt", None, 5)
        .add("", None, 5)
        .gap(3)
        .add("Ctrl", Ctrl, 6);
    KeyRow(keys, PadLeft, RowAt(4)).mapped("0", KeyPad0, 2 * KeyQuarters).mapped(".", KeyPadDecimal);
    return keys;
}

/// Twice the middle of a key, which is a whole number.
int MiddleX(const DrawnKey& key) {
    return 2 * key.left + key.width;
}

int MiddleY(const DrawnKey& key) {
    return 2 * key.top + key.height;
}

} // namespace

const std::vector<DrawnKey>& KeyboardKeys() {
    static const std::vector<DrawnKey> keys = MakeKeyboard();
    return keys;
}

int KeyboardWidth() {
    return PadLeft + 4 * KeyQuarters;
}

int KeyboardHeight() {
    return FirstRow + 5 * KeyQuarters;
}

std::size_t DrawnKeyOf(std::size_t key) {
    const auto& keys = KeyboardKeys();
    const auto found = std::find_if(keys.begin(), keys.end(), [key](const DrawnKey& drawn) {
        return drawn.use == DrawnKeyUse::Mapped && drawn.key == key;
    });
    return static_cast<std::size_t>(found - keys.begin());
}

std::optional<std::size_t> KeyTowards(std::size_t place, int columns, int rows) {
    const auto& keys = KeyboardKeys();
    const DrawnKey& from = keys.at(place);
    std::optional<std::size_t> nearest;
    int least = 0;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const DrawnKey& to = keys[i];
        const int right = MiddleX(to) - MiddleX(from);
        const int down = MiddleY(to) - MiddleY(from);
        const int onTheWay = right * columns + down * rows;
        const int beside = std::abs(columns == 0 ? right : down);
        // Within a row an arrow stays in it; to another row it takes the nearest one.
        const bool isInReach = columns == 0 ? onTheWay >= KeyQuarters : beside <= KeyQuarters && onTheWay > 0;
        if (to.use != DrawnKeyUse::Mapped || !isInReach) {
            continue;
        }
        const int distance = onTheWay + 2 * beside;
        if (!nearest || distance < least) {
            nearest = i;
            least = distance;
        }
    }
    return nearest;
}

} // namespace editing
