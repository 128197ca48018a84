// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/SmallPrint.h"

#include <QFontInfo>
#include <QWidget>

namespace ui::qt {

double SmallPrintSize(const QWidget& widget) {
    constexpr double Smaller = 0.9;
    return widget.fontInfo().pointSizeF() * Smaller;
}

void SetSmallPrint(QWidget& widget) {
    QFont font = widget.font();
    font.setPointSizeF(SmallPrintSize(widget));
    widget.setFont(font);
}

} // namespace ui::qt
