// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/frmNewCharSet.h"

#include "editing/GlyphCells.h"
#include "glyphs/mdlPaint.h"
#include "ui/qt/DialogButtons.h"
#include "ui/qt/SmallPrint.h"
#include "ui/qt/Text.h"
#include "ui_frmNewCharSet.h"

#include <utility>

namespace shell {

frmNewCharSet::frmNewCharSet(NewCharSet set, ui::Dialogs& dialogs, ui::Pixel background, QWidget* parent)
    : QDialog(parent)
    , m_form(std::make_unique<Ui::frmNewCharSet>())
    , m_set(std::move(set))
    , m_dialogs(dialogs)
    , m_background(background) {
    m_form->setupUi(this);
    QPushButton* const cmdStore = ui::qt::NameButton(
        *m_form->buttons, QDialogButtonBox::Save, QStringLiteral("cmdStore"), tr("&Store"));
    QPushButton* const cmdCancel = ui::qt::NameButton(
        *m_form->buttons, QDialogButtonBox::Cancel, QStringLiteral("cmdCancel"), tr("Cancel"));
    cmdStore->setDefault(true);
    cmdCancel->setAutoDefault(false);
    setTabOrder(m_form->cmdPalette, cmdStore);
    setTabOrder(cmdStore, cmdCancel);

    ui::qt::SetSmallPrint(*m_form->lblObjection);
    ui::qt::SetSmallPrint(*m_form->lblNotes);
    m_form->ImgGrid->setBlock(glyphs::CellBlock);
    m_form->ImgGrid->setCells(editing::GlyphGridCells(false));
    m_form->lblFile->setText(ui::qt::FromPath(m_set.file().filename()));
    m_form->lblFile->setToolTip(ui::qt::FromPath(m_set.file()));
    m_form->txtName->setText(QString::fromStdString(m_set.suggestedName()));
    m_form->txtName->selectAll();
    m_form->cmdPalette->setVisible(m_set.takesPalette());
    showSet();
    connectControls();
    if (!m_set.picture()) {
        m_form->cmdPalette->setFocus();
    }
}

frmNewCharSet::~frmNewCharSet() = default;

void frmNewCharSet::connectControls() {
    connect(m_form->txtName, &QLineEdit::textEdited, this, &frmNewCharSet::showObjection);
    connect(m_form->txtAddress, &QLineEdit::textEdited, this, &frmNewCharSet::showObjection);
    connect(m_form->cmdPalette, &QPushButton::clicked, this, &frmNewCharSet::cmdPalette_Click);
    connect(m_form->buttons, &QDialogButtonBox::accepted, this, &frmNewCharSet::cmdStore_Click);
    connect(m_form->buttons, &QDialogButtonBox::rejected, this, &frmNewCharSet::reject);
}

void frmNewCharSet::showSet() {
    const ui::Picture none(glyphs::ArtworkSide, glyphs::ArtworkSide, 0);
    m_glyphs = glyphs::BuildAtlas(m_set.picture().value_or(none), m_background).cells;
    m_form->ImgGrid->setPicture(&m_glyphs);
    m_form->lblFacts->setText(QString::fromStdString(m_set.facts()));
    m_form->lblFacts->setVisible(!m_set.facts().empty());
    QStringList notes;
    for (const std::string& note : m_set.notes()) {
        notes << QString::fromStdString(note);
    }
    m_form->lblNotes->setText(notes.join(QLatin1Char('\n')));
    m_form->lblNotes->setVisible(!notes.empty());
    showObjection();
}

void frmNewCharSet::showObjection() {
    const std::string objection = m_set.objection(name(), webAddress());
    const QString text = QString::fromStdString(objection);
    m_form->lblObjection->setText(text);
    m_form->txtName->setAccessibleDescription(text);
    m_form->lblObjection->setVisible(!objection.empty());
    m_form->buttons->button(QDialogButtonBox::Save)->setEnabled(objection.empty());
}

std::string frmNewCharSet::name() const {
    return m_form->txtName->text().trimmed().toStdString();
}

std::string frmNewCharSet::webAddress() const {
    return m_form->txtAddress->text().trimmed().toStdString();
}

void frmNewCharSet::cmdPalette_Click() {
    const auto file = m_dialogs.chooseFileToOpen(PaletteRequest(m_set.file()));
    if (!file) {
        return;
    }
    if (const ui::Status used = m_set.usePalette(*file); !used) {
        m_dialogs.warn(used.failure().message);
        return;
    }
    showSet();
    m_form->txtName->setFocus();
}

void frmNewCharSet::cmdStore_Click() {
    const auto place = m_set.store(name(), webAddress());
    if (!place) {
        m_dialogs.warn(place.failure().message);
        return;
    }
    m_place = place.value();
    accept();
}

} // namespace shell
