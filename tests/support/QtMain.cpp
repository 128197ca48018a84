// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests)) {
        return RUN_ALL_TESTS();
    }
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    // No test reads or writes what belongs to the person who runs it.
    const QTemporaryDir home(QDir::tempPath() + QStringLiteral("/vtm-test-home-XXXXXX"));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.filePath(QStringLiteral("config"))));
    qputenv("XDG_DATA_HOME", QFile::encodeName(home.filePath(QStringLiteral("data"))));
    qputenv("XDG_CACHE_HOME", QFile::encodeName(home.filePath(QStringLiteral("cache"))));
    const QString runtime = home.filePath(QStringLiteral("runtime"));
    QDir().mkpath(runtime);
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(runtime));
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("VTM"));
    return RUN_ALL_TESTS();
}
