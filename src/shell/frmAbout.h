// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/mdlPaint.h"
#include "ui/Picture.h"
#include "ui/Platform.h"

#include <QDialog>

#include <memory>

class QKeyEvent;

class QPushButton;

namespace Ui {
class frmAbout;
}

namespace shell {

/// The about box. Any key closes it; its links are reached by their mnemonics.
class frmAbout final : public QDialog {
    Q_OBJECT

public:
    /// `platform` outlives the dialog. The name is painted with the glyphs in use.
    frmAbout(const ui::Platform& platform, const glyphs::GlyphAtlas& atlas, QWidget* parent = nullptr);
    ~frmAbout() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void connectControls();
    void Form_KeyPress(const QKeyEvent& event);

    void cmdGotoVTM_Click();
    void cmdEmailMe_Click();
    void cmdOK_Click();

    const ui::Platform& m_platform;
    ui::Picture m_banner;
    std::unique_ptr<Ui::frmAbout> m_form;
    QPushButton* cmdOK = nullptr;
};

} // namespace shell
