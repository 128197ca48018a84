// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/GlyphCells.h"
#include "editing/Kinds.h"
#include "editing/PagePainter.h"
#include "shell/Settings.h"

#include <QWidget>
#include <array>
#include <optional>

class QBoxLayout;
class QLabel;
class QStackedWidget;

namespace editing {
class DirectionPad;
class PagePanel;
} // namespace editing

namespace animation {
class AnimationPage;
} // namespace animation

namespace shell {

class GameLines;
class TabPicture;

/// The right column of the main window: the tabs, the page in view, the direction pad and the cursor's
/// position. It shows documents and says what the user did.
class PageColumn final : public QWidget {
    Q_OBJECT

public:
    /// All are borrowed and outlive the column.
    PageColumn(
        editing::Documents& documents, editing::PagePictures& pictures, const glyphs::GlyphAtlas& atlas,
        const Settings& settings, QWidget* parent);

    [[nodiscard]] editing::PagePanel& panel(editing::Page page) const;

    [[nodiscard]] animation::AnimationPage& animationPage() const { return *m_animationPage; }

    /// Brings a page into view.
    void view(editing::Page page);

    /// Sets everything but its picture from a page's document, and the cursor's position.
    void showDocument(editing::Page page);

    /// Shows again what has changed in the pictures.
    void showDamage();

    /// Show the settings as they are now.
    void showColours();
    void showPointers();

    /// Shows a page's picture `zoom` times as large.
    void setZoom(editing::Page page, int zoom);

    /// The least size of the column when a page is in view at another zoom.
    [[nodiscard]] QSize leastSizeAt(editing::Page page, int zoom) const;

    /// Whether the column is as large as its largest page wants, or as the page in view.
    void makeRoomForAll(bool isForAll);

    /// Shows lines for the games that are played, from the first call on.
    void showGames();

    /// Says what is to be told of a glyph in a cell's tooltip, a line each.
    void setGlyphText(const editing::GlyphText& text);

    /// Moves the cursor to the next cell that a game does not keep.
    void goToLoss();

    /// The atlas is another one.
    void showAtlas();

    /// Shows an arrow key's press on the direction pad for a moment.
    void showKey(int virtualKey);

    /// Flips the outline of the page's marker between dashed and dotted.
    void blink();

Q_SIGNALS:
    /// A tab was pressed, or the user acts on a control of a page; comes before the act takes effect.
    void pageWanted(editing::Page page);
    /// A scroll bar is to move a page's cursor to a cell (1-based).
    void cursorMoved(editing::Page page, int column, int row);
    /// A mouse button went down over a page's picture, at a position in its pixels.
    void picturePressed(editing::Page page, int x, int y, Qt::MouseButton button);
    /// The pointer is over a glyph of a page; nothing: no longer.
    void pointedAt(std::optional<glyphs::GlyphCode> code);
    /// An arrow of the direction pad, as a virtual key.
    void arrow(int virtualKey);
    /// The games are to be chosen, from a menu at a point of the screen.
    void gamesWanted(QPoint at);

private:
    QLayout* makeTabs();
    void addPanel(editing::Page page, editing::PagePanel* panel);
    QBoxLayout* makeCursorRow();
    [[nodiscard]] editing::Page inView() const;
    void settleRoom();

    editing::Documents& m_documents;
    const glyphs::GlyphAtlas& m_atlas;
    const Settings& m_settings;
    std::array<TabPicture*, editing::Kinds.size()> picTab{};
    QStackedWidget* m_pages = nullptr;
    animation::AnimationPage* m_animationPage = nullptr;
    editing::DirectionPad* imgDir = nullptr;
    QLabel* lblCurPos = nullptr;
    QBoxLayout* m_cursorRow = nullptr;
    GameLines* m_gameLines = nullptr;
    bool m_isForAll = true; ///< whether pages out of view have room as well
};

} // namespace shell
