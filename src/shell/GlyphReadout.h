// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/GlyphCode.h"
#include "ui/Picture.h"

#include <QTimer>
#include <QWidget>
#include <array>

class QVBoxLayout;

namespace ui::qt {
class LineLabel;
class PictureWidget;
} // namespace ui::qt

namespace shell {

class GlyphFinder;
struct Workspace;

/// What a glyph is: a large picture of it, its number and name, the keys that type it, its other colour. The
/// field that looks for glyphs opens in its place.
class GlyphReadout final : public QWidget {
    Q_OBJECT

public:
    /// The workspace is borrowed and outlives the readout.
    GlyphReadout(const Workspace& workspace, QWidget* parent);

    /// When a glyph is told of: at once for the pointer, and for the cursor once it rests, since whoever
    /// types looks at the page.
    enum class When { AtOnce, AtRest };

    void tell(glyphs::GlyphCode code, When when = When::AtOnce);

    /// Tells of the same glyph again, since its looks or its keys may have changed.
    void tellAgain();

    /// Makes the field, hidden.
    GlyphFinder* makeFinder();

    /// Shows the lines, or leaves their place to the field.
    void showLines(bool areShown);

private:
    void tmrReadout_Timer();

    const Workspace& m_workspace;
    ui::Picture m_picture;
    glyphs::GlyphCode m_code = glyphs::BlankGlyph;
    ui::qt::PictureWidget* picReadout;
    std::array<ui::qt::LineLabel*, 3> lblReadout{};
    QVBoxLayout* m_lines;
    QTimer tmrReadout;
};

} // namespace shell
