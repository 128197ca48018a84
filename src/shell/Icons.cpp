// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/Icons.h"

#include <QIconEngine>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QResource>
#include <QWidget>
#include <algorithm>
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

/// Draws when it is asked to, in the colours of then.
class MoreIconEngine final : public QIconEngine {
public:
    explicit MoreIconEngine(const QWidget& widget)
        : m_widget(widget) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override {
        constexpr double Reach = 5.5; // of an angle, on a grid of 16
        const double unit = std::min(rect.width(), rect.height()) / 16.0;
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(QPen(m_widget.palette().color(group, QPalette::ButtonText), 2 * unit));
        painter->translate(QRectF(rect).center());
        painter->scale(m_widget.isRightToLeft() ? -1 : 1, 1);
        for (const double left : {-Reach, 0.5}) {
            const QPointF tip(left + Reach - 0.5, 0);
            painter->drawPolyline(
                QPolygonF({QPointF(left, -Reach) * unit, tip * unit, QPointF(left, Reach) * unit}));
        }
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        paint(&painter, drawn.rect(), mode, state);
        return drawn;
    }

    [[nodiscard]] QIconEngine* clone() const override { return new MoreIconEngine(m_widget); }

private:
    const QWidget& m_widget;
};

} // namespace

QIcon ToolIcon(const QString& key) {
    QIcon icon;
    icon.addPixmap(ReadPicture(key));
    icon.addPixmap(ReadPicture(key + QStringLiteral("@2x"), 2));
    return icon;
}

QIcon MoreIcon(const QWidget& widget) {
    return QIcon(new MoreIconEngine(widget)); // the icon owns it
}

QIcon ProgramIcon() {
    QIcon icon;
    for (const int side : {16, 32, 48, 64}) {
        icon.addPixmap(ReadPicture(QStringLiteral("vtm-%1").arg(side)));
    }
    return icon;
}

} // namespace shell
