// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "shell/RecoveryFile.h"

#include <random>

/// A state whose every number is drawn within its bounds.
inline shell::WorkState RandomWork(unsigned seed) {
    std::mt19937 generator(seed);
    const auto draw = [&generator](int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(generator);
    };
    const auto fill = [&draw](auto& cells) {
        for (auto& cell : cells) {
            cell = static_cast<glyphs::GlyphCode>(draw(0, glyphs::GlyphCount - 1));
        }
    };
    shell::WorkState state;
    editing::Documents& documents = state.documents;
    fill(documents.name.cells);
    fill(documents.animation.nameGlyphs);
    fill(documents.messages.cells);
    for (auto& ticks : documents.animation.nameTicks) {
        ticks = static_cast<std::int16_t>(draw(0, 32767));
    }
    documents.animation.nameCount = draw(editing::MinNames, editing::MaxNames);
    documents.animation.currentName = draw(1, documents.animation.nameCount);
    documents.name.cursorPos = draw(1, editing::NameLength);
    documents.animation.cursorPos = draw(1, editing::NameLength);
    documents.messages.cursorPos = draw(1, editing::MessageLength);
    documents.messages.currentMessage = draw(1, editing::MessageCount);
    state.page = static_cast<editing::Page>(draw(0, 2));
    state.time = draw(0, 1'900'000'000);
    return state;
}
