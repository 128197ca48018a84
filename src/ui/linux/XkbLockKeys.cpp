// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/linux/XkbLockKeys.h"

#include "ui/linux/X11Keyboard.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QWindow>
#include <utility>

namespace ui::native {

namespace {

/// Milliseconds. The focus may come from another instance of this program, which puts the user's locks back
/// first, and the toolkit tells it 100 ms late that its focus is gone.
constexpr int EnteringTime = 250;

bool IsLockKey(int key) {
    return key == Qt::Key_CapsLock || key == Qt::Key_NumLock || key == Qt::Key_ScrollLock;
}

} // namespace

XkbLockKeys::XkbLockKeys()
    : m_keyboard(X11Keyboard::Connect()) {
    if (m_keyboard == nullptr) {
        return;
    }
    m_entering.setSingleShot(true);
    QObject::connect(&m_entering, &QTimer::timeout, this, &XkbLockKeys::enter);
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
    const bool hadFocus = std::exchange(m_hasFocus, window != nullptr);
    if (isInside) {
        if (!m_isInside && !m_entering.isActive()) {
            m_original = current();
            m_turned = {};
            // Installed anew, so that it comes before the filters of windows that were made in the meantime.
            qGuiApp->installEventFilter(this);
            if (hadFocus) {
                enter();
            } else {
                m_entering.start(EnteringTime);
            }
        }
    } else {
        leave();
    }
}

void XkbLockKeys::enter() {
    m_isInside = true;
    qGuiApp->installNativeEventFilter(this);
    const Locks now = current();
    m_original.caps = m_turned.caps ? m_turned.caps : now.caps;
    m_original.num = m_turned.num ? m_turned.num : now.num;
    m_original.scrollLight = m_turned.scrollLight ? m_turned.scrollLight : now.scrollLight;
    apply(m_wanted);
}

void XkbLockKeys::leave() {
    if (!m_isInside && !m_entering.isActive()) {
        return;
    }
    m_entering.stop();
    qGuiApp->removeEventFilter(this);
    qGuiApp->removeNativeEventFilter(this);
    apply(std::exchange(m_isInside, false) ? m_original : m_turned);
}

bool XkbLockKeys::eventFilter(QObject* watched, QEvent* event) {
    const bool isPress = event->type() == QEvent::KeyPress;
    // A key comes to the window first, and then to the widgets in it.
    if ((isPress || event->type() == QEvent::KeyRelease) && watched->isWindowType()) {
        const auto* const key = static_cast<QKeyEvent*>(event);
        if (IsLockKey(key->key()) && !key->isAutoRepeat()) {
            if (isPress && !m_isInside) {
                noteTurned(key->key());
            } else if (!isPress && m_isInside) {
                // The window system has turned the lock whether or not the press meant anything to the
                // program.
                apply(m_wanted);
            }
        }
    }
    return QObject::eventFilter(watched, event);
}

bool XkbLockKeys::nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) {
    follow(message, LockKey::Caps);
    follow(message, LockKey::Num);
    return false;
}

void XkbLockKeys::follow(const void* event, LockKey key) {
    const auto lock = key == LockKey::Caps ? X11Keyboard::Lock::Caps : X11Keyboard::Lock::Num;
    const auto told = m_keyboard->lockSetByProgram(event, lock);
    if (!told) {
        return;
    }
    auto& wanted = key == LockKey::Caps ? m_wanted.caps : m_wanted.num;
    auto& original = key == LockKey::Caps ? m_original.caps : m_original.num;
    // An event may be out of date: this program has set the lock since, or the focus has moved on.
    const QWindow* const window = QGuiApplication::focusWindow();
    if (told == (wanted ? wanted : original) || m_keyboard->isLocked(lock) != *told || window == nullptr ||
        !m_keyboard->hasFocus(window->winId())) {
        return;
    }
    original = told;
    if (wanted) {
        wanted = told;
        if (m_onTurned) {
            m_onTurned(key, *told);
        }
    }
}

void XkbLockKeys::noteTurned(int key) {
    switch (key) {
    case Qt::Key_CapsLock:
        m_turned.caps = m_original.caps;
        break;
    case Qt::Key_NumLock:
        m_turned.num = m_original.num;
        break;
    default:
        m_turned.scrollLight = m_original.scrollLight;
        break;
    }
}

XkbLockKeys::Locks XkbLockKeys::current() const {
    return {
        m_keyboard->isLocked(X11Keyboard::Lock::Caps), m_keyboard->isLocked(X11Keyboard::Lock::Num),
        m_keyboard->scrollLight()};
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

} // namespace ui::native
