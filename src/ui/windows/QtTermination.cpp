// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/Termination.h"

#include <QAbstractNativeEventFilter>
#include <QCoreApplication>
#include <QObject>
#include <utility>
#include <windows.h>

namespace ui::qt {

namespace {

/// The system ends a program as soon as its window has answered that the session ends: nothing may be left
/// for the event loop then.
class SessionEnd final : public QObject, public QAbstractNativeEventFilter {
public:
    SessionEnd(QObject& context, std::function<void()> end)
        : QObject(&context)
        , m_end(std::move(end)) {
        QCoreApplication::instance()->installNativeEventFilter(this);
    }

    bool nativeEventFilter(const QByteArray& /*type*/, void* message, qintptr* /*result*/) override {
        const auto* const told = static_cast<const MSG*>(message);
        if (told->message == WM_ENDSESSION && told->wParam != FALSE) {
            if (const auto end = std::exchange(m_end, nullptr)) {
                end();
            }
        }
        return false;
    }

private:
    std::function<void()> m_end;
};

} // namespace

void OnTermination(QObject& context, std::function<void()> end) {
    new SessionEnd(context, std::move(end));
}

} // namespace ui::qt
