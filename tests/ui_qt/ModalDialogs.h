// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <gtest/gtest.h>
#include <utility>

/// Working the dialogs that a call opens and waits for.
namespace modal {

/// The modal window, once it is shown.
template <class Dialog>
Dialog* ModalDialog() {
    return qobject_cast<Dialog*>(QApplication::activeModalWidget());
}

/// Runs `action` on the dialog that opens next, once it can be used, and makes sure that it is closed.
template <class Dialog>
class WhenShown {
public:
    explicit WhenShown(std::function<void(Dialog&)> action)
        : m_action(std::move(action)) {
        m_timer.setInterval(1);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { look(); });
        m_timer.start();
    }

    WhenShown(const WhenShown&) = delete;
    WhenShown& operator=(const WhenShown&) = delete;
    WhenShown(WhenShown&&) = delete;
    WhenShown& operator=(WhenShown&&) = delete;

    ~WhenShown() { EXPECT_TRUE(m_ran) << "no dialog was shown"; }

private:
    void look() {
        auto* dialog = ModalDialog<Dialog>();
        if (m_ran || dialog == nullptr || !dialog->isVisible() || QApplication::focusWidget() == nullptr) {
            return;
        }
        m_ran = true;
        m_timer.stop();
        // A test that fails half-way must not leave its dialog waiting for ever.
        QTimer::singleShot(20000, dialog, [dialog] {
            ADD_FAILURE() << "the dialog stayed open";
            dialog->reject();
        });
        m_action(*dialog);
    }

    std::function<void(Dialog&)> m_action;
    QTimer m_timer;
    bool m_ran = false;
};

inline void PressKey(QWidget& dialog, Qt::Key key) {
    QWidget* target = QApplication::focusWidget() == nullptr ? &dialog : QApplication::focusWidget();
    QTest::keyClick(target, key);
}

} // namespace modal
