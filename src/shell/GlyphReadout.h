// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/GlyphCode.h"
#include "ui/Picture.h"

#include <QTimer>
#include <QWidget>
#include <array>

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

    /// Tells of a glyph, as soon as nothing else waits: no key waits for it.
    void tell(glyphs::GlyphCode code);

    /// Tells of the same glyph again, since its looks or its keys may have changed.
    void tellAgain();

    [[nodiscard]] GlyphFinder& finder() const { return *m_finder; }

    /// Opens the field, or shows the readout again.
    void showFinder(bool isOpen);

private:
    void tmrReadout_Timer();

    const Workspace& m_workspace;
    ui::Picture m_picture;
    glyphs::GlyphCode m_code = glyphs::BlankGlyph;
    ui::qt::PictureWidget* picReadout;
    std::array<ui::qt::LineLabel*, 3> lblReadout{};
    GlyphFinder* m_finder;
    QTimer tmrReadout;
};

} // namespace shell
