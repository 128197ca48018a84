// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/linux/LateFocus.h"

#include <QGuiApplication>
#include <QWindow>

namespace ui::native {

LateFocus::LateFocus()
    : m_connection(QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, [](QWindow* window) {
        if (window != nullptr && window->handle() == nullptr) {
            // The new native window is not shown.
            window->create();
        }
    })) {}

LateFocus::~LateFocus() {
    QObject::disconnect(m_connection);
}

} // namespace ui::native
