// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/PagePanel.h"

#include "ui/qt/MarkerShape.h"
#include "ui/qt/PictureWidget.h"

#include <QFrame>
#include <QScrollBar>
#include <QVBoxLayout>

namespace editing {

PagePanel::PagePanel(
    glyphs::PagePicture& picture, const QString& pictureName, const QString& markerName, QWidget* parent)
    : QWidget(parent)
    , m_picture(picture)
    , m_widget(new ui::qt::PictureWidget(this))
    , m_marker(new ui::qt::MarkerShape(m_widget)) {
    m_widget->setObjectName(pictureName);
    m_widget->setPicture(&picture.pixels());
    m_marker->show();
    m_marker->setObjectName(markerName);
    connect(m_widget, &ui::qt::PictureWidget::pressed, this, [this](QPoint pixel, Qt::MouseButton button) {
        Q_EMIT picturePressed(pixel.x(), pixel.y(), button);
    });
}

void PagePanel::showDamage() {
    m_widget->showDamage(m_picture.takeDamage());
}

void PagePanel::blink() {
    m_marker->toggleStyle();
}

void PagePanel::setMarkerColour(ui::Pixel colour) {
    m_marker->setColour(QColor::fromRgb(colour));
}

void PagePanel::setPointer(int cursorStyle) {
    m_widget->setPointer(cursorStyle);
}

void PagePanel::moveMarker(int column, int row) {
    m_marker->moveToCell(column, row);
}

QScrollBar* PagePanel::makeScrollBar(
    Qt::Orientation orientation, const QString& name, const QString& accessibleName, int minimum,
    int maximum) {
    auto* bar = new QScrollBar(orientation, this);
    bar->setObjectName(name);
    bar->setAccessibleName(accessibleName);
    bar->setRange(minimum, maximum);
    bar->setPageStep(1);
    bar->setFocusPolicy(Qt::NoFocus);
    connect(bar, &QScrollBar::actionTriggered, this, &PagePanel::userActed);
    return bar;
}

QWidget* PagePanel::makeFrame() {
    auto* frame = new QFrame(this);
    frame->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    auto* layout = new QVBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_widget);
    frame->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    return frame;
}

} // namespace editing
