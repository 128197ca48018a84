// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Change.h"
#include "editing/GlyphCells.h"
#include "glyphs/mdlPaint.h"
#include "ui/Picture.h"

#include <QWidget>
#include <optional>
#include <utility>
#include <vector>

class QScrollBar;

namespace ui::qt {
class CellMarks;
class MarkerShape;
class PictureWidget;
} // namespace ui::qt

namespace editing {

/// What the three pages of the main window have in common: the page's picture with the cursor marker over it.
/// A panel holds no rules: it shows its document and says what the user did.
class PagePanel : public QWidget {
    Q_OBJECT

public:
    /// Sets everything but the picture from the document: scroll bars, marker, labels and lists. The user's
    /// acts on them are only told; the listener changes the document and calls this.
    virtual void refresh() = 0;

    /// Shows again what has changed in the picture.
    void showDamage();

    /// Gives the picture the keyboard's focus: assistive tools follow it to the cursor's cell.
    void takeFocus();

    /// The marker over the cursor's cell.
    [[nodiscard]] const QWidget& marker() const;

    /// Shows the picture `zoom` times as large.
    void setZoom(int zoom);

    /// The least size of the panel at another zoom.
    [[nodiscard]] QSize leastSizeAt(int zoom) const;

    /// Flips the marker's outline between dashed and dotted.
    void blink();

    void setMarkerColour(ui::Pixel colour);

    /// Marks these cells, and no others, with a thin line.
    void mark(const std::vector<CellBlock>& cells);

    /// Says what is to be told of a glyph in a cell's tooltip, a line each.
    void setGlyphText(GlyphText text) { m_glyphText = std::move(text); }

    /// The mouse pointer over the picture: 0 none of its own, 1 arrow, 2 cross.
    void setPointer(int cursorStyle);

Q_SIGNALS:
    /// The user acts on one of the panel's controls; comes before the act takes effect.
    void userActed();
    /// A mouse button went down over the picture, at a position in its pixels.
    void picturePressed(int x, int y, Qt::MouseButton button);
    /// The pointer is over a glyph; nothing: no longer.
    void pointedAt(std::optional<GlyphCode> code);
    /// A scroll bar is to move the cursor to a cell (1-based).
    void cursorMoved(int column, int row);

protected:
    /// Makes the picture and the marker, with these objectNames.
    PagePanel(
        glyphs::PagePicture& picture, const QString& pictureName, const QString& markerName, QWidget* parent);

    [[nodiscard]] ui::qt::PictureWidget* pictureWidget() const { return m_widget; }

    /// The document's rows.
    [[nodiscard]] virtual GlyphRows rows() const = 0;

    /// How many of the rows are in use.
    [[nodiscard]] virtual int rowsInUse() const = 0;

    /// What a row (1-based) is called.
    [[nodiscard]] virtual QString rowName(int row) const = 0;

    /// Puts the marker over a cell (1-based).
    void moveMarker(int column, int row);

    /// A scroll bar that steps by one and leaves the keyboard to typing. Its moves by the user Q_EMIT
    /// userActed().
    QScrollBar* makeScrollBar(
        Qt::Orientation orientation, const QString& name, const QString& accessibleName, int minimum,
        int maximum);

    /// Sets a scroll bar as the document has it, which is nothing that the user did.
    static void setBar(QScrollBar* bar, int value);

    /// Gives what stands beside the picture the picture's size, at first and whenever that changes.
    virtual void fitPicture() = 0;

    /// A sunken frame around the picture.
    QWidget* makeFrame();

private:
    void describeCells();
    void tellSize();

    [[nodiscard]] GlyphCode glyphAt(int row, int column) const { return rows().cell(row, column); }

    void point(QPoint pixel);

    glyphs::PagePicture& m_picture;
    GlyphText m_glyphText;
    ui::qt::PictureWidget* m_widget;
    ui::qt::MarkerShape* m_marker;
    ui::qt::CellMarks* m_marks = nullptr; ///< made when one is first wanted
};

} // namespace editing
