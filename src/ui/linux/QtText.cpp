// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/Text.h"

#include <QFile>

namespace ui::qt {

QString FromPath(const Path& path) {
    return QFile::decodeName(QByteArray::fromStdString(PathText(path)));
}

Path ToPath(const QString& text) {
    return QFile::encodeName(text).toStdString();
}

} // namespace ui::qt
