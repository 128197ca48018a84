// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/linux/DesktopLauncher.h"

#include "ui/qt/Text.h"

#include <QProcess>
#include <QString>
#include <QTimer>
#include <memory>
#include <unistd.h>
#include <utility>

namespace ui::native {

namespace {

constexpr auto Opener = "xdg-open";

constexpr int UnknownError = 0;
constexpr int FileNotFound = 2;
constexpr int AccessDenied = 5;
constexpr int NoAssociation = 31;
constexpr int Success = 33;

/// What the opener's exit status means. 1: it does not understand the address, 2: there is no such file, 3:
/// no program for it, 4: that program failed, 5 and 6: a file may not be read or written.
int ResultOf(int exitCode, QProcess::ExitStatus status) {
    if (status != QProcess::NormalExit) {
        return UnknownError;
    }
    switch (exitCode) {
    case 0:
        return Success;
    case 2:
        return FileNotFound;
    case 3:
        return NoAssociation;
    case 5:
    case 6:
        return AccessDenied;
    default:
        return UnknownError;
    }
}

/// The address as an argument. What is not ASCII is percent-encoded: it may be in any encoding, and must come
/// through as the bytes that it is.
QString Argument(const std::string& address) {
    constexpr auto Marks = R"( !"#$%&'()*+,/:;<=>?@[\]^`{|})"; // with what is never encoded all of ASCII
    constexpr char Encoded = '\1'; // a '%' here would have those of the address encoded as well
    QByteArray bytes = QByteArray::fromStdString(address).toPercentEncoding(Marks, {}, Encoded);
    bytes.replace(Encoded, '%');
    return qt::FromLatin1(bytes.toStdString());
}

} // namespace

DesktopLauncher::DesktopLauncher(std::chrono::milliseconds patience)
    : m_patience(patience) {}

void DesktopLauncher::open(
    const Path& /*shortcut*/, const std::string& address, std::function<void(int)> done) {
    // The process belongs to nobody but itself: destroying it while it runs would kill the opener, and with
    // it perhaps the browser. Until it has ended it also sees to it that the system can forget it.
    auto* process = new QProcess;
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    QObject::connect(process, &QProcess::errorOccurred, process, [process](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            process->deleteLater();
        }
    });

    const auto report = [waiting = std::make_shared<std::function<void(int)>>(std::move(done))](int result) {
        if (const auto callback = std::exchange(*waiting, nullptr)) {
            callback(result);
        }
    };
    // Queued: a failure to start may be noticed while the process is being started.
    QObject::connect(
        process, &QProcess::errorOccurred, &m_listener,
        [report](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart) {
                report(NoAssociation);
            }
        },
        Qt::QueuedConnection);
    QObject::connect(
        process, &QProcess::finished, &m_listener,
        [report](int exitCode, QProcess::ExitStatus status) { report(ResultOf(exitCode, status)); },
        Qt::QueuedConnection);
    QTimer::singleShot(m_patience, &m_listener, [report] { report(Success); });

    // The opener's output is read by nobody, and it must outlive the terminal that this program was started
    // from.
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->setChildProcessModifier([] { ::setsid(); });
    process->start(QLatin1String(Opener), {Argument(address)});
}

} // namespace ui::native
