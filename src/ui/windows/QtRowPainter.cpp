// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/windows/QtRowPainter.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QStyle>
#include <QStyleOption>

namespace ui::native {

void MakeRowPainter() {
    QPixmap picture(1, 1);
    QPainter painter(&picture);
    const QStyleOption option;
    // The style makes that window for whatever it draws of a tree: of a branch that leads nowhere it draws
    // nothing.
    QApplication::style()->drawPrimitive(QStyle::PE_IndicatorBranch, &option, &painter);
}

} // namespace ui::native
