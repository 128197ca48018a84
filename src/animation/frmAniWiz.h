// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "animation/mdlAniWizard.h"
#include "glyphs/mdlPaint.h"

#include <QDialog>

#include <memory>

namespace animation {

namespace Ui {
class frmAniWiz;
}

/// The animation wizard: builds fifteen names of the animation out of one of them. It stays open until a
/// build was made or it is cancelled.
class frmAniWiz final : public QDialog {
    Q_OBJECT

public:
    /// Everything is borrowed and outlives the dialog.
    frmAniWiz(
        AnimationDocument& animation, glyphs::CaseChoice caseChoice, const glyphs::GlyphAtlas& atlas,
        ui::Dialogs& dialogs, const ui::Files& files, const ui::ProgramDirectory& directory,
        QWidget* parent = nullptr);
    ~frmAniWiz() override;

    /// Whether rows of the animation were written: its page is to be painted again, however the dialog ended.
    [[nodiscard]] bool built() const { return m_built; }

    /// What the status line has to say about the rows that were written; may be empty.
    [[nodiscard]] const std::string& statusText() const { return m_statusText; }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void connectControls();
    void addShortcuts();
    void turnPage(int step);
    void goTo(QWidget* control);
    void Form_Load();
    [[nodiscard]] WizardChoices choices() const;
    void showTrial();

    void NameToUseScroll_Change(int value);
    void StartNameScroll_Change(int value);
    void cmdBuild_Click();
    void cmdCancel_Click();

    std::unique_ptr<Ui::frmAniWiz> m_form;
    AnimationDocument& m_animation;
    glyphs::CaseChoice m_caseChoice;
    ui::Dialogs& m_dialogs;
    const ui::Files& m_files;
    const ui::ProgramDirectory& m_directory;
    PatternFiles m_patterns; ///< as they were when the wizard opened
    std::string m_message;   ///< to be shown once, when the window is seen
    std::string m_statusText;
    bool m_built = false;
};

} // namespace animation
