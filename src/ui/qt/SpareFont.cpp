// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/SpareFont.h"

#include "ui/qt/Text.h"

#include <QFile>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QGuiApplication>

namespace ui::qt {

void UseSpareFont(const Path& file) {
    const QString name = FromPath(file);
    // Not by the list of families: the toolkit's names for serif and sans serif are on it in any case.
    if (QFile::exists(name) && !QFontMetrics(QGuiApplication::font()).inFont(QLatin1Char('A'))) {
        QFontDatabase::addApplicationFont(name);
    }
}

} // namespace ui::qt
