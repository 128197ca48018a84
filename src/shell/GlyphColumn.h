// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/GlyphCode.h"
#include "shell/GlyphReadout.h"
#include "ui/Picture.h"

#include <QWidget>
#include <array>
#include <optional>
#include <vector>

class QToolButton;

namespace ui::qt {
class CellMarks;
class LineLabel;
class MarkerShape;
class PictureWidget;
} // namespace ui::qt

namespace shell {

class GlyphButton;
class GlyphFinder;
struct Workspace;

/// The left column of the main window: the glyph grid with its marker and what a glyph is, the favourite and
/// the frequent glyphs, and the buttons of the editing modes. It shows the settings and says what the user
/// did.
class GlyphColumn final : public QWidget {
    Q_OBJECT

public:
    /// The workspace is borrowed and outlives the column.
    GlyphColumn(const Workspace& workspace, QWidget* parent);

    /// Show the settings, or the atlas, as they are now.
    void showGlyphs();
    void showColours();
    void showPointer();
    void showModes();
    void showReadout();

    /// Shows the grid `zoom` times as large.
    void setZoom(int zoom);

    /// The least size of the column at another zoom.
    [[nodiscard]] QSize leastSizeAt(int zoom) const;

    /// The glyph under the cursor is another.
    void showCursor(glyphs::GlyphCode code);

    /// The pointer is over a glyph, which is told of until the pointer leaves it; nothing: it has.
    void pointAt(std::optional<glyphs::GlyphCode> code);

    /// Opens the field that looks for glyphs.
    void find();

    /// Whether keys pressed on a widget of the column are its own.
    [[nodiscard]] bool takesKeysOf(const QWidget* widget) const;

    /// What is told of a glyph, a line each.
    [[nodiscard]] QString glyphText(glyphs::GlyphCode code) const;

    /// The grid alone shows the atlas anew.
    void showGrid();

    /// Puts the marker on a glyph of the grid; on none if it may not be picked.
    void mark(glyphs::GlyphCode code);

    /// The glyph with the marker; 0: none is.
    [[nodiscard]] glyphs::GlyphCode markedGlyph() const { return m_markedGlyph; }

    /// Flips the marker's outline between dashed and dotted.
    void blink();

    /// What the button of a favourite shows.
    [[nodiscard]] const ui::Picture& favouritePicture(int index) const;

Q_SIGNALS:
    /// A mouse button went down over a glyph of the grid that may be picked.
    void glyphPressed(glyphs::GlyphCode code, Qt::MouseButton button);
    void favouritePressed(int index, Qt::MouseButton button);
    void frequentPressed(int index);
    void rightGlyphPressed(Qt::MouseButton button);
    /// A glyph that was looked for is to be placed.
    void glyphFound(glyphs::GlyphCode code);
    /// The field has gone: the page is to have the keyboard.
    void findingEnded();
    void countPressed();
    void modeSwitched(int index, bool isOn);

private:
    QWidget* makeGrid();
    GlyphButton* makeGlyphButton(const QString& title, const QString& name, const QString& toolTip);
    QLayout* makeGlyphButtons();
    QLayout* makeFavouritesCaption();
    void makeFinder();
    void light(const std::vector<glyphs::GlyphCode>& fitting);
    void tellGlyph(GlyphReadout::When when);
    QLayout* makeModeButtons();
    void describeKeys();
    void ImgGrid_MouseDown(QPoint pixel, Qt::MouseButton button);
    void ImgGrid_MouseMove(QPoint pixel);

    const Workspace& m_workspace;
    glyphs::GlyphCode m_markedGlyph = 0;
    glyphs::GlyphCode m_underCursor = glyphs::BlankGlyph;
    std::optional<glyphs::GlyphCode> m_underPointer;
    ui::qt::PictureWidget* ImgGrid;
    ui::qt::MarkerShape* GridPosShape;
    ui::qt::CellMarks* m_shade = nullptr; ///< over what does not fit; made when it is first wanted
    GlyphReadout* m_readout;
    GlyphFinder* m_finder = nullptr; ///< made when it is first wanted
    GlyphButton* cmdRightGlyph = nullptr;
    std::array<GlyphButton*, 5> cmdFavorite{};
    ui::qt::LineLabel* lblFrequent;
    std::array<GlyphButton*, 3> cmdFrequent{};
    QToolButton* cmdCalcFrequent;
    std::array<QToolButton*, 4> cmdKey{};
};

} // namespace shell
