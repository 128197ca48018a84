// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"
#include "ui/windows/LockState.h"
#include "ui/windows/Wine.h"

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <array>
#include <optional>

class QWindow;

namespace ui::native {

/// The lock keys, lights included. While the program's main window has the focus they are as the program
/// wants them; everywhere else, the program's dialogs included, they are as the user left them. In the main
/// window a lock key only tells the program; what it has turned that the program did not follow is undone
/// when the key is up again.
class QtLockKeys final : public QObject, public QAbstractNativeEventFilter, public LockKeys {
public:
    /// `reachesKeyboard`: whether locks can be turned at all; otherwise nothing happens. Under Wine they are
    /// the X server's: at the next key it turns them back, with presses that nobody could tell from the
    /// user's.
    explicit QtLockKeys(bool reachesKeyboard = !IsWine());
    QtLockKeys(const QtLockKeys&) = delete;
    QtLockKeys& operator=(const QtLockKeys&) = delete;
    QtLockKeys(QtLockKeys&&) = delete;
    QtLockKeys& operator=(QtLockKeys&&) = delete;
    ~QtLockKeys() override;

    void setLocked(LockKey key, bool locked) override;

    /// Where keys come from a keyboard; never Insert, which locks nothing.
    [[nodiscard]] bool canLock(LockKey key) const override;

    /// A program that turns a lock presses its key, so that there is nothing to tell but that.
    void onTurned(std::function<void(LockKey key, bool locked)> /*turned*/) override {}

    /// Keeps the program from its own presses, and follows the user's.
    bool nativeEventFilter(const QByteArray& type, void* message, qintptr* result) override;

private:
    using States = std::array<std::optional<bool>, 4>; ///< by LockKey

    void focusMoved(const QWindow* window);
    void leave();
    void apply(const States& states);

    bool m_reachesKeyboard;
    LockState m_state;
    bool m_isInside = false; ///< whether the main window has the focus, and the locks are set
    States m_wanted;
    States m_original; ///< the user's, while the main window has the focus
};

} // namespace ui::native
