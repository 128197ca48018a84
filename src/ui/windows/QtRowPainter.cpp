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
    QApplication::style()->drawPrimitive(QStyle::PE_IndicatorBranch, &option, &painter);
}

} // namespace ui::native
