// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/frmSaveMessages.h"

#include "scripts/mdlMacro.h"

#include "ui_frmSaveMessages.h"

#include <QPushButton>

namespace scripts {

frmSaveMessages::frmSaveMessages(
    ui::Dialogs& dialogs, ui::Files& files, const editing::MessageDocument& messages, QWidget* parent)
    : QDialog(parent)
    , m_form(std::make_unique<Ui::frmSaveMessages>())
    , m_dialogs(dialogs)
    , m_files(files)
    , m_messages(messages) {
    m_form->setupUi(this);
    auto* const ok = m_form->buttons->button(QDialogButtonBox::Ok);
    ok->setObjectName(QStringLiteral("cmdOK"));
    ok->setText(QStringLiteral("OK"));
    auto* const cancel = m_form->buttons->button(QDialogButtonBox::Cancel);
    cancel->setObjectName(QStringLiteral("cmdCancel"));
    cancel->setText(QStringLiteral("Cancel"));
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
    const SaveOutcome outcome = SaveMessageScript(m_dialogs, m_files, choice, m_messages);
    if (outcome.kind == SaveOutcome::Kind::Written) {
        m_savedPath = outcome.path;
        accept();
    }
}

void frmSaveMessages::cmdCancel_Click() {
    reject();
}

} // namespace scripts
