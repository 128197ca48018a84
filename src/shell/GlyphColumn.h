// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Documents.h"
#include "glyphs/mdlPaint.h"
#include "shell/Settings.h"

#include <QWidget>
#include <array>

class QToolButton;

namespace ui::qt {
class LineLabel;
class MarkerShape;
class PictureWidget;
} // namespace ui::qt

namespace shell {

class GlyphButton;

/// The left column of the main window: the glyph grid with its marker, the favourite and the frequent glyphs,
/// and the buttons of the editing modes. It shows the settings and says what the user did.
class GlyphColumn final : public QWidget {
    Q_OBJECT

public:
    /// Both are borrowed and outlive the column.
    GlyphColumn(const Settings& settings, const glyphs::GlyphAtlas& atlas, QWidget* parent);

    /// Show the settings, or the atlas, as they are now.
    void showGlyphs();
    void showColours();
    void showPointer();
    void showModes();

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
    void countPressed();
    void modeSwitched(int index, bool isOn);

private:
    QWidget* makeGrid();
    QLayout* makeGlyphButtons();
    QLayout* makeModeButtons();
    void describeKeys();
    void ImgGrid_MouseDown(QPoint pixel, Qt::MouseButton button);
    void ImgGrid_MouseMove(QPoint pixel);

    const Settings& m_settings;
    const glyphs::GlyphAtlas& m_atlas;
    glyphs::GlyphCode m_markedGlyph = 0;
    ui::qt::PictureWidget* ImgGrid;
    ui::qt::MarkerShape* GridPosShape;
    std::array<GlyphButton*, 5> cmdFavorite{};
    ui::qt::LineLabel* lblFrequent;
    std::array<GlyphButton*, 3> cmdFrequent{};
    QToolButton* cmdCalcFrequent;
    std::array<QToolButton*, 4> cmdKey{};
};

} // namespace shell
