// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/CharSetPage.h"

#include "artwork/InstalledSets.h"
#include "editing/GlyphCells.h"
#include "shell/frmNewCharSet.h"
#include "shell/mdlLaunch.h"
#include "ui/qt/Text.h"
#include "ui_frmOptions.h"

#include <QSignalBlocker>

#include <utility>

namespace shell {

namespace {

/// The question before a set is removed; `instead` is used after it where that set is in use.
ui::Message RemovalQuestion(const std::string& name, const std::string& instead) {
    std::string detail = "It can be added again from its file.";
    if (!instead.empty()) {
        detail += " As it is in use, \"" + glyphs::ShownText(instead) + "\" takes its place at once.";
    }
    return {
        .text = "Remove the character set \"" + glyphs::ShownText(name) + "\"?",
        .buttons = ui::Buttons::YesNo,
        .detail = detail,
        .prefersNo = true};
}

} // namespace

CharSetPage::CharSetPage(
    Ui::frmOptions& form, QWidget& dialog, const ui::Platform& platform, const InUse& inUse,
    OptionsModel& model, SetRemoved setRemoved)
    : QObject(&dialog)
    , m_form(form)
    , m_dialog(dialog)
    , m_platform(platform)
    , m_inUse(inUse)
    , m_model(model)
    , m_setRemoved(std::move(setRemoved)) {
    m_form.ImgGrid->setBlock(glyphs::CellBlock);
    m_form.ImgGrid->setCells(editing::GlyphGridCells(false));
    showSetInUse();
    connectControls();
}

void CharSetPage::connectControls() {
    connect(m_form.GridList, &QListWidget::currentRowChanged, this, &CharSetPage::GridList_Click);
    connect(m_form.GridList, &QListWidget::itemSelectionChanged, this, [list = m_form.GridList] {
        // A click below the sets chooses none, and takes back none.
        if (list->currentItem() != nullptr && list->selectedItems().isEmpty()) {
            list->currentItem()->setSelected(true);
        }
    });
    connect(m_form.cmdGotoTc, &QPushButton::clicked, this, &CharSetPage::cmdGotoTc_Click);
    connect(m_form.cmdAddSet, &QPushButton::clicked, this, &CharSetPage::cmdAddSet_Click);
    connect(m_form.cmdRemoveSet, &QPushButton::clicked, this, &CharSetPage::cmdRemoveSet_Click);
}

/// Lists the sets as they are by now, and highlights a row without choosing it.
void CharSetPage::listCharSets(int row) {
    const QSignalBlocker quiet(m_form.GridList);
    m_form.GridList->clear();
    for (const auto& name : glyphs::LoadCharSetNames(m_platform.files, m_platform.directory)) {
        m_form.GridList->addItem(ui::qt::FromLatin1(name));
    }
    m_form.GridList->setCurrentRow(row);
}

/// Lists the sets with the one in use, which is shown from memory: its files may have gone since.
void CharSetPage::showSetInUse() {
    listCharSets(m_inUse.settings.charSet);
    if (m_form.GridList->count() == 0) {
        m_form.cmdGotoTc->setEnabled(false);
        m_form.cmdRemoveSet->setEnabled(false);
        return;
    }
    if (m_form.GridList->currentRow() < 0) {
        const QSignalBlocker quiet(m_form.GridList);
        m_form.GridList->setCurrentRow(0);
    }
    showCharSet(m_form.GridList->currentRow(), {m_inUse.charSet, m_inUse.atlas.artwork});
}

void CharSetPage::showCharSet(int row, glyphs::CharSet set) {
    m_shownCharSet = row;
    m_shownArtwork = std::move(set.artwork);
    paintCharSet();
    const std::string address = glyphs::WebAddressText(set.record);
    m_form.lblWebAddress->setText(ui::qt::FromLatin1(address));
    m_form.lblWebAddress->setToolTip(ui::qt::FromLatin1(address));
    m_form.lblWebAddress->setAccessibleName(address.empty() ? tr("No web address") : QString());
    m_form.cmdGotoTc->setEnabled(IsWebAddress(address));
    m_form.cmdRemoveSet->setEnabled(m_form.GridList->count() > 1 && !artwork::IsShipped(set.record));
}

void CharSetPage::paintCharSet() {
    if (m_shownCharSet < 0) {
        return;
    }
    m_shownGlyphs = glyphs::BuildAtlas(m_shownArtwork, m_model.settings().colours[BackgroundColour]).cells;
    m_form.ImgGrid->setPicture(&m_shownGlyphs);
}

/// Says why the set that was chosen cannot be had and goes back to the one that is shown.
void CharSetPage::keepCharSet(const std::string& reason) {
    if (std::exchange(m_keepsCharSet, true)) {
        return;
    }
    // Queued: the list would choose the set again when it finishes the key or the press, and when the
    // keyboard comes back from the message to a list without a choice.
    QMetaObject::invokeMethod(
        this,
        [this, reason] {
            {
                const QSignalBlocker quiet(m_form.GridList);
                m_form.GridList->setCurrentRow(m_shownCharSet);
            }
            m_platform.dialogs.warn(reason);
            m_keepsCharSet = false;
        },
        Qt::QueuedConnection);
}

/// The name of the set in a row, as its record holds it.
std::string CharSetPage::nameAt(int row) const {
    return ui::qt::ToLatin1(m_form.GridList->item(row)->text());
}

void CharSetPage::GridList_Click(int row) {
    if (row < 0) {
        return;
    }
    auto set = glyphs::LoadCharSet(m_platform.files, m_platform.directory, row + 1);
    if (!set) {
        keepCharSet(CharSetStaysText(nameAt(row), m_model.charSet().name, "chosen", set.failure()));
        return;
    }
    m_model.setCharSet(row, set.value().record);
    showCharSet(row, std::move(set).value());
}

void CharSetPage::cmdGotoTc_Click() {
    OpenUrl(m_platform, ui::qt::ToLatin1(m_form.lblWebAddress->text()));
}

void CharSetPage::cmdAddSet_Click() {
    const auto file = m_platform.dialogs.chooseFileToOpen(CharSetRequest());
    if (!file) {
        return;
    }
    auto set = NewCharSet::In(*file, m_platform.files, m_platform.directory);
    if (!set) {
        m_platform.dialogs.warn(set.failure().message);
        return;
    }
    frmNewCharSet window(
        std::move(set).value(), m_platform.dialogs, m_model.settings().colours[BackgroundColour], &m_dialog);
    if (window.exec() != QDialog::Accepted) {
        return;
    }
    listCharSets(m_shownCharSet);
    m_form.GridList->setCurrentRow(window.place());
    m_form.GridList->setFocus();
}

void CharSetPage::cmdRemoveSet_Click() {
    const int row = m_form.GridList->currentRow();
    const std::string name = nameAt(row);
    const bool isInUse = row == m_inUse.settings.charSet;
    if (m_platform.dialogs.box(RemovalQuestion(name, isInUse ? nameAt(row == 0 ? 1 : 0) : "")) !=
        ui::Answer::Yes) {
        return;
    }
    const auto removed = artwork::RemoveSet(
        m_platform.files, m_platform.directory,
        [&](const artwork::CharSetRecords& records) -> ui::Result<std::size_t> {
            const auto place = static_cast<std::size_t>(row);
            if (place < records.size() && records[place].name == name) {
                return place;
            }
            return ui::Failure{"Nothing was removed: another program has changed the list of character sets. "
                               "Open the options again to see it."};
        });
    if (!removed) {
        m_platform.dialogs.warn(removed.failure().message);
        return;
    }
    m_setRemoved(row);
    m_model.returnToCharSet(m_inUse.settings.charSet, m_inUse.charSet);
    showSetInUse();
    m_form.GridList->setFocus();
    if (isInUse) {
        Q_EMIT atlasChanged();
    }
}

} // namespace shell
