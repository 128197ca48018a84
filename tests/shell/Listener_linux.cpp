// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "AccessTools.h"

namespace {

spoken::Listener* g_listener = nullptr;
bool g_isListening = false;

} // namespace

// Whether somebody listens is known to the desktop's bus alone, and there is none in a test. So the calls of
// the program and of the toolkit's widgets end here instead of in the library.

bool QAccessible::isActive() {
    return g_isListening;
}

void QAccessible::updateAccessibility(QAccessibleEvent* event) {
    if (g_listener != nullptr) {
        g_listener->take(*event);
    }
}

namespace spoken {

Listener::Listener() {
    g_listener = this;
    g_isListening = true;
}

Listener::~Listener() {
    g_listener = nullptr;
    g_isListening = false;
}

void Listener::stopListening() {
    g_isListening = false;
    clear();
}

} // namespace spoken
