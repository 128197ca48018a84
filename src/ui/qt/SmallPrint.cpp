// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/SmallPrint.h"

#include <QFontInfo>
#include <QWidget>

namespace ui::qt {

void SetSmallPrint(QWidget& widget) {
    constexpr double Smaller = 0.9;
    QFont font = widget.font();
    font.setPointSizeF(widget.fontInfo().pointSizeF() * Smaller);
    widget.setFont(font);
}

} // namespace ui::qt
