// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/GlyphRows.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace editing {

constexpr int NameLength = 15;    ///< glyphs of a name
constexpr int MessageLength = 31; ///< glyphs of a message
constexpr int MessageCount = 3;
constexpr int MinNames = 15; ///< names in use in an animation
constexpr int MaxNames = 90;
constexpr std::int16_t InitialTicks = 2;
constexpr int MaxOfferedTicks = 15; ///< the tick lists offer 0 to this; a script may hold more

/// Cells of a document, all blank at first.
template <std::size_t Count>
constexpr std::array<GlyphCode, Count> BlankCells() {
    std::array<GlyphCode, Count> cells{};
    cells.fill(glyphs::BlankGlyph);
    return cells;
}

/// The player name: one row of 15 cells.
struct NameDocument {
    std::array<GlyphCode, NameLength> cells = BlankCells<NameLength>();
    int currentRow = 1; ///< always 1: the page has one row
    int cursorPos = 1;  ///< 1 to 15

    [[nodiscard]] GlyphRows rows() { return {cells, NameLength}; }

    friend bool operator==(const NameDocument&, const NameDocument&) = default;
};

/// The animation: 90 names of 15 cells and a tick count for each row, of which the first `nameCount` are in
/// use. Tick counts belong to row numbers: they stay when names move.
struct AnimationDocument {
    std::array<GlyphCode, static_cast<std::size_t>(MaxNames)* NameLength> nameGlyphs =
        BlankCells<static_cast<std::size_t>(MaxNames) * NameLength>();
    std::array<std::int16_t, MaxNames> nameTicks = initialTicks();
    int nameCount = MinNames;   ///< 15 to 90
    int currentName = MinNames; ///< 1 to nameCount
    int cursorPos = 1;          ///< 1 to 15

    /// All 90 rows, in use or not.
    [[nodiscard]] GlyphRows rows() { return {nameGlyphs, NameLength}; }

    /// The cells of a row (1 to 90).
    [[nodiscard]] std::span<const GlyphCode> name(int row) const {
        assert(row >= 1 && row <= MaxNames);
        return std::span(nameGlyphs).subspan(static_cast<std::size_t>(row - 1) * NameLength, NameLength);
    }

    /// The tick count of a row (1 to 90).
    [[nodiscard]] std::int16_t& ticks(int name) {
        assert(name >= 1 && name <= MaxNames);
        return nameTicks[static_cast<std::size_t>(name - 1)];
    }

    [[nodiscard]] std::int16_t ticks(int name) const {
        assert(name >= 1 && name <= MaxNames);
        return nameTicks[static_cast<std::size_t>(name - 1)];
    }

    friend bool operator==(const AnimationDocument&, const AnimationDocument&) = default;

private:
    static constexpr std::array<std::int16_t, MaxNames> initialTicks() {
        std::array<std::int16_t, MaxNames> ticks{};
        ticks.fill(InitialTicks);
        return ticks;
    }
};

/// Three chat messages of 31 cells.
struct MessageDocument {
    std::array<GlyphCode, static_cast<std::size_t>(MessageCount)* MessageLength> cells =
        BlankCells<static_cast<std::size_t>(MessageCount) * MessageLength>();
    int currentMessage = 1; ///< 1 to 3
    int cursorPos = 1;      ///< 1 to 31

    [[nodiscard]] GlyphRows rows() { return {cells, MessageLength}; }

    friend bool operator==(const MessageDocument&, const MessageDocument&) = default;
};

struct Documents {
    NameDocument name;
    AnimationDocument animation;
    MessageDocument messages;

    friend bool operator==(const Documents&, const Documents&) = default;
};

/// The pages of the main window; the numbers are those of the setting "maketype".
enum class Page : int { Name = 0, Animation = 1, Messages = 2 };

/// The four editing modes, each mirrored by a toggle button and a lock key.
struct Modes {
    bool typingColour = true; ///< glyphs placed are turned to colour 2
    bool insert = false;      ///< placing shifts the rest of the row right
    bool upperCase = false;   ///< keys type their shifted glyph
    bool numberPad = true;    ///< the number pad types digits

    friend bool operator==(const Modes&, const Modes&) = default;
};

} // namespace editing
