// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/KeyMapFile.h"
#include "glyphs/mdlPaint.h"
#include "shell/OptionsModel.h"
#include "ui/Picture.h"

#include <QObject>

#include <array>
#include <functional>

namespace ui::qt {
class MarkerShape;
class PictureWidget;
} // namespace ui::qt

namespace Ui {
class frmOptions;
}

class QWidget;

namespace shell {

class KeyStrip;

/// The page of the options dialog that edits the key map in place: a list of keys with the glyphs of the one
/// that is selected, and, when asked for, a drawn keyboard with the glyph grid.
class KeyMapPage final : public QObject {
    Q_OBJECT

public:
    /// Lets the user pick a glyph, starting at one; returns the start when that is cancelled.
    using GlyphPicker = std::function<glyphs::GlyphCode(glyphs::GlyphCode start)>;

    /// All of them outlive the page; `form` is that of `dialog`.
    KeyMapPage(
        Ui::frmOptions& form, QWidget& dialog, const ui::Platform& platform, const glyphs::GlyphAtlas& atlas,
        editing::KeyMaps& keys, OptionsModel& model, GlyphPicker pickGlyph);

    /// Shows the atlas as it is by now.
    void showAtlas();

private:
    void connectControls();
    void showKey();
    void showLayer();
    void setGlyph(std::size_t column, glyphs::GlyphCode code);
    void setKeyboardVisible(bool on);
    [[nodiscard]] std::size_t selectedKey() const;
    [[nodiscard]] bool selectedTypes() const;

    void KeyListBox_Click();
    void KeyListBox_KeyPress();
    void picKeyStripCont_Click(std::size_t index);
    void cmdResetKeysToDefault_Click();
    void cmdKeyboard_Click();
    void cmdTypesNothing_Click();
    void picKeyGrid_MouseDown(QPoint pixel, Qt::MouseButton button);
    void picKeyboard_Click(std::size_t key);

    Ui::frmOptions& m_form;
    QWidget& m_dialog;
    const ui::Platform& m_platform;
    const glyphs::GlyphAtlas& m_atlas;
    editing::KeyMaps& m_keys;
    OptionsModel& m_model;
    GlyphPicker m_pickGlyph;

    std::array<KeyStrip*, 3> m_keyStrips{};
    std::array<ui::qt::PictureWidget*, 3> m_keyPictures{};
    std::array<ui::Picture, 3> m_keyGlyphs;
    ui::qt::MarkerShape* m_marker; ///< on the grid, at what the selected key types
};

} // namespace shell
