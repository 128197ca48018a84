// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

class QWindow;

namespace ui::native {

class X11Keyboard;

/// The lock keys of an X11 desktop. While the program's main window has the focus, Caps Lock, Num Lock and
/// the light of Scroll Lock are as the program wants them; everywhere else, the program's dialogs included,
/// they are as the user left them. In the main window a lock key only tells the program, which sets the locks
/// anew when the key is up again. A lock that another program sets meanwhile is taken over, and stays after
/// the focus has gone. On Wayland, where no program can set them, nothing happens.
class XkbLockKeys final : public QObject, public QAbstractNativeEventFilter, public LockKeys {
    Q_OBJECT

public:
    XkbLockKeys();
    XkbLockKeys(const XkbLockKeys&) = delete;
    XkbLockKeys& operator=(const XkbLockKeys&) = delete;
    XkbLockKeys(XkbLockKeys&&) = delete;
    XkbLockKeys& operator=(XkbLockKeys&&) = delete;
    ~XkbLockKeys() override;

    void setLocked(LockKey key, bool locked) override;

    /// Caps and Num on X11; never Insert, and never Scroll, which has a light but no lock.
    [[nodiscard]] bool canLock(LockKey key) const override;

    void onTurned(std::function<void(LockKey key, bool locked)> turned) override {
        m_onTurned = std::move(turned);
    }

    /// Undoes what a lock key did that the program did not follow: one pressed in a menu, or with Alt.
    bool eventFilter(QObject* watched, QEvent* event) override;

    /// Notices what other programs do with the locks.
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

private:
    struct Locks {
        std::optional<bool> caps;
        std::optional<bool> num;
        std::optional<bool> scrollLight;
    };

    void focusMoved(const QWindow* window);
    void enter();
    void leave();
    void follow(const void* event, LockKey key);
    void noteTurned(int key);
    [[nodiscard]] Locks current() const;
    void apply(const Locks& locks);

    std::unique_ptr<X11Keyboard> m_keyboard; ///< null: no lock can be set here
    QTimer m_entering{this};                 ///< runs when the main window has just got the focus
    bool m_hasFocus = false;                 ///< whether any window of the program has it
    bool m_isInside = false;                 ///< whether the main window has the focus, and the locks are set
    Locks m_wanted;
    Locks m_turned;   ///< the former state of locks that a key has turned before they were set
    Locks m_original; ///< the user's, while the main window has the focus
    std::function<void(LockKey, bool)> m_onTurned;
};

} // namespace ui::native
