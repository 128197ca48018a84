// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/Icons.h"

#include <QImage>
#include <QPixmap>
#include <QResource>
#include <cmath>
#include <cstring>

namespace shell {

namespace {

/// A picture of the program, from its bare pixels: to read a picture file the toolkit would first load all
/// its plug-ins for icons and pictures, which takes a good part of the program's start.
QPixmap ReadPicture(const QString& name, qreal devicePixelRatio = 1) {
    const QByteArray pixels = QResource(QStringLiteral(":/icons/") + name).uncompressedData();
    if (pixels.isEmpty()) {
        return {};
    }
    const auto side = static_cast<int>(std::lround(std::sqrt(pixels.size() / 4)));
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    // Their rows are whole numbers of 32 bits, so nothing is between them.
    std::memcpy(image.bits(), pixels.constData(), static_cast<std::size_t>(image.sizeInBytes()));
    image.setDevicePixelRatio(devicePixelRatio);
    return QPixmap::fromImage(std::move(image));
}

} // namespace

QIcon ToolIcon(const QString& key) {
    QIcon icon;
    icon.addPixmap(ReadPicture(key));
    icon.addPixmap(ReadPicture(key + QStringLiteral("@2x"), 2));
    return icon;
}

QIcon ProgramIcon() {
    QIcon icon;
    for (const int side : {16, 32, 48, 64}) {
        icon.addPixmap(ReadPicture(QStringLiteral("vtm-%1").arg(side)));
    }
    return icon;
}

} // namespace shell
