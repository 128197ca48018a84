// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "AccessTools.h"

#include <QtGui/private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

namespace {

spoken::Listener* g_told = nullptr;

/// Libraries of Windows cannot be stood in for, but the toolkit's platform can be told that somebody listens.
void SetListening(bool isListening) {
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(isListening);
}

void Take(QAccessibleEvent* event) {
    g_told->take(*event);
}

} // namespace

namespace spoken {

Listener::Listener() {
    g_told = this;
    QAccessible::installUpdateHandler(&Take);
    SetListening(true);
}

Listener::~Listener() {
    SetListening(false);
    QAccessible::installUpdateHandler(nullptr);
    g_told = nullptr;
}

void Listener::stopListening() {
    SetListening(false);
    clear();
}

} // namespace spoken
