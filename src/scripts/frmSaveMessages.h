// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/ScriptFlow.h"

#include <QDialog>

#include <memory>

namespace scripts {

namespace Ui {
class frmSaveMessages;
}

/// The wizard that saves messages as a script. It stays open until a script was written or it is cancelled.
class frmSaveMessages final : public QDialog {
    Q_OBJECT

public:
    /// Everything is borrowed and outlives the dialog.
    frmSaveMessages(
        ui::Dialogs& dialogs, ui::Files& files, const editing::MessageDocument& messages,
        QWidget* parent = nullptr);
    ~frmSaveMessages() override;

    /// What came of it in the end.
    [[nodiscard]] const editing::SaveOutcome& outcome() const { return m_outcome; }

private:
    void connectControls();
    void cmdOK_Click();
    void cmdCancel_Click();

    std::unique_ptr<Ui::frmSaveMessages> m_form;
    ui::Dialogs& m_dialogs;
    ui::Files& m_files;
    const editing::MessageDocument& m_messages;
    editing::SaveOutcome m_outcome;
};

} // namespace scripts
