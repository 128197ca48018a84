// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/frmSaveMessages.h"

#include "scripts/mdlMacro.h"

#include "ui/qt/DialogButtons.h"
#include "ui_frmSaveMessages.h"

namespace scripts {

frmSaveMessages::frmSaveMessages(
    ui::Dialogs& dialogs, ui::Files& files, const editing::MessageDocument& messages, QWidget* parent)
    : QDialog(parent)
    , m_form(std::make_unique<Ui::frmSaveMessages>())
    , m_dialogs(dialogs)
    , m_files(files)
    , m_messages(messages) {
    m_form->setupUi(this);
    ui::qt::NameOkAndCancel(*m_form->buttons);
    connectControls();
}

frmSaveMessages::~frmSaveMessages() = default;

void frmSaveMessages::connectControls() {
    connect(m_form->buttons, &QDialogButtonBox::accepted, this, &frmSaveMessages::cmdOK_Click);
    connect(m_form->buttons, &QDialogButtonBox::rejected, this, &frmSaveMessages::cmdCancel_Click);
}

void frmSaveMessages::cmdOK_Click() {
    MessageChoice choice;
    choice.selected = {
        m_form->chkMess_0->isChecked(), m_form->chkMess_1->isChecked(), m_form->chkMess_2->isChecked()};
    choice.command = m_form->optSay_0->isChecked() ? SayCommand::Say : SayCommand::SayTeam;
    m_outcome = SaveMessageScript(m_dialogs, m_files, choice, m_messages);
    if (m_outcome.kind == editing::SaveOutcome::Kind::Written) {
        accept();
    }
}

void frmSaveMessages::cmdCancel_Click() {
    reject();
}

} // namespace scripts
