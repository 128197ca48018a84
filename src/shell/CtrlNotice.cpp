// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/CtrlNotice.h"

#include "editing/mdlKey.h"

namespace shell {

std::string CtrlNotice::of(const ui::KeyStroke& stroke, glyphs::GlyphCode code) {
    constexpr int MaxTold = 3;
    const bool isStray =
        stroke.isCtrl && code == glyphs::BlankGlyph && stroke.virtualKey != editing::KeySpace;
    if (!isStray || m_told == MaxTold) {
        return {};
    }
    ++m_told;
    const std::size_t row = editing::KeyIndex(stroke.virtualKey);
    const bool hasName = row > 0 || stroke.virtualKey == editing::KeyTab;
    return "Ctrl+" + (hasName ? std::string(editing::KeyNames()[row]) : "this key") +
           " typed a blank. What keys type is set in Tools > Configure > Key Mapping.";
}

} // namespace shell
