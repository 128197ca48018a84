// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/ProgressIndicator.h"

#include "shell/ControlAccess.h"
#include "ui/qt/AccessibleParts.h"

#include <QPainter>

namespace shell {

namespace {

constexpr int PictureWidth = 14;
constexpr int PictureHeight = 8;

} // namespace

ProgressIndicator::ProgressIndicator(QWidget* parent)
    : QWidget(parent) {
    ui::qt::InstallAccess<ProgressIndicator, ProgressAccess>();
    setObjectName(QStringLiteral("picProgress"));
    setFixedSize(sizeHint());
    setAccessibleName(tr("Painting progress"));
}

QSize ProgressIndicator::sizeHint() const {
    return {PictureWidth * 8, PictureHeight};
}

QRect ProgressIndicator::pictureRect() const {
    return {(width() - PictureWidth) * m_percentage / 100, 0, PictureWidth, height()};
}

void ProgressIndicator::showPercentage(int percentage) {
    if (percentage != m_percentage) {
        m_percentage = percentage;
        if (isVisible()) {
            repaint();
        }
        if (QAccessible::isActive()) {
            QAccessibleValueChangeEvent event(this, percentage);
            QAccessible::updateAccessibility(&event);
        }
    }
}

void ProgressIndicator::paintEvent(QPaintEvent*) {
    // At rest its place stays empty, and nothing beside it moves.
    if (m_percentage == 0) {
        return;
    }
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(0, height() / 2, width(), height() / 2);
    painter.fillRect(pictureRect(), palette().highlight());
}

} // namespace shell
