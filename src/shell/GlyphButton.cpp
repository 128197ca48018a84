// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/GlyphButton.h"

#include "glyphs/GlyphWords.h"
#include "ui/qt/WholePixels.h"

#include <QMouseEvent>
#include <QScreen>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <utility>

namespace shell {

namespace {

constexpr int Side = 26;
constexpr int BareSide = 20; // holds the glyph at every scale of the screen

} // namespace

GlyphButton::GlyphButton(QString title, QWidget* parent)
    : QAbstractButton(parent)
    , m_title(std::move(title))
    , m_picture(glyphs::CellSide, glyphs::CellSide) {
    setFixedSize(sizeHint());
    setFocusPolicy(Qt::NoFocus);
    // Only assistive tools click: the mouse acts when it goes down.
    connect(this, &QAbstractButton::clicked, this, [this] { Q_EMIT mouseDown(Qt::LeftButton); });
}

void GlyphButton::setGlyph(const glyphs::GlyphAtlas& atlas, glyphs::GlyphCode code) {
    m_code = code;
    m_picture = glyphs::GlyphButtonPicture(atlas, code);
    setAccessibleName(tr("%1: %2").arg(m_title, QString::fromStdString(glyphs::GlyphName(code))));
    update();
}

void GlyphButton::setBare() {
    m_isBare = true;
    setFixedSize(sizeHint());
}

QSize GlyphButton::sizeHint() const {
    const int side = m_isBare ? BareSide : Side;
    return {side, side};
}

void GlyphButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    option.initFrom(this);
    option.state |= isDown() ? QStyle::State_Sunken : QStyle::State_Raised;
    if (!m_isBare) {
        painter.drawControl(QStyle::CE_PushButtonBevel, option);
    }
    // The style may leave the painter smoothing, which blurs the glyph on scaled screens.
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
    const qreal scale = ui::qt::DeviceScale(painter);
    const qreal unit = static_cast<qreal>(ui::qt::BlockPixels(glyphs::CellBlock, scale, screen()->size())) /
                       glyphs::CellBlock;
    const QSizeF room = QSizeF(size()) * scale - QSizeF(m_picture.width(), m_picture.height()) * unit;
    const QPointF corner = ui::qt::DeviceCorner(painter) + QPointF(room.width() / 2, room.height() / 2);
    ui::qt::PaintFrom(painter, ui::qt::WholePixels(corner), unit);
    painter.drawImage(QPoint(0, 0), ui::qt::ImageOver(m_picture));
}

void GlyphButton::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    Q_EMIT pointedAt(true);
}

void GlyphButton::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    Q_EMIT pointedAt(false);
}

void GlyphButton::mousePressEvent(QMouseEvent* event) {
    setDown(true);
    Q_EMIT mouseDown(event->button());
}

void GlyphButton::mouseReleaseEvent(QMouseEvent*) {
    setDown(false);
}

} // namespace shell
