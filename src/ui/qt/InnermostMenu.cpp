// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/InnermostMenu.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <utility>

namespace ui::qt {

namespace {

/// The menu that an entry has opened over its own; null if none is open.
QMenu* OpenedBy(const QAction* entry) {
    QMenu* const menu = entry == nullptr ? nullptr : entry->menu();
    return menu != nullptr && menu->isVisible() ? menu : nullptr;
}

} // namespace

bool PassToInnermostMenu(QObject& watched, QEvent& event) {
    auto* outer = qobject_cast<QMenu*>(&watched);
    if ((event.type() != QEvent::KeyPress && event.type() != QEvent::MouseMove) || outer == nullptr ||
        outer != QApplication::activePopupWidget()) {
        return false;
    }
    QMenu* menu = OpenedBy(outer->activeAction());
    if (menu == nullptr) {
        return false;
    }
    while (QMenu* const inner = OpenedBy(menu->activeAction())) {
        outer = std::exchange(menu, inner);
    }
    // Only what opens becomes the innermost.
    QAction* const entry = menu->activeAction();
    menu->hide();
    outer->setActiveAction(outer->activeAction());
    menu->setActiveAction(entry);
    if (event.type() == QEvent::KeyPress) {
        QCoreApplication::sendEvent(menu, &event);
    }
    return true;
}

} // namespace ui::qt
