// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/CommandLine.h"
#include "shell/Icons.h"
#include "shell/frmVTM.h"
#include "ui/qt/QtPlatform.h"
#include "ui/qt/SpareFont.h"

#include <QApplication>
#include <QSocketNotifier>
#include <algorithm>
#include <array>
#include <csignal>
#include <iostream>
#include <string>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace {

/// Written to by the signal handler, which may do little else; read by the event loop.
std::array<int, 2> terminationPipe{-1, -1};

extern "C" void OnTerminate(int /*signalNumber*/) {
    const char note = 1;
    // Nothing can be done about a failure here, and one note is enough: the pipe holds it.
    (void)!::write(terminationPipe[0], &note, 1);
}

/// Saves the settings where nobody can be asked: a question must not hold up a session that ends.
void Unload(shell::frmVTM& window) {
    if (const ui::Status saved = window.Form_Unload(); !saved) {
        std::cerr << saved.failure().message << '\n';
    }
}

/// Makes SIGTERM, SIGINT and SIGHUP close the window as its close button does.
void CloseOnTermination(shell::frmVTM& window) {
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, terminationPipe.data()) != 0) {
        return;
    }
    auto* notifier = new QSocketNotifier(terminationPipe[1], QSocketNotifier::Read, &window);
    QObject::connect(notifier, &QSocketNotifier::activated, &window, [&window, notifier] {
        notifier->setEnabled(false);
        // Not quit(): that does nothing while a message of the start is all that runs.
        QCoreApplication::exit();
        Unload(window);
    });

    struct sigaction action {};

    action.sa_handler = &OnTerminate;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        ::sigaction(number, &action, nullptr);
    }
}

} // namespace

int main(int argc, char* argv[]) {
    if (const auto text =
            shell::TextToPrint(std::vector<std::string>(argv + std::min(argc, 1), argv + argc))) {
        std::cout << *text;
        return 0;
    }
    ui::SurviveFileSizeLimit();
    QApplication application(argc, argv);
    // Whatever the program is started as: by these the desktop finds the entry that a window belongs to.
    QApplication::setApplicationName(QStringLiteral("VTM"));
    QApplication::setDesktopFileName(QStringLiteral("vtm"));
    QApplication::setWindowIcon(shell::ProgramIcon());
    ui::qt::QtPlatform qtPlatform;
    ui::Platform& platform = qtPlatform.platform();
    ui::qt::UseSpareFont(platform.directory.folder() / "vtmfont.ttf");

    // What the toolkit has not taken for itself, as the bytes that it came as: paths need not be valid text.
    const std::vector<std::string> arguments(argv + 1, argv + argc);

    if (const shell::StartFiles start = shell::ReadArguments(arguments); !start.intro && !start.file) {
        std::cerr << shell::HowToLoad << '\n';
    }
    shell::frmVTM window(platform);
    CloseOnTermination(window);
    // A desktop session that ends asks the application to quit without closing its windows.
    QObject::connect(&application, &QCoreApplication::aboutToQuit, &window, [&window] { Unload(window); });
    if (const ui::Status loaded = window.Form_Load(arguments); !loaded) {
        platform.dialogs.warn(loaded.failure().message);
        return 1;
    }
    // A message of the start may have stood on the screen when the program was told to end.
    return window.isUnloaded() ? 0 : QApplication::exec();
}
