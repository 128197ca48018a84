// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "shell/NewCharSet.h"
#include "ui/Picture.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmNewCharSet;
}

namespace shell {

/// Shows a character set out of a file as its glyphs will be seen, asks what to call it, and stores it.
class frmNewCharSet final : public QDialog {
    Q_OBJECT

public:
    /// `dialogs` outlives the window. The glyphs are shown over `background`.
    frmNewCharSet(NewCharSet set, ui::Dialogs& dialogs, ui::Pixel background, QWidget* parent = nullptr);
    ~frmNewCharSet() override;

    /// The place (0-based) in the list of the set that was stored; only of a window that was accepted.
    [[nodiscard]] int place() const { return m_place; }

private:
    void connectControls();
    void showSet();
    void showObjection();
    [[nodiscard]] std::string name() const;
    [[nodiscard]] std::string webAddress() const;

    void cmdPalette_Click();
    void cmdStore_Click();

    std::unique_ptr<Ui::frmNewCharSet> m_form;
    NewCharSet m_set;
    ui::Dialogs& m_dialogs;
    ui::Pixel m_background;
    ui::Picture m_glyphs;
    int m_place = 0;
};

} // namespace shell
