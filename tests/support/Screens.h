// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QScreen>
#include <QTest>
#include <QWidget>
#include <QWindow>
#include <gtest/gtest.h>

#include <ostream>

namespace support {

/// A screen of tests/support/screens.json, which the toolkit's offscreen platform is told of by CTest.
struct ScreenCase {
    const char* name;
    double scale;
    int block; ///< how many of its pixels show a pixel of the glyphs' artwork
};

constexpr ScreenCase Screens[] = {
    {"1", 1, 2}, {"1.25", 1.25, 3}, {"1.5", 1.5, 3},         {"1.75", 1.75, 4},
    {"2", 2, 4}, {"small 1", 1, 2}, {"small 1.25", 1.25, 2}, {"small 1.75", 1.75, 3},
};

/// One on which the main window is scrolled.
constexpr ScreenCase TinyScreen{"tiny", 1, 2};

inline void PrintTo(const ScreenCase& screen, std::ostream* out) {
    *out << screen.name;
}

inline QScreen* ScreenOf(const ScreenCase& expected) {
    for (QScreen* const screen : QGuiApplication::screens()) {
        if (screen->name() == QLatin1String(expected.name)) {
            return screen;
        }
    }
    ADD_FAILURE() << "no screen " << expected.name
                  << ": run it with CTest, whose environment names the screens";
    return QGuiApplication::primaryScreen();
}

/// Puts a window onto a screen, also one that is shown already.
inline void PutOnto(QWidget& window, const ScreenCase& expected) {
    QScreen* const screen = ScreenOf(expected);
    window.setScreen(screen);
    if (window.windowHandle() != nullptr) {
        window.windowHandle()->setScreen(screen);
    }
    window.move(screen->geometry().topLeft() + QPoint(20, 20));
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::processEvents();
    ASSERT_EQ(window.devicePixelRatioF(), expected.scale);
}

} // namespace support
