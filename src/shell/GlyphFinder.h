// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/GlyphCode.h"

#include <QWidget>
#include <vector>

class QLineEdit;

namespace ui::qt {
class LineLabel;
} // namespace ui::qt

namespace shell {

/// A field that looks for glyphs by number, character or words. It goes when it loses the keyboard.
class GlyphFinder final : public QWidget {
    Q_OBJECT

public:
    /// Hidden.
    explicit GlyphFinder(QWidget* parent);

    /// Shows itself and takes the keyboard.
    void open();

    /// Whether keys pressed there are its own.
    [[nodiscard]] bool takesKeysOf(const QWidget* widget) const;

Q_SIGNALS:
    /// These glyphs fit; the first of them is to be shown.
    void found(const std::vector<glyphs::GlyphCode>& fitting);
    /// One of the glyphs that fit is to be shown.
    void reached(glyphs::GlyphCode code);
    /// The glyph is to be placed.
    void chosen(glyphs::GlyphCode code);
    /// It has gone.
    void closed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void txtFind_Change();
    bool txtFind_KeyDown(int key);
    void step(int by);
    void showFound();
    void close();

    QLineEdit* txtFind;
    ui::qt::LineLabel* lblFound;
    std::vector<glyphs::GlyphCode> m_fitting;
    std::size_t m_current = 0; ///< of those
};

} // namespace shell
