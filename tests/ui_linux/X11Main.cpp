// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <cstdio>
#include <gtest/gtest.h>

namespace {

/// What tells CTest that a test was skipped.
constexpr int Skipped = 77;

/// Starts an X server that shows nothing, and makes it the display of this program.
bool StartServer(QProcess& server) {
    server.setProcessChannelMode(QProcess::SeparateChannels);
    server.setStandardErrorFile(QProcess::nullDevice());
    server.start(
        QStringLiteral("Xvfb"),
        {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"), QStringLiteral("0"),
         QStringLiteral("800x600x24"), QStringLiteral("-nolisten"), QStringLiteral("tcp"),
         QStringLiteral("-noreset")});
    QByteArray number;
    QElapsedTimer elapsed;
    elapsed.start();
    while (!number.contains('\n') && elapsed.elapsed() < 30000 && server.waitForReadyRead(30000)) {
        number += server.readAllStandardOutput();
    }
    if (!number.contains('\n')) {
        return false;
    }
    qputenv("DISPLAY", ":" + number.trimmed());
    return true;
}

} // namespace

int main(int argc, char* argv[]) {
    testing::InitGoogleTest(&argc, argv);
    for (const char* tool : {"Xvfb", "setxkbmap"}) {
        if (QStandardPaths::findExecutable(QString::fromLatin1(tool)).isEmpty()) {
            std::fprintf(stderr, "Skipped: %s is not installed.\n", tool);
            return Skipped;
        }
    }
    QProcess server;
    if (!StartServer(server)) {
        std::fputs("Skipped: Xvfb does not start.\n", stderr);
        return Skipped;
    }
    const QTemporaryDir home(QDir::tempPath() + QStringLiteral("/vtm-test-home-XXXXXX"));
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
        qputenv(name, QFile::encodeName(home.path()));
    }
    qputenv("QT_QPA_PLATFORM", "xcb");
    int result = 0;
    {
        const QApplication application(argc, argv);
        result = RUN_ALL_TESTS();
    }
    server.terminate();
    server.waitForFinished();
    return result;
}
