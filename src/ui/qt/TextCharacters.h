// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/TextCharacter.h"

#include <QString>
#include <vector>

namespace ui::qt {

/// A text, character by character.
[[nodiscard]] std::vector<TextCharacter> CharactersOf(const QString& text);

} // namespace ui::qt
