// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/OwnColors.h"

#include <QStyle>
#include <QStyleFactory>
#include <QWidget>

namespace ui::qt {

void ShowOwnColors(QWidget& control) {
    QStyle* const style = QStyleFactory::create(QStringLiteral("Fusion"));
    style->setParent(&control);
    control.setStyle(style);
}

} // namespace ui::qt
