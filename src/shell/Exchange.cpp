// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/Exchange.h"

#include "animation/AnimationPicture.h"
#include "glyphs/LookAlikes.h"
#include "glyphs/PngPicture.h"
#include "glyphs/mdlPaint.h"
#include "ui/FileWriter.h"

#include <algorithm>

namespace shell {

namespace {

const std::string ExportSection = "export";
const std::string FolderKey = "folder";

/// Glyphs in files are twice as large as on the pages.
constexpr int ExportFactor = 2 * glyphs::CellBlock;

/// Of a text from elsewhere, which may be a whole book, so many characters are read, and so many glyphs
/// without room are counted.
constexpr std::size_t MostRead = 20000;
constexpr std::size_t MostCounted = 9999;

bool IsBlankRow(std::span<const glyphs::GlyphCode> row) {
    return std::ranges::all_of(row, [](glyphs::GlyphCode code) { return code == glyphs::BlankGlyph; });
}

std::string Counted(std::size_t count) {
    return std::to_string(count) + (count == 1 ? " glyph" : " glyphs");
}

/// Glyphs that found no room, of a text that may go on.
std::string LeftOver(std::size_t count, bool goesOn) {
    return goesOn || count > MostCounted ? "more than " + Counted(std::min(count - 1, MostCounted))
                                         : Counted(count);
}

std::string SizeText(const ui::Picture& picture) {
    return std::to_string(picture.width()) + " x " + std::to_string(picture.height()) + " pixels";
}

/// How long pictures are shown altogether.
std::string PlayingTime(std::span<const glyphs::GifFrame> frames) {
    constexpr int Second = 100;
    int hundredths = 0;
    for (const glyphs::GifFrame& frame : frames) {
        hundredths += frame.delay;
    }
    const std::string rest = std::to_string(Second + hundredths % Second).substr(1);
    return std::to_string(hundredths / Second) + "." + rest + " seconds";
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
    m_session.tell("The clipboard holds a picture of " + SizeText(picture) + ".");
    m_session.refresh();
}

bool Exchange::hasName() const {
    return !IsBlankRow(m_workspace.documents.name.cells);
}

bool Exchange::hasAnimation() const {
    const editing::AnimationDocument& animation = m_workspace.documents.animation;
    return !IsBlankRow(std::span(animation.nameGlyphs)
                           .first(static_cast<std::size_t>(animation.nameCount) * editing::NameLength));
}

std::optional<ui::Path>
Exchange::chooseExport(const std::string& title, const std::string& name, const std::string& type) {
    ui::FileDialogRequest request;
    request.title = title;
    request.extension = name.substr(name.rfind('.'));
    request.needsExtension = true;
    request.initialName = name;
    request.filters = {{type + " (*" + request.extension + ")", {"*" + request.extension}}};
    request.folder = ui::PathFromText(m_platform.settings.read(ExportSection, FolderKey).value_or(""));
    return m_platform.dialogs.chooseFileToSave(request);
}

void Exchange::write(const ui::Path& path, const ui::Result<ui::Bytes>& bytes, const std::string& what) {
    const ui::Status written =
        bytes ? ui::WriteFile(m_platform.files, path, bytes.value()) : ui::Status(bytes.failure());
    if (written) {
        m_platform.settings.write(ExportSection, FolderKey, ui::PathText(path.parent_path()));
        m_session.tell("\"" + ui::PathText(path) + "\" was written: " + what + ".");
    } else {
        m_platform.dialogs.warn(written.failure().message);
    }
}

void Exchange::exportName() {
    const auto path = chooseExport("Export the Name", "name.png", "PNG Picture");
    if (path) {
        const ui::Picture picture =
            glyphs::RowPicture(m_workspace.documents.name.cells, m_workspace.atlas.source, ExportFactor);
        write(*path, glyphs::EncodePng(picture), SizeText(picture));
    }
    m_session.refresh();
}

void Exchange::exportAnimation() {
    const auto path = chooseExport("Export the Animation", "animation.gif", "GIF Picture");
    if (path) {
        const auto frames = animation::AnimationFrames(
            m_workspace.documents.animation, m_workspace.atlas.source, ExportFactor);
        bool isWanted = true;
        ui::Result<ui::Bytes> gif = ui::Bytes();
        m_platform.dialogs.follow(
            "The animation is being drawn.", 2 * static_cast<int>(frames.size()),
            [&](const ui::GoesOn& goesOn) {
                gif = glyphs::EncodeAnimatedGif(frames, [&](int done) { return isWanted = goesOn(done); });
            });
        if (isWanted) {
            write(*path, gif, SizeText(frames.front().picture) + ", " + PlayingTime(frames));
        }
    }
    m_session.refresh();
}

void Exchange::pasteText() {
    const std::vector<ui::TextCharacter> text = m_platform.clipboard.text(MostRead);
    const glyphs::FittedText fitted = glyphs::FitText(text);
    const editing::PageCursor cursor = m_session.cursor();
    const std::size_t room = editing::RoomFrom(cursor);
    const std::size_t count = fitted.glyphs.size();
    std::string told =
        count == 0 ? "The clipboard holds no text for glyphs." : Counted(std::min(count, room)) + " pasted.";
    if (count > room) {
        told += " No room was left for " + LeftOver(count - room, text.size() == MostRead) + ".";
    }
    if (!fitted.unlike.empty()) {
        told += " No glyph looks like " + fitted.unlike + (fitted.isMoreUnlike ? " and others" : "");
    }
    m_session.tell(told);
    m_session.finish(editing::PutGlyphs(cursor, m_workspace.settings.modes, fitted.glyphs));
}

} // namespace shell
