// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/XkbLockKeys.h"

#include "ui/qt/KeyTranslation.h"
#include "ui/qt/X11Keyboard.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QWindow>

namespace ui::qt {

XkbLockKeys::XkbLockKeys()
    : m_keyboard(X11Keyboard::Connect()) {
    if (m_keyboard == nullptr) {
        return;
    }
    QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &XkbLockKeys::focusMoved);
    QObject::connect(qGuiApp, &QGuiApplication::aboutToQuit, this, &XkbLockKeys::leave);
    focusMoved(QGuiApplication::focusWindow());
}

XkbLockKeys::~XkbLockKeys() {
    leave();
}

bool XkbLockKeys::canLock(LockKey key) const {
    return m_keyboard != nullptr && (key == LockKey::Caps || key == LockKey::Num);
}

void XkbLockKeys::setLocked(LockKey key, bool locked) {
    switch (key) {
    case LockKey::Caps:
        m_wanted.caps = locked;
        break;
    case LockKey::Num:
        m_wanted.num = locked;
        break;
    case LockKey::Scroll:
        m_wanted.scrollLight = locked;
        break;
    case LockKey::Insert:
        return;
    }
    if (m_isInside) {
        apply(m_wanted);
    }
}

void XkbLockKeys::focusMoved(const QWindow* window) {
    // A dialog has text to be typed into, with the locks that the user is used to.
    const bool isInside = window != nullptr && window->modality() == Qt::NonModal;
    if (isInside) {
        enter();
    } else {
        leave();
    }
}

void XkbLockKeys::enter() {
    if (m_isInside) {
        return;
    }
    m_isInside = true;
    // Installed anew, so that it comes before the filters of windows that were made in the meantime.
    qGuiApp->installEventFilter(this);
    m_original.caps = m_keyboard->isLocked(X11Keyboard::Lock::Caps);
    m_original.num = m_keyboard->isLocked(X11Keyboard::Lock::Num);
    m_original.scrollLight = m_keyboard->scrollLight();
    apply(m_wanted);
}

void XkbLockKeys::leave() {
    if (!m_isInside) {
        return;
    }
    m_isInside = false;
    qGuiApp->removeEventFilter(this);
    // The user may have pressed the keys themselves.
    if (m_wanted.caps) {
        m_wanted.caps = m_keyboard->isLocked(X11Keyboard::Lock::Caps);
    }
    if (m_wanted.num) {
        m_wanted.num = m_keyboard->isLocked(X11Keyboard::Lock::Num);
    }
    apply(m_original);
}

bool XkbLockKeys::eventFilter(QObject* watched, QEvent* event) {
    // A press comes to the window first, and then to the widgets in it.
    if (event->type() == QEvent::KeyPress && watched->isWindowType() && m_wanted.scrollLight) {
        const KeyStroke stroke = TranslateKey(*static_cast<QKeyEvent*>(event));
        if (stroke.virtualKey == KeyScrollLock && !stroke.isAlt && !stroke.isRepeat) {
            setLocked(LockKey::Scroll, !*m_wanted.scrollLight);
        }
    }
    return QObject::eventFilter(watched, event);
}

void XkbLockKeys::apply(const Locks& locks) {
    if (locks.caps) {
        m_keyboard->setLocked(X11Keyboard::Lock::Caps, *locks.caps);
    }
    if (locks.num) {
        m_keyboard->setLocked(X11Keyboard::Lock::Num, *locks.num);
    }
    if (locks.scrollLight) {
        m_keyboard->setScrollLight(*locks.scrollLight);
    }
}

} // namespace ui::qt
