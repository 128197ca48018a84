// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "startup/Watcher.h"

#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/extensions/Xdamage.h>
#include <X11/keysym.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <poll.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace bench {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

/// Less than this is no window: the first paint of a window covers it.
constexpr int SmallestWindow = 100 * 100;
constexpr milliseconds Patience{10000};
/// A key that has changed nothing by then changes nothing.
constexpr milliseconds KeyPatience{2000};
/// Nothing more is painted when nothing was painted for so long; shorter than the blinking of a cursor.
constexpr milliseconds Quiet{150};
constexpr int RowLength = 15;

double toMilliseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::milli>(duration).count();
}

pid_t spawn(const std::string& program) {
    pid_t process = 0;
    char* const arguments[] = {const_cast<char*>(program.c_str()), nullptr};
    if (posix_spawn(&process, program.c_str(), nullptr, nullptr, arguments, environ) != 0) {
        return 0;
    }
    return process;
}

void end(pid_t process) {
    kill(process, SIGTERM);
    while (waitpid(process, nullptr, 0) == -1 && errno == EINTR) {
    }
}

/// The time that all threads of a process have had a processor.
double cpuMilliseconds(pid_t process) {
    double total = 0;
    for (const auto& thread :
         std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/task")) {
        double nanoseconds = 0;
        std::ifstream(thread.path() / "schedstat") >> nanoseconds;
        total += nanoseconds;
    }
    return total / 1e6;
}

double peakMebibytes(pid_t process) {
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    std::string word;
    while (status >> word) {
        if (word == "VmHWM:") {
            double kibibytes = 0;
            status >> kibibytes;
            return kibibytes / 1024;
        }
    }
    return 0;
}

} // namespace

struct Watcher::Connection {
    Display* display = XOpenDisplay(nullptr);
    int damageEvent = -1;
    Window mapped = None;

    Connection() {
        int event = 0;
        int error = 0;
        int major = 0;
        int minor = 0;
        if (display == nullptr || XDamageQueryExtension(display, &event, &error) == 0 ||
            XTestQueryExtension(display, &event, &error, &major, &minor) == 0) {
            return;
        }
        XDamageQueryExtension(display, &damageEvent, &error);
        const Window root = DefaultRootWindow(display);
        XSelectInput(display, root, SubstructureNotifyMask);
        XDamageCreate(display, root, XDamageReportRawRectangles);
        XSync(display, False);
        settle();
    }

    ~Connection() {
        if (display != nullptr) {
            XCloseDisplay(display);
        }
    }

    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// The next event that damages the screen, as its area; nothing if there is none until `deadline`.
    /// Remembers the window mapped last.
    std::optional<double> nextDamage(Clock::time_point deadline) {
        while (true) {
            while (XPending(display) > 0) {
                XEvent event;
                XNextEvent(display, &event);
                if (event.type == MapNotify && event.xmap.override_redirect == False) {
                    mapped = event.xmap.window;
                } else if (event.type == damageEvent + XDamageNotify) {
                    const auto& damage = reinterpret_cast<const XDamageNotifyEvent&>(event);
                    return static_cast<double>(damage.area.width) * damage.area.height;
                }
            }
            const auto left = std::chrono::duration_cast<milliseconds>(deadline - Clock::now()).count();
            if (left <= 0) {
                return std::nullopt;
            }
            pollfd connection{ConnectionNumber(display), POLLIN, 0};
            poll(&connection, 1, static_cast<int>(left));
        }
    }

    /// Waits until nothing is painted any more.
    void settle() {
        while (nextDamage(Clock::now() + Quiet)) {
        }
    }

    /// Waits for the first paint of a window; returns when it happened, if it does.
    std::optional<Clock::time_point> firstPaint() {
        const auto deadline = Clock::now() + Patience;
        while (const auto area = nextDamage(deadline)) {
            if (*area >= SmallestWindow && mapped != None) {
                return Clock::now();
            }
        }
        return std::nullopt;
    }

    /// Ends the program and waits until its window is gone.
    void finish(pid_t process) {
        end(process);
        settle();
        mapped = None;
    }
};

Watcher::Watcher()
    : m_connection(std::make_unique<Connection>()) {}

Watcher::~Watcher() = default;

bool Watcher::connected() const {
    return m_connection->damageEvent >= 0;
}

std::optional<Start> Watcher::start(const std::string& program) {
    const auto started = Clock::now();
    const pid_t process = spawn(program);
    if (process == 0) {
        return std::nullopt;
    }
    const auto painted = m_connection->firstPaint();
    std::optional<Start> result;
    if (painted) {
        const double computed = cpuMilliseconds(process);
        m_connection->settle();
        result = Start{toMilliseconds(*painted - started), computed, peakMebibytes(process)};
    }
    m_connection->finish(process);
    return result;
}

std::vector<KeyEcho> Watcher::pressKeys(const std::string& program, int count) {
    Connection& connection = *m_connection;
    const pid_t process = spawn(program);
    std::vector<KeyEcho> echoes;
    if (process == 0) {
        return echoes;
    }
    if (connection.firstPaint()) {
        connection.settle();
        // Without a window manager nobody else gives the window the keyboard.
        XSetInputFocus(connection.display, connection.mapped, RevertToPointerRoot, CurrentTime);
        XSync(connection.display, False);
        connection.settle();
        // Glyphs that are no neighbours on the grid, so that its marker leaves one area and enters another.
        const KeyCode keys[] = {
            XKeysymToKeycode(connection.display, XK_a), XKeysymToKeycode(connection.display, XK_m)};
        const auto press = [&connection](KeyCode key, bool isDown) {
            XTestFakeKeyEvent(connection.display, key, isDown ? True : False, CurrentTime);
            XFlush(connection.display);
        };
        for (int filled = 0; filled < RowLength; ++filled) {
            press(keys[filled % 2], true);
            press(keys[filled % 2], false);
        }
        connection.settle();
        for (int index = RowLength; index < RowLength + count; ++index) {
            const KeyCode key = keys[index % 2];
            const auto pressed = Clock::now();
            press(key, true);
            auto area = connection.nextDamage(pressed + KeyPatience);
            KeyEcho echo{toMilliseconds(Clock::now() - pressed)};
            while (area) {
                echo.areas += 1;
                echo.largest = std::max(echo.largest, *area);
                area = connection.nextDamage(Clock::now() + milliseconds(20));
            }
            press(key, false);
            connection.settle();
            if (echo.areas > 0) {
                echoes.push_back(echo);
            }
        }
    }
    connection.finish(process);
    return echoes;
}

} // namespace bench
