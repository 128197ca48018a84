// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/Termination.h"

#include <QSocketNotifier>
#include <array>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace ui::qt {

namespace {

/// Written to by the signal handler, which may do little else; read by the event loop.
std::array<int, 2> terminationPipe{-1, -1};

extern "C" void OnTerminate(int /*signalNumber*/) {
    const char note = 1;
    // Nothing can be done about a failure here, and one note is enough: the pipe holds it.
    (void)!::write(terminationPipe[0], &note, 1);
}

} // namespace

void OnTermination(QObject& context, std::function<void()> end) {
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, terminationPipe.data()) != 0) {
        return;
    }
    auto* notifier = new QSocketNotifier(terminationPipe[1], QSocketNotifier::Read, &context);
    QObject::connect(notifier, &QSocketNotifier::activated, &context, [notifier, ended = std::move(end)] {
        notifier->setEnabled(false);
        ended();
    });

    struct sigaction action {};

    action.sa_handler = &OnTerminate;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        ::sigaction(number, &action, nullptr);
    }
}

} // namespace ui::qt
