// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/OptionControls.h"

#include <QPaintEvent>
#include <QStyleOptionFrame>
#include <QStylePainter>

namespace shell {

namespace {

constexpr int FrameWidth = 2;
constexpr int FocusWidth = 2;
constexpr int FocusGap = 3; // from the edge of a control to its frame: room for the focus ring

void DrawSunkenFrame(QStylePainter& painter, const QWidget& widget, const QRect& rect) {
    QStyleOptionFrame option;
    option.initFrom(&widget);
    option.rect = rect;
    option.frameShape = QFrame::Panel;
    option.lineWidth = FrameWidth;
    option.state |= QStyle::State_Sunken;
    painter.drawControl(QStyle::CE_ShapedFrame, option);
}

/// A ring around the control. The style's own focus rectangle would tint the colour or glyph inside it.
void DrawFocus(QStylePainter& painter, const QWidget& widget) {
    if (!widget.hasFocus()) {
        return;
    }
    QPen ring(widget.palette().color(QPalette::Highlight), FocusWidth);
    ring.setJoinStyle(Qt::MiterJoin);
    painter.setPen(ring);
    constexpr int inset = FocusWidth / 2;
    painter.drawRect(widget.rect().adjusted(inset, inset, -inset, -inset));
}

QRect InsideFocus(const QWidget& widget) {
    return widget.rect().adjusted(FocusGap, FocusGap, -FocusGap, -FocusGap);
}

} // namespace

ColourBox::ColourBox(QWidget* parent)
    : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ColourBox::setColour(const QColor& colour) {
    m_colour = colour;
    setAccessibleDescription(colour.name());
    update();
}

QSize ColourBox::sizeHint() const {
    return {90, 30};
}

void ColourBox::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    const QRect box = InsideFocus(*this);
    painter.fillRect(box, m_colour);
    DrawSunkenFrame(painter, *this, box);
    DrawFocus(painter, *this);
}

KeyStrip::KeyStrip(QWidget* parent)
    : QAbstractButton(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    constexpr int margin = FocusGap + FrameWidth;
    setContentsMargins(margin, margin, margin, margin);
}

QSize KeyStrip::sizeHint() const {
    constexpr int side = GlyphSide + 2 * (FocusGap + FrameWidth);
    return QAbstractButton::sizeHint().expandedTo({side, side});
}

void KeyStrip::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    DrawSunkenFrame(painter, *this, InsideFocus(*this));
    DrawFocus(painter, *this);
}

ElidedLabel::ElidedLabel(QWidget* parent)
    : QLabel(parent) {
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

QSize ElidedLabel::minimumSizeHint() const {
    return {0, fontMetrics().height()};
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, width());
    painter.drawItemText(
        rect(), Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), shown, foregroundRole());
}

} // namespace shell
