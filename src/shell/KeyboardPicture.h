// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/KeyboardLayout.h"
#include "editing/mdlKey.h"
#include "glyphs/mdlPaint.h"
#include "ui/qt/KeyReader.h"

#include <QWidget>

class QPainter;

namespace shell {

/// A drawn keyboard with what each key types. It shows what the keys type alone, with Shift or with Ctrl:
/// whatever is held, else what was pressed on the keyboard itself. A key is selected with the mouse, with the
/// arrows, or by pressing it.
class KeyboardPicture final : public QWidget {
    Q_OBJECT

public:
    explicit KeyboardPicture(QWidget* parent = nullptr);

    /// Shows a key map in the glyphs of an atlas; both outlive the picture.
    void setKeys(const editing::KeyMap& keys, const glyphs::GlyphAtlas& atlas);

    /// The selected row of the key map.
    [[nodiscard]] std::size_t selectedKey() const { return m_selected; }

    void selectKey(std::size_t key);

    /// The column of the key map that is shown: 0 alone, 1 with Shift, 2 with Ctrl.
    [[nodiscard]] std::size_t layer() const { return m_layer; }

    /// Where a key of KeyboardKeys() is drawn.
    [[nodiscard]] QRect keyRect(std::size_t place) const;

    /// A key of KeyboardKeys() in words: "F5: code 29, ...".
    [[nodiscard]] QString keyText(std::size_t place) const;

    /// Acts as if a key of KeyboardKeys() were clicked.
    void pressKey(std::size_t place);

    [[nodiscard]] QSize sizeHint() const override;

    /// Follows the modifiers, whatever control has the keyboard.
    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The user selected a row of the key map.
    void keySelected(std::size_t key);
    void layerChanged();

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void hold(Qt::KeyboardModifiers modifiers);
    void showLayer();
    void chooseKey(std::size_t key);
    void announceKey();
    [[nodiscard]] bool isLatched(const editing::DrawnKey& key) const;
    [[nodiscard]] int keySide() const;
    [[nodiscard]] QFont capFont() const;
    void drawKey(QPainter& painter, std::size_t place) const;
    void drawGlyph(QPainter& painter, const QRect& key, glyphs::GlyphCode code) const;

    const editing::KeyMap* m_keys = nullptr;
    const glyphs::GlyphAtlas* m_atlas = nullptr;
    ui::qt::KeyReader m_reader;
    std::size_t m_selected = 0;
    std::size_t m_held = 0;    ///< layer of the modifiers that are held
    std::size_t m_latched = 0; ///< layer that was chosen on the keyboard
    std::size_t m_layer = 0;
};

} // namespace shell
