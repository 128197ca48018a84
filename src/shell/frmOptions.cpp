// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/frmOptions.h"

#include "ui_frmOptions.h"

#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QStyle>

#include "ui/qt/DialogButtons.h"
#include "ui/qt/SmallPrint.h"
#include "ui/qt/Text.h"

#include <algorithm>
#include <utility>

namespace shell {

namespace {

using ui::qt::FromPath;

constexpr int SoundRowHeight = 16;

QColor ColourOf(ui::Pixel pixel) {
    return QColor::fromRgb(pixel);
}

} // namespace

frmOptions::frmOptions(
    const ui::Platform& platform, const Settings& settings, const glyphs::CharSetRecord& charSet,
    const glyphs::GlyphAtlas& atlas, editing::KeyMaps& keys, KeyMapPage::GlyphPicker pickGlyph,
    CharSetPage::SetRemoved charSetRemoved, QWidget* parent)
    : QDialog(parent)
    , m_platform(platform)
    , m_model(settings, charSet)
    , m_form(std::make_unique<Ui::frmOptions>()) {
    m_form->setupUi(this);
    ui::qt::NameOkAndCancel(*m_form->buttons);

    m_sounds = {m_form->optSounds_0, m_form->optSounds_1, m_form->optSounds_2, m_form->optSounds_3};
    m_colours = {
        m_form->picColor_0, m_form->picColor_1, m_form->picColor_2, m_form->picColor_3, m_form->picColor_4};
    m_cursors = {m_form->cmbMouse_0, m_form->cmbMouse_1, m_form->cmbMouse_2, m_form->cmbMouse_3};

    // A larger font needs more than the rows are meant to have.
    const int soundRow = std::max(SoundRowHeight, fontMetrics().height());
    for (auto* const box : m_sounds) {
        box->setFixedHeight(soundRow);
    }

    // Below the words of its box.
    ui::qt::SetSmallPrint(*m_form->lblCaseChoice);
    m_form->lblCaseChoice->setIndent(
        style()->pixelMetric(QStyle::PM_IndicatorWidth) +
        style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing));

    showSettings();
    m_charSets = new CharSetPage(
        *m_form, *this, platform, {settings, charSet, atlas}, m_model, std::move(charSetRemoved));
    m_keyMap = new KeyMapPage(*m_form, *this, platform, atlas, keys, m_model, std::move(pickGlyph));
    connect(m_charSets, &CharSetPage::atlasChanged, m_keyMap, &KeyMapPage::showAtlas);
    connectControls();
}

frmOptions::~frmOptions() = default;

void frmOptions::connectControls() {
    // The tabs know these keys too, but a list that has the focus would keep them.
    auto* const nextPage = new QShortcut(Qt::CTRL | Qt::Key_Tab, this);
    connect(nextPage, &QShortcut::activated, this, [this] { turnPage(1); });
    auto* const previousPage = new QShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab, this);
    connect(previousPage, &QShortcut::activated, this, [this] { turnPage(-1); });
    connect(m_form->chkCaseChoice, &QCheckBox::clicked, this, &frmOptions::chkCaseChoice_Click);
    connect(
        m_form->txtbmpScreenShotFileName, &QLineEdit::textEdited, this,
        &frmOptions::txtbmpScreenShotFileName_Change);
    connect(m_form->cmdDefaultSS, &QPushButton::clicked, this, &frmOptions::cmdDefaultSS_Click);
    connect(m_form->cmdSetSS, &QPushButton::clicked, this, &frmOptions::cmdSetSS_Click);
    for (std::size_t i = 0; i < m_sounds.size(); ++i) {
        connect(m_sounds[i], &QCheckBox::clicked, this, [this, i] { optSounds_Click(i); });
    }
    connect(m_form->SaveSettings, &QCheckBox::clicked, this, &frmOptions::SaveSettings_Click);
    connect(m_form->LoadSettings, &QCheckBox::clicked, this, &frmOptions::LoadSettings_Click);
    for (std::size_t i = 0; i < m_colours.size(); ++i) {
        connect(m_colours[i], &ColourBox::clicked, this, [this, i] { picColor_Click(i); });
    }
    connect(m_form->optFormatVal_0, &QCheckBox::clicked, this, [this] { optFormatVal_Click(0); });
    connect(m_form->optFormatVal_1, &QCheckBox::clicked, this, [this] { optFormatVal_Click(1); });
    connect(m_form->optPromptBinding, &QCheckBox::clicked, this, &frmOptions::optPromptBinding_Click);
    for (std::size_t i = 0; i < m_cursors.size(); ++i) {
        connect(m_cursors[i], &QComboBox::activated, this, [this, i] { cmbMouse_Click(i); });
    }
    connect(m_form->buttons, &QDialogButtonBox::accepted, this, &frmOptions::cmdOK_Click);
    connect(m_form->buttons, &QDialogButtonBox::rejected, this, &frmOptions::cmdCancel_Click);
}

void frmOptions::turnPage(int step) {
    auto* const tabs = m_form->tabOptions;
    tabs->setCurrentIndex((tabs->currentIndex() + step + tabs->count()) % tabs->count());
}

void frmOptions::showSettings() {
    const Settings& settings = m_model.settings();
    m_form->chkCaseChoice->setChecked(settings.caseChoice);
    showScreenshot();
    for (std::size_t i = 0; i < m_sounds.size(); ++i) {
        m_sounds[i]->setChecked(settings.sounds[i]);
    }
    m_form->SaveSettings->setChecked(settings.saveAtExit);
    m_form->LoadSettings->setChecked(settings.loadAtStartup);
    for (std::size_t i = 0; i < m_colours.size(); ++i) {
        m_colours[i]->setColour(ColourOf(settings.colours[i]));
    }
    m_form->optFormatVal_0->setChecked(settings.promptNames);
    m_form->optFormatVal_1->setChecked(settings.promptMessages);
    m_form->optPromptBinding->setChecked(settings.bindPrompt);
    for (std::size_t i = 0; i < m_cursors.size(); ++i) {
        const int style = settings.cursors[i];
        m_cursors[i]->setCurrentIndex(style >= 0 && style < m_cursors[i]->count() ? style : 0);
    }
}

void frmOptions::showScreenshot() {
    m_form->txtbmpScreenShotFileName->setText(FromPath(ui::PathFromText(m_model.settings().screenshot)));
}

void frmOptions::chkCaseChoice_Click() {
    m_model.setCaseChoice(m_form->chkCaseChoice->isChecked());
}

void frmOptions::txtbmpScreenShotFileName_Change(const QString& text) {
    m_model.setScreenshot(ui::PathText(ui::qt::ToPath(text)));
}

void frmOptions::cmdDefaultSS_Click() {
    m_model.setScreenshot(DefaultScreenshot(m_platform.directory.folder()));
    showScreenshot();
}

void frmOptions::cmdSetSS_Click() {
    const auto chosen = m_platform.dialogs.chooseFileToOpen(
        ScreenshotRequest(m_model.settings().screenshot, m_platform.directory.folder()));
    if (!chosen) {
        return;
    }
    m_model.setScreenshot(ui::PathText(*chosen));
    showScreenshot();
}

void frmOptions::optSounds_Click(std::size_t index) {
    m_model.setSound(index, m_sounds[index]->isChecked());
}

void frmOptions::SaveSettings_Click() {
    m_model.setSaveAtExit(m_form->SaveSettings->isChecked());
}

void frmOptions::LoadSettings_Click() {
    m_model.setLoadAtStartup(m_form->LoadSettings->isChecked());
}

void frmOptions::picColor_Click(std::size_t index) {
    const auto chosen = m_platform.dialogs.chooseColour(m_model.settings().colours[index]);
    if (!chosen) {
        return;
    }
    m_model.setColour(index, *chosen);
    m_colours[index]->setColour(ColourOf(*chosen));
    if (index == BackgroundColour) {
        m_charSets->paintCharSet();
    }
}

void frmOptions::optFormatVal_Click(std::size_t index) {
    if (index == 0) {
        m_model.setPromptNames(m_form->optFormatVal_0->isChecked());
    } else {
        m_model.setPromptMessages(m_form->optFormatVal_1->isChecked());
    }
}

void frmOptions::optPromptBinding_Click() {
    m_model.setBindPrompt(m_form->optPromptBinding->isChecked());
}

void frmOptions::cmbMouse_Click(std::size_t index) {
    m_model.setCursor(index, static_cast<std::int16_t>(m_cursors[index]->currentIndex()));
}

void frmOptions::cmdOK_Click() {
    accept();
}

void frmOptions::cmdCancel_Click() {
    reject();
}

} // namespace shell
