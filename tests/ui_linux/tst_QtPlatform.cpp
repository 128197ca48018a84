// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/QtPlatform.h"

#include "ui/System.h"

#include <QClipboard>
#include <QDialog>
#include <QGuiApplication>
#include <QWindow>
#include <gtest/gtest.h>

namespace {

TEST(QtPlatform, HandsOutTheWholeDesktop) {
    ui::qt::QtPlatform desktop;
    const ui::Platform& platform = desktop.platform();
    EXPECT_EQ(platform.directory.folder(), ui::ExecutableFile().parent_path());
    EXPECT_EQ(platform.files.spareFolder(), platform.directory.toWrite("x").parent_path());
    EXPECT_TRUE(platform.files.exists(ui::ExecutableFile()));
    EXPECT_FALSE(platform.lockKeys.canLock(ui::LockKey::Num)) << "this platform has no keyboard";
    platform.clipboard.setText("name");
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("name"));
    platform.settings.write("options", "color1", "1");
    EXPECT_EQ(platform.settings.read("options", "color1"), "1");
    platform.sounds.play("no wave");
}

TEST(QtPlatform, KeepsAWindowUsableThatHearsOnlyAfterItHasClosedThatItHasTheKeyboard) {
    const ui::qt::QtPlatform desktop;
    QDialog dialog;
    dialog.show();
    dialog.reject();
    QCoreApplication::processEvents();
    ASSERT_NE(QGuiApplication::focusWindow(), nullptr);
    EXPECT_EQ(QGuiApplication::focusWindow(), dialog.windowHandle());
    EXPECT_NE(QGuiApplication::focusWindow()->handle(), nullptr);
    EXPECT_FALSE(QGuiApplication::focusWindow()->isVisible());
}

} // namespace
