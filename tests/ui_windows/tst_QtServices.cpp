// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/TempProgramDirectory.h"
#include "ui/qt/QtPlatform.h"
#include "ui/qt/Termination.h"
#include "ui/windows/QtShellLauncher.h"

#include <QAbstractEventDispatcher>
#include <QThread>
#include <QtTest>
#include <gtest/gtest.h>
#include <optional>
#include <windows.h>

namespace {

/// Passes a message on as the toolkit does with each that comes.
void Receive(UINT message, WPARAM first) {
    MSG told{};
    told.message = message;
    told.wParam = first;
    qintptr result = 0;
    QAbstractEventDispatcher::instance()->filterNativeEvent("windows_generic_MSG", &told, &result);
}

TEST(QtTermination, EndsOnceWhenTheSessionEnds) {
    int ends = 0;
    {
        QObject window;
        ui::qt::OnTermination(window, [&ends] { ++ends; });
        Receive(WM_QUERYENDSESSION, 0);
        Receive(WM_ENDSESSION, FALSE);
        EXPECT_EQ(ends, 0) << "somebody has refused";
        Receive(WM_ENDSESSION, TRUE);
        EXPECT_EQ(ends, 1) << "before the message is answered";
        Receive(WM_ENDSESSION, TRUE);
        EXPECT_EQ(ends, 1);
    }
    Receive(WM_ENDSESSION, TRUE);
    EXPECT_EQ(ends, 1);
}

TEST(QtShellLauncher, TellsTheSystemsCodeLaterOnTheSameThread) {
    const support::TempFolder folder;
    ui::native::QtShellLauncher launcher;
    std::optional<int> code;
    const QThread* thread = nullptr;
    launcher.open(folder / "gone.url", "https://example.org/", [&](int result) {
        code = result;
        thread = QThread::currentThread();
    });
    EXPECT_FALSE(code);
    EXPECT_TRUE(QTest::qWaitFor([&code] { return code.has_value(); }, 20000));
    EXPECT_EQ(code, 2);
    EXPECT_EQ(thread, QThread::currentThread());
}

TEST(QtShellLauncher, TellsNobodyAfterItHasGone) {
    const support::TempFolder folder;
    bool isTold = false;
    {
        ui::native::QtShellLauncher launcher;
        launcher.open(folder / "gone.url", "", [&isTold](int /*result*/) { isTold = true; });
    }
    std::optional<int> other;
    ui::native::QtShellLauncher launcher;
    launcher.open(folder / "gone.url", "", [&other](int result) { other = result; });
    EXPECT_TRUE(QTest::qWaitFor([&other] { return other.has_value(); }, 20000));
    EXPECT_FALSE(isTold);
}

TEST(QtPlatform, HasEveryPart) {
    ui::qt::QtPlatform made;
    const ui::Platform& platform = made.platform();
    EXPECT_TRUE(platform.directory.folder().is_absolute());
    EXPECT_TRUE(platform.stateFolder.is_absolute());
    EXPECT_FALSE(platform.lockKeys.canLock(ui::LockKey::Insert));
    EXPECT_FALSE(platform.lockKeys.canLock(ui::LockKey::Num)) << "these tests have no keyboard";
    platform.lockKeys.setLocked(ui::LockKey::Caps, true);
    platform.clipboard.setText("a\xE9");
    platform.sounds.play({});
}

} // namespace
