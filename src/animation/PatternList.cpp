// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/PatternList.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QProxyStyle>
#include <QScreen>

#include <algorithm>

namespace animation {

namespace {

constexpr int MostRows = 20;
constexpr int FewRows = 6;

/// The frame of an open list, above and below its rows together.
constexpr int ListFrame = 8;

/// The style of the program, in which lists open below their boxes and scroll.
class ListStyle final : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget, QStyleHintReturn* data)
        const override {
        return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

} // namespace

PatternList::PatternList(QWidget* parent)
    : QComboBox(parent) {
    auto* const listStyle = new ListStyle;
    listStyle->setParent(this);
    setStyle(listStyle);
    view()->installEventFilter(this);
    connect(this, &QComboBox::highlighted, this, &PatternList::lookAt);
    connect(this, &QComboBox::currentIndexChanged, this, &PatternList::tried);
}

void PatternList::showPopup() {
    const QRect room = screen()->availableGeometry();
    const int below = room.bottom() - mapToGlobal(rect().bottomLeft()).y() - ListFrame;
    const int rows = below / std::max(view()->sizeHintForRow(0), 1);
    setMaxVisibleItems(rows < FewRows ? MostRows : std::min(rows, MostRows));
    QComboBox::showPopup();
    QWidget* const list = view()->window();
    const QRect free = m_free ? m_free() : QRect();
    if (!list->geometry().intersects(free)) {
        return;
    }
    const QRect dialog = window()->frameGeometry();
    const bool hasRoomAtTheRight = dialog.right() + list->width() <= room.right();
    list->move(
        hasRoomAtTheRight ? dialog.right() + 1 : std::max(dialog.left() - list->width(), room.left()),
        std::clamp(list->y(), room.top(), std::max(room.bottom() - list->height(), room.top())));
}

bool PatternList::eventFilter(QObject* watched, QEvent* event) {
    if (watched == view() && event->type() == QEvent::Hide) {
        lookAt(-1);
    }
    return QComboBox::eventFilter(watched, event);
}

void PatternList::lookAt(int index) {
    if (index != m_tried) {
        m_tried = index;
        Q_EMIT tried();
    }
}

} // namespace animation
