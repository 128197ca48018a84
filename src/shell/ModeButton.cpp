// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/ModeButton.h"

#include <QPainter>
#include <cstdlib>

namespace shell {

namespace {

constexpr int BarHeight = 2;
constexpr int BarInset = 4;         // from the sides of the button
constexpr int BarRise = 2;          // from its lower edge
constexpr int LeastDifference = 64; // of two greys that are told apart at a glance

/// The colour of what is selected, unless it is lost on the button as in some dark themes.
QColor BarColour(const QPalette& palette) {
    const QColor highlight = palette.color(QPalette::Highlight);
    const int difference = qGray(highlight.rgb()) - qGray(palette.color(QPalette::Button).rgb());
    return std::abs(difference) < LeastDifference ? palette.color(QPalette::ButtonText) : highlight;
}

} // namespace

ModeButton::ModeButton(QWidget* parent)
    : QToolButton(parent) {
    setCheckable(true);
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void ModeButton::paintEvent(QPaintEvent* event) {
    QToolButton::paintEvent(event);
    if (isChecked()) {
        QPainter painter(this);
        painter.fillRect(
            BarInset, height() - BarRise - BarHeight, width() - 2 * BarInset, BarHeight,
            BarColour(palette()));
    }
}

} // namespace shell
