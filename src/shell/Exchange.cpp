// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/Exchange.h"

#include "glyphs/LookAlikes.h"
#include "glyphs/mdlPaint.h"

#include <algorithm>

namespace shell {

namespace {

bool IsBlankRow(std::span<const glyphs::GlyphCode> row) {
    return std::ranges::all_of(row, [](glyphs::GlyphCode code) { return code == glyphs::BlankGlyph; });
}

std::string Counted(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " glyph" : " glyphs");
}

} // namespace

Exchange::Exchange(const ui::Platform& platform, Session& session)
    : m_platform(platform)
    , m_session(session)
    , m_workspace(session.workspace()) {}

bool Exchange::hasRow() const {
    const editing::PageCursor cursor = m_session.cursor();
    return !IsBlankRow(cursor.rows.row(cursor.row));
}

void Exchange::copyAsText() {
    const editing::PageCursor cursor = m_session.cursor();
    const std::string text = glyphs::LookAlikeText(cursor.rows.row(cursor.row));
    m_platform.clipboard.setUtf8(text);
    m_session.tell("The clipboard holds this text: " + text);
    m_session.refresh();
}

void Exchange::copyAsPicture(int times) {
    const editing::PageCursor cursor = m_session.cursor();
    const ui::Picture picture =
        glyphs::RowPicture(cursor.rows.row(cursor.row), m_workspace.atlas.source, times * glyphs::CellBlock);
    m_platform.clipboard.setPicture(picture);
    m_session.tell(
        "The clipboard holds a picture of " + std::to_string(picture.width()) + " x " +
        std::to_string(picture.height()) + " pixels.");
    m_session.refresh();
}

void Exchange::pasteText() {
    const glyphs::FittedText fitted = glyphs::FitText(m_platform.clipboard.text());
    const editing::PageCursor cursor = m_session.cursor();
    const std::size_t room = editing::RoomFrom(cursor);
    const std::size_t count = fitted.glyphs.size();
    std::string told =
        count == 0 ? "The clipboard holds no text for glyphs." : Counted(std::min(count, room)) + " pasted.";
    if (count > room) {
        told += " No room was left for " + Counted(count - room) + ".";
    }
    if (!fitted.unlike.empty()) {
        told += " No glyph looks like " + fitted.unlike;
    }
    m_session.tell(told);
    m_session.finish(editing::PutGlyphs(cursor, m_workspace.settings.modes, fitted.glyphs));
}

} // namespace shell
