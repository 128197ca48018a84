// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/DialogButtons.h"

namespace ui::qt {

QPushButton* NameButton(
    const QDialogButtonBox& box, QDialogButtonBox::StandardButton which, const QString& name,
    const QString& text) {
    QPushButton* const button = box.button(which);
    button->setObjectName(name);
    button->setText(text);
    return button;
}

void NameOkAndCancel(const QDialogButtonBox& box) {
    NameButton(box, QDialogButtonBox::Ok, QStringLiteral("cmdOK"), QStringLiteral("OK"));
    NameButton(box, QDialogButtonBox::Cancel, QStringLiteral("cmdCancel"), QStringLiteral("Cancel"));
}

} // namespace ui::qt
