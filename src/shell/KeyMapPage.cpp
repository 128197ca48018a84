// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/KeyMapPage.h"

#include "editing/GlyphCells.h"
#include "editing/KeyboardLayout.h"
#include "editing/mdlPick.h"
#include "glyphs/GlyphWords.h"
#include "shell/Texts.h"
#include "ui/qt/MarkerShape.h"
#include "ui/qt/SmallPrint.h"
#include "ui/qt/Text.h"
#include "ui_frmOptions.h"

#include <QLineEdit>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace shell {

namespace {

using ui::qt::FromLatin1;

/// A glyph, large enough to be judged.
ui::Picture LargeGlyph(const glyphs::GlyphAtlas& atlas, glyphs::GlyphCode code) {
    ui::Picture picture(KeyStrip::GlyphSide, KeyStrip::GlyphSide);
    glyphs::StretchCells(
        picture, picture.bounds(), atlas.source,
        {code % 16 * glyphs::ArtworkCell, code / 16 * glyphs::ArtworkCell, glyphs::ArtworkCell,
         glyphs::ArtworkCell});
    return picture;
}

/// Moves a window so that all of it is on its screen.
void MoveOntoScreen(QWidget& window) {
    const QRect room = window.screen()->availableGeometry();
    const QRect frame = window.frameGeometry();
    const int left = std::max(room.left(), std::min(frame.left(), room.right() + 1 - frame.width()));
    const int top = std::max(room.top(), std::min(frame.top(), room.bottom() + 1 - frame.height()));
    if (frame.topLeft() != QPoint(left, top)) {
        window.move(left, top);
    }
}

} // namespace

KeyMapPage::KeyMapPage(
    Ui::frmOptions& form, QWidget& dialog, const ui::Platform& platform, const glyphs::GlyphAtlas& atlas,
    editing::KeyMaps& keys, OptionsModel& model, GlyphPicker pickGlyph)
    : QObject(&dialog)
    , m_form(form)
    , m_dialog(dialog)
    , m_platform(platform)
    , m_atlas(atlas)
    , m_keys(keys)
    , m_model(model)
    , m_pickGlyph(std::move(pickGlyph))
    , m_keyStrips{form.picKeyStripCont_0, form.picKeyStripCont_1, form.picKeyStripCont_2}
    , m_keyPictures{form.picKey_0, form.picKey_1, form.picKey_2}
    , m_marker(new ui::qt::MarkerShape(form.picKeyGrid, ui::qt::MarkerShape::Style::Solid)) {
    for (const auto name : editing::KeyNames()) {
        m_form.KeyListBox->addItem(FromLatin1(name));
    }
    // Completion would put text into the box that the user has not chosen.
    m_form.KeyListBox->setCompleter(nullptr);
    for (auto* const picture : m_keyPictures) {
        picture->setBlock(KeyStrip::GlyphSide / glyphs::ArtworkCell);
    }
    // The page shows through, as those that do not scroll.
    m_form.scrKeys->viewport()->setAutoFillBackground(false);
    m_form.pagKeys->setAutoFillBackground(false);
    m_form.picKeyGrid->setBlock(glyphs::CellBlock);
    m_form.picKeyGrid->setPicture(&m_atlas.cells);
    m_form.picKeyGrid->setCells(editing::GlyphGridCells(
        true, [](glyphs::GlyphCode code) { return QString::fromStdString(glyphs::GlyphName(code)); }));
    m_marker->setObjectName(QStringLiteral("KeyPosShape"));
    m_marker->setColour(QColor::fromRgb(model.settings().colours[1]));
    m_form.picKeyboard->setKeys(m_keys.used, m_atlas);
    ui::qt::SetSmallPrint(*m_form.lblKeyFacts);
    setKeyboardVisible(false);
    showKey();
    connectControls();
}

void KeyMapPage::connectControls() {
    connect(m_form.KeyListBox, &QComboBox::activated, this, &KeyMapPage::KeyListBox_Click);
    connect(m_form.KeyListBox->lineEdit(), &QLineEdit::textEdited, this, &KeyMapPage::KeyListBox_KeyPress);
    for (std::size_t i = 0; i < m_keyStrips.size(); ++i) {
        connect(m_keyStrips[i], &KeyStrip::clicked, this, [this, i] { picKeyStripCont_Click(i); });
        connect(
            m_keyPictures[i], &ui::qt::PictureWidget::pressed, this,
            [this, i](QPoint, Qt::MouseButton button) {
                if (button == Qt::LeftButton) {
                    picKeyStripCont_Click(i);
                }
            });
    }
    connect(
        m_form.cmdResetKeysToDefault, &QPushButton::clicked, this, &KeyMapPage::cmdResetKeysToDefault_Click);
    connect(m_form.cmdKeyboard, &QPushButton::clicked, this, &KeyMapPage::cmdKeyboard_Click);
    connect(m_form.cmdTypesNothing, &QPushButton::clicked, this, &KeyMapPage::cmdTypesNothing_Click);
    connect(m_form.picKeyGrid, &ui::qt::PictureWidget::pressed, this, &KeyMapPage::picKeyGrid_MouseDown);
    connect(m_form.picKeyboard, &KeyboardPicture::keySelected, this, &KeyMapPage::picKeyboard_Click);
    connect(m_form.picKeyboard, &KeyboardPicture::layerChanged, this, &KeyMapPage::showLayer);
}

std::size_t KeyMapPage::selectedKey() const {
    return static_cast<std::size_t>(m_form.KeyListBox->currentIndex());
}

bool KeyMapPage::selectedTypes() const {
    return editing::CanType(selectedKey(), m_form.picKeyboard->layer());
}

void KeyMapPage::showAtlas() {
    m_form.picKeyGrid->update();
    m_form.picKeyboard->update();
    showKey();
}

void KeyMapPage::showKey() {
    const auto& key = m_keys.used.at(selectedKey());
    for (std::size_t i = 0; i < key.size(); ++i) {
        m_keyGlyphs[i] = LargeGlyph(m_atlas, key[i]);
        m_keyPictures[i]->setPicture(&m_keyGlyphs[i]);
        const QString words = FromLatin1(glyphs::GlyphName(key[i]));
        m_keyStrips[i]->setAccessibleDescription(words);
        m_keyPictures[i]->setAccessibleName(words);
    }
    m_form.picKeyboard->selectKey(selectedKey());
    showLayer();
}

void KeyMapPage::showLayer() {
    const bool types = selectedTypes();
    const glyphs::GlyphCode code =
        types ? m_keys.used.at(selectedKey())[m_form.picKeyboard->layer()] : glyphs::GlyphCode(0);
    m_marker->moveToCell(code % 16 + 1, code / 16 + 1);
    m_marker->setVisible(code != 0);
    editing::SetCurrentGlyph(*m_form.picKeyGrid, code);
    m_form.cmdTypesNothing->setEnabled(types && code != 0);
    const QString key = m_form.picKeyboard->keyText(editing::DrawnKeyOf(selectedKey()));
    const QString more = types ? tr("A click on a glyph lets the key type it.")
                         : selectedKey() == editing::KeyIndex(editing::KeyEnter)
                             ? tr("The key moves the cursor.")
                             : tr("With Ctrl it is another key.");
    m_form.lblKeyFacts->setText(key + QLatin1Char('\n') + more);
}

void KeyMapPage::setGlyph(std::size_t column, glyphs::GlyphCode code) {
    m_model.setKeyGlyph(m_keys.used, selectedKey(), column, code);
    showKey();
}

void KeyMapPage::setKeyboardVisible(bool on) {
    m_form.picKeyGrid->setVisible(on);
    m_form.picKeyboard->setVisible(on);
    m_form.lblKeyFacts->setVisible(on);
    m_form.cmdTypesNothing->setVisible(on);
    m_form.cmdKeyboard->setText(on ? tr("Hide Keyboard") : tr("Show Keyboard"));
}

void KeyMapPage::KeyListBox_Click() {
    showKey();
}

void KeyMapPage::KeyListBox_KeyPress() {
    m_form.KeyListBox->clearEditText();
}

void KeyMapPage::picKeyStripCont_Click(std::size_t index) {
    setGlyph(index, m_pickGlyph(m_keys.used.at(selectedKey()).at(index)));
}

void KeyMapPage::cmdResetKeysToDefault_Click() {
    if (!m_platform.dialogs.askYesNo(texts::ResetKeys)) {
        return;
    }
    const auto loaded = editing::LoadKeyMap(m_platform.files, m_platform.directory);
    m_keys = {loaded.map, loaded.map};
    // Typing into the list has emptied its text.
    m_form.KeyListBox->setEditText(m_form.KeyListBox->itemText(m_form.KeyListBox->currentIndex()));
    showKey();
    if (!loaded.status) {
        m_platform.dialogs.warn(loaded.status.failure().message);
    }
}

void KeyMapPage::cmdKeyboard_Click() {
    const bool on = m_form.picKeyboard->isHidden();
    setKeyboardVisible(on);
    // The dialog is as large as its pages need. On a small screen this one scrolls.
    QSize least(0, 0);
    if (on) {
        m_form.pagKeys->layout()->activate();
        const QSize others = m_dialog.frameGeometry().size() - m_form.scrKeys->size();
        const QSize room = m_dialog.screen()->availableSize() - others;
        least = m_form.pagKeys->sizeHint();
        if (least.height() > room.height()) {
            least.rwidth() += m_form.scrKeys->verticalScrollBar()->sizeHint().width();
        }
        least = least.boundedTo(room);
    }
    m_form.scrKeys->setMinimumSize(least);
    m_dialog.layout()->activate();
    if (on) {
        MoveOntoScreen(m_dialog);
        m_form.picKeyboard->setFocus();
    }
}

void KeyMapPage::cmdTypesNothing_Click() {
    setGlyph(m_form.picKeyboard->layer(), 0);
}

void KeyMapPage::picKeyGrid_MouseDown(QPoint pixel, Qt::MouseButton button) {
    const glyphs::GlyphCode code = editing::PickedAt(0, pixel.x(), pixel.y());
    if (button == Qt::LeftButton && code != 0 && selectedTypes()) {
        setGlyph(m_form.picKeyboard->layer(), code);
    }
}

void KeyMapPage::picKeyboard_Click(std::size_t key) {
    m_form.KeyListBox->setCurrentIndex(static_cast<int>(key));
    showKey();
}

} // namespace shell
