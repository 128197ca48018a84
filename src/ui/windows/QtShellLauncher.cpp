// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/windows/QtShellLauncher.h"

#include "ui/windows/ShellOpen.h"

#include <QThread>
#include <memory>
#include <utility>

namespace ui::native {

void QtShellLauncher::open(
    const Path& shortcut, const std::string& /*address*/, std::function<void(int)> done) {
    const auto result = std::make_shared<int>(0);
    QThread* const thread = QThread::create([shortcut, result] { *result = ShellOpen(shortcut); });
    QObject::connect(
        thread, &QThread::finished, &m_listener, [result, done = std::move(done)] { done(*result); });
    // It belongs to nobody but itself: the program may end before the system has found an answer.
    QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start();
}

} // namespace ui::native
