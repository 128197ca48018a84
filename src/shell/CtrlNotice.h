// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/GlyphCode.h"
#include "ui/KeyStroke.h"

#include <string>

namespace shell {

/// Tells of keys that typed a blank with Ctrl, as somebody does who expects a command there: the first three
/// times in a run.
class CtrlNotice {
public:
    /// What to tell of a key stroke that typed a glyph; mostly empty.
    [[nodiscard]] std::string of(const ui::KeyStroke& stroke, glyphs::GlyphCode code);

private:
    int m_told = 0;
};

} // namespace shell
