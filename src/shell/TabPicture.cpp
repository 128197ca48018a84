// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/TabPicture.h"

#include "shell/ControlAccess.h"
#include "ui/qt/AccessibleParts.h"

#include <QMouseEvent>
#include <QPainter>

namespace shell {

namespace {

constexpr QColor ActiveGrey(192, 192, 192);
constexpr QColor InactiveGrey(128, 128, 128);

} // namespace

TabPicture::TabPicture(const QString& caption, QWidget* parent)
    : QWidget(parent)
    , m_caption(caption) {
    ui::qt::InstallAccess<TabPicture, TabAccess>();
    setFixedHeight(sizeHint().height());
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(caption);
}

void TabPicture::setActive(bool isActive) {
    if (isActive != m_isActive) {
        m_isActive = isActive;
        update();
        if (QAccessible::isActive()) {
            QAccessible::State changed;
            changed.selected = true;
            QAccessibleStateChangeEvent event(this, changed);
            QAccessible::updateAccessibility(&event);
        }
    }
}

QSize TabPicture::sizeHint() const {
    return {fontMetrics().horizontalAdvance(m_caption) + 32, fontMetrics().height() + 10};
}

void TabPicture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), m_isActive ? ActiveGrey : InactiveGrey);
    painter.setPen(Qt::black);
    painter.drawText(rect(), Qt::AlignCenter, m_caption);
}

void TabPicture::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        Q_EMIT pressed();
    }
}

} // namespace shell
