// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "scripts/BindHints.h"
#include "scripts/GameHints.h"
#include "scripts/mdlBind.h"
#include "ui/Platform.h"

#include <QDialog>

#include <memory>
#include <string>

class QLabel;
class QListWidget;

namespace scripts {

namespace Ui {
class frmBindWiz;
}

/// The wizard that makes a key of the game run a script. It stays open until a binding was written or it is
/// cancelled.
class frmBindWiz final : public QDialog {
    Q_OBJECT

public:
    /// The paths that the program remembers for the wizard; empty: none.
    struct Paths {
        ui::Path config;
        ui::Path script;
    };

    /// Shows those of the remembered paths that lead to a file. The platform's parts are borrowed and outlive
    /// the dialog.
    frmBindWiz(
        ui::Dialogs& dialogs, ui::Files& files, const ui::ProgramDirectory& directory, Paths remembered,
        GamesHere games = {}, QWidget* parent = nullptr);
    ~frmBindWiz() override;

    /// The paths to remember from now on, however the dialog was closed: those that were chosen in its file
    /// dialogs, or with which a key was bound, take the place of the others.
    [[nodiscard]] const Paths& remembered() const { return m_remembered; }

    /// What to show in the status line after a binding was written; may be empty.
    [[nodiscard]] const std::string& statusText() const { return m_statusText; }

private:
    void connectControls();
    void Form_Load();
    void setConfig(const ui::Path& path);
    void setScript(const ui::Path& path);
    void showBoundKeys();
    void showScriptHint();
    void chooseKey(const QListWidget& list);
    void showChosenKey();

    void txtCFGFileName_Change(const QString& text);
    void txtSCRFileName_Change(const QString& text);
    void cmdGetCFGFile_Click();
    void cmdGetSCRFile_Click();
    void BindList_Click();
    void NotBound_Click();
    void PreBound_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

    std::unique_ptr<Ui::frmBindWiz> m_form;
    ui::Dialogs& m_dialogs;
    ui::Files& m_files;
    const ui::ProgramDirectory& m_directory;
    Paths m_remembered;
    GamesHere m_games;
    BindChoice m_choice; ///< its paths hold the bytes of file names that the text boxes cannot show
    ConfigKeys m_keys;   ///< of the configuration file
    std::string m_statusText;
};

} // namespace scripts
