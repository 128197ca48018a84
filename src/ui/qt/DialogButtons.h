// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QDialogButtonBox>
#include <QPushButton>

namespace ui::qt {

/// Gives a standard button, which must be in the box, its object name and its text. The text is set because
/// the toolkit's own comes in the language of the desktop, and the rest of the program does not.
QPushButton* NameButton(
    const QDialogButtonBox& box, QDialogButtonBox::StandardButton which, const QString& name,
    const QString& text);

/// The same for the two buttons that most dialogs have: cmdOK and cmdCancel.
void NameOkAndCancel(const QDialogButtonBox& box);

} // namespace ui::qt
