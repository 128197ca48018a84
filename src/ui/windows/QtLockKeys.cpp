// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/windows/QtLockKeys.h"

#include <QGuiApplication>
#include <QTimer>
#include <QWindow>
#include <windows.h>

namespace ui::native {

namespace {

constexpr std::array AllKeys{LockKey::Scroll, LockKey::Insert, LockKey::Caps, LockKey::Num};

std::size_t PlaceOf(LockKey key) {
    return static_cast<std::size_t>(key);
}

/// Elsewhere the toolkit has no keyboard: in tests without a display.
bool HasKeyboard() {
    return QGuiApplication::platformName() == QLatin1String("windows");
}

} // namespace

QtLockKeys::QtLockKeys(bool reachesKeyboard)
    : m_reachesKeyboard(reachesKeyboard && HasKeyboard()) {
    if (!m_reachesKeyboard) {
        return;
    }
    QCoreApplication::instance()->installNativeEventFilter(this);
    QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &QtLockKeys::focusMoved);
    QObject::connect(qGuiApp, &QGuiApplication::aboutToQuit, this, &QtLockKeys::leave);
    focusMoved(QGuiApplication::focusWindow());
}

QtLockKeys::~QtLockKeys() {
    leave();
}

bool QtLockKeys::canLock(LockKey key) const {
    return key != LockKey::Insert && m_reachesKeyboard;
}

void QtLockKeys::setLocked(LockKey key, bool locked) {
    m_wanted.at(PlaceOf(key)) = locked;
    if (m_isInside) {
        m_state.turn(key, locked);
    }
}

void QtLockKeys::focusMoved(const QWindow* window) {
    // A dialog has text to be typed into, with the locks that the user is used to.
    const bool isInside = window != nullptr && window->modality() == Qt::NonModal;
    if (!isInside) {
        leave();
    } else if (!m_isInside) {
        m_isInside = true;
        m_state.forget();
        for (const LockKey key : AllKeys) {
            m_original.at(PlaceOf(key)) = m_state.isOn(key);
        }
        apply(m_wanted);
    }
}

void QtLockKeys::leave() {
    if (m_isInside) {
        m_isInside = false;
        apply(m_original);
        m_state.forget();
    }
}

bool QtLockKeys::nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) {
    const auto* const told = static_cast<const MSG*>(message);
    const auto virtualKey = static_cast<int>(told->wParam);
    if (m_state.isOwnPress(told->message, virtualKey)) {
        return true;
    }
    const bool isRelease = told->message == WM_KEYUP || told->message == WM_SYSKEYUP;
    for (const LockKey key : AllKeys) {
        if (isRelease && m_isInside && VirtualKeyOf(key) == virtualKey) {
            // The key counts as held until its message has been handled.
            QTimer::singleShot(0, this, [this] {
                if (m_isInside) {
                    apply(m_wanted);
                }
            });
        }
    }
    return false;
}

void QtLockKeys::apply(const States& states) {
    for (const LockKey key : AllKeys) {
        if (const auto state = states.at(PlaceOf(key))) {
            m_state.turn(key, *state);
        }
    }
}

} // namespace ui::native
