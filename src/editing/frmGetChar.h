// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/GlyphCells.h"
#include "glyphs/GlyphCode.h"
#include "ui/Picture.h"

#include <QDialog>
#include <memory>

class QTimer;

namespace Ui {
class frmGetChar;
}

namespace ui::qt {
class MarkerShape;
}

namespace editing {

using glyphs::GlyphCode;

/// The glyph picker: the whole glyph grid, on which one glyph is chosen with the mouse or the keys.
class frmGetChar : public QDialog {
    Q_OBJECT

public:
    /// `start` is chosen at first, even one that could not be picked; 0: none is. `grid` is the 256 x 256
    /// picture of all glyphs.
    frmGetChar(
        GlyphCode start, const ui::Picture& grid, ui::Pixel markerColour, QWidget* parent = nullptr,
        GlyphText glyphText = {});
    ~frmGetChar() override;

    /// The glyph that was confirmed; the start glyph until then, and when the picker was cancelled.
    [[nodiscard]] GlyphCode glyph() const { return m_glyph; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void connectControls();
    void choose(GlyphCode code);

    void ImgGrid_MouseDown(QPoint pixel);
    void ImgGrid_DblClick(QPoint pixel, Qt::MouseButton button);
    void ImgGrid_MouseMove(QPoint pixel, Qt::MouseButtons buttons);
    void tmrCursor_Timer();
    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdReset_Click();

    std::unique_ptr<Ui::frmGetChar> m_ui;
    ui::Picture m_grid;
    ui::Picture m_preview;
    ui::qt::MarkerShape* m_marker;
    QTimer* m_blink;
    GlyphCode m_start;
    GlyphCode m_chosen;
    GlyphCode m_glyph;
};

/// Lets the user pick a glyph; `start` itself when the picker is cancelled. May return 0 only if `start` is
/// 0.
[[nodiscard]] GlyphCode PickGlyph(
    GlyphCode start, const ui::Picture& grid, ui::Pixel markerColour, QWidget* parent,
    GlyphText glyphText = {});

} // namespace editing
