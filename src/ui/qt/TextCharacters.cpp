// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/TextCharacters.h"

namespace ui::qt {

std::vector<TextCharacter> CharactersOf(const QString& text) {
    std::vector<TextCharacter> characters;
    for (const char32_t code : text.toStdU32String()) {
        const QString parts = QString::fromUcs4(&code, 1).normalized(QString::NormalizationForm_KD);
        characters.push_back({code, parts.toStdU32String()});
    }
    return characters;
}

} // namespace ui::qt
