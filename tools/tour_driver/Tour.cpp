// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "tour_driver/Tour.h"

#include "glyphs/PngPicture.h"
#include "glyphs/mdlData.h"
#include "ui/FileWriter.h"

#include <QImage>
#include <QString>

#include <X11/keysym.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace tour {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr milliseconds Patience{60000};
constexpr milliseconds Glance{15};
/// No window has had the keyboard for so long: nobody will give it to one.
constexpr milliseconds Idleness{2000};
/// What stays for so long is not just one of the names of an animation.
constexpr milliseconds Lasting{800};
/// A screen that has not changed for so long has come to rest.
constexpr milliseconds Stillness{120};

/// Glyphs as text for a message; those that are no ASCII in colour 1.
std::string shown(std::string_view codes) {
    std::string text = "\"";
    for (const char code : codes) {
        const char plain = static_cast<char>(static_cast<unsigned char>(code) % 128U);
        text += plain < ' ' ? '?' : plain;
    }
    return text + "\"";
}

} // namespace

Tour::Tour(TourOptions options, Desktop& desktop)
    : m_options(std::move(options))
    , m_directory(m_options.program)
    , m_desktop(desktop) {
    useCharSet(0);
}

Tour::~Tour() {
    if (m_process > 0) {
        kill(m_process, SIGKILL);
        waitpid(m_process, nullptr, 0);
    }
}

ui::Picture Tour::artworkOf(int number) const {
    ui::DiskFiles files;
    const auto record = glyphs::ReadCharSetRecord(files, m_directory, number + 1);
    if (!record) {
        throw TourFailure(record.failure().message);
    }
    auto artwork = glyphs::LoadArtwork(files, m_directory, record.value().artworkSlot);
    if (!artwork) {
        throw TourFailure(artwork.failure().message);
    }
    return std::move(artwork).value();
}

void Tour::putCharSet(int number, const std::string& name) {
    const auto png = glyphs::EncodePng(artworkOf(number));
    ui::DiskFiles files;
    expect(png && ui::WriteFile(files, folder() / name, png.value()), name + " cannot be written");
}

void Tour::useCharSet(int number) {
    m_cells = glyphs::BuildAtlas(artworkOf(number), ui::OpaqueBlack).cells;
    m_reader.emplace(m_cells, 2 * m_options.scale);
}

void Tour::start(const std::string& title) {
    std::string program = m_options.program.string();
    char* const arguments[] = {program.data(), nullptr};
    if (posix_spawn(&m_process, program.c_str(), nullptr, nullptr, arguments, environ) != 0) {
        m_process = 0;
        throw TourFailure(program + " cannot be started");
    }
    m_main = 0;
    expectMain(title);
    m_desktop.moveToCorner(m_window);
    m_grid.reset();
    settle();
}

int Tour::waitForExit() {
    const auto deadline = Clock::now() + Patience;
    while (Clock::now() < deadline) {
        int status = 0;
        if (waitpid(m_process, &status, WNOHANG) == m_process) {
            m_process = 0;
            return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        }
        std::this_thread::sleep_for(Glance);
    }
    throw TourFailure("the program does not end");
}

void Tour::expect(bool condition, const std::string& what) {
    if (!condition) {
        throw TourFailure(what);
    }
}

void Tour::until(const std::function<bool()>& condition, const std::string& what) {
    const auto deadline = Clock::now() + Patience;
    while (!condition()) {
        if (m_process > 0 && waitpid(m_process, nullptr, WNOHANG) == m_process) {
            m_process = 0;
            throw TourFailure("the program ended while the tour waited for " + what);
        }
        if (Clock::now() > deadline) {
            throw TourFailure("waited in vain for " + what);
        }
        std::this_thread::sleep_for(Glance);
    }
}

void Tour::settle() {
    const auto deadline = Clock::now() + Patience;
    ui::Picture last = m_desktop.grab();
    auto since = Clock::now();
    while (Clock::now() - since < Stillness) {
        std::this_thread::sleep_for(2 * Glance);
        ui::Picture now = m_desktop.grab();
        if (!(now == last)) {
            last = std::move(now);
            since = Clock::now();
        }
        if (Clock::now() > deadline) {
            throw TourFailure("the screen does not come to rest");
        }
    }
}

void Tour::stop(const std::string& name) {
    settle();
    snap(name);
}

void Tour::portrait(const std::string& name) {
    settle();
    const auto active = m_desktop.activeWindow();
    expect(active.has_value(), "no window has the keyboard");
    save(name, active.value_or(WindowFacts{}).frame);
}

void Tour::snap(const std::string& name) {
    save(name, m_desktop.windowsArea());
}

void Tour::save(const std::string& name, const ui::Rect& area) {
    const ui::Picture screen = m_desktop.grab();
    const QImage image(
        reinterpret_cast<const uchar*>(screen.row(0)), screen.width(), screen.height(), QImage::Format_RGB32);
    char number[16];
    std::snprintf(number, sizeof number, "%02d", ++m_stops);
    const ui::Path path = m_options.folder / (std::string(number) + "-" + name + ".png");
    expect(
        image.copy(area.x, area.y, area.width, area.height).save(QString::fromStdString(path.string())),
        path.string() + " cannot be written");
    std::printf("  %s\n", path.filename().c_str());
    std::fflush(stdout);
}

void Tour::expectWindow(const std::string& title) {
    until(
        [&] {
            const auto active = m_desktop.activeWindow();
            if (!active || active->title != title || active->id == m_window) {
                return false;
            }
            m_window = active->id;
            return true;
        },
        "the window \"" + title + "\"");
    // It has the keyboard before the program knows.
    settle();
}

void Tour::expectMain(const std::string& title) {
    auto idleSince = Clock::now();
    until(
        [&] {
            const auto active = m_desktop.activeWindow();
            if (active && active->title == title) {
                m_window = active->id;
                m_main = active->id;
                return true;
            }
            // When two windows close at once, the manager may leave the keyboard to none: people click then.
            if (active) {
                idleSince = Clock::now();
            } else if (m_main != 0 && Clock::now() - idleSince > Idleness) {
                m_desktop.activate(m_main);
                idleSince = Clock::now();
            }
            return false;
        },
        "the main window \"" + title + "\"");
    // The title comes first; what the window shows may still be what it has shown before.
    settle();
}

void Tour::menu(std::string_view letters) {
    // People see a menu close before they open the next.
    until([this] { return m_desktop.isMenuOpen() != true; }, "the last menu to close");
    m_desktop.press(static_cast<unsigned char>(letters.front()), {XK_Alt_L});
    until([this] { return m_desktop.isMenuOpen() != false; }, "a menu to open");
    m_desktop.type(letters.substr(1));
}

ui::Path Tour::chooseFile(const std::string& name) {
    ui::Path path = m_options.folder / name;
    m_desktop.press(XK_a, {XK_Control_L});
    m_desktop.type(path.string());
    m_desktop.press(XK_Return);
    return path;
}

void Tour::findGrid() {
    if (!m_grid) {
        // Row 4 of the grid, without its first glyph.
        std::string row;
        for (char code = 'A'; code <= 'O'; ++code) {
            row += code;
        }
        until(
            [&] {
                const ui::Picture screen = m_desktop.grab();
                const auto found = m_reader->find(screen, screen.bounds(), row);
                if (found) {
                    m_grid = Position{found->x - m_reader->cellSide(), found->y - 4 * m_reader->cellSide()};
                }
                return m_grid.has_value();
            },
            "the glyph grid");
    }
}

ui::Rect Tour::outsideGrid(const ui::Picture& screen) const {
    const int right = m_grid ? m_grid->x + 16 * m_reader->cellSide() : 0;
    return {right, 0, screen.width() - right, screen.height()};
}

Position Tour::expectRow(std::string_view codes) {
    findGrid();
    Position position;
    until(
        [&] {
            const ui::Picture screen = m_desktop.grab();
            const auto found = m_reader->find(screen, outsideGrid(screen), codes);
            if (found) {
                position = *found;
            }
            return found.has_value();
        },
        "the glyphs " + shown(codes) + " on the screen");
    return position;
}

void Tour::expectRowAt(Position position, std::string_view codes) {
    until(
        [&] { return m_reader->matches(m_desktop.grab(), position, codes); },
        "the glyphs " + shown(codes) + " at " + std::to_string(position.x) + "," +
            std::to_string(position.y));
}

std::pair<GlyphReader, Position> Tour::expectEnlargedRow(std::string_view codes) {
    constexpr int MostHalves = 12;
    std::optional<std::pair<GlyphReader, Position>> seen;
    auto since = Clock::now();
    until(
        [&] {
            const ui::Picture screen = m_desktop.grab();
            if (seen && seen->first.matches(screen, seen->second, codes)) {
                return Clock::now() - since > Lasting;
            }
            seen.reset();
            for (int halves = 2; halves <= MostHalves && !seen; ++halves) {
                const GlyphReader reader(m_cells, halves);
                if (const auto found = reader.find(screen, screen.bounds(), codes)) {
                    seen.emplace(reader, *found);
                }
            }
            since = Clock::now();
            return false;
        },
        "the glyphs " + shown(codes) + ", enlarged");
    return *seen;
}

void Tour::clickGrid(unsigned char code, unsigned button) {
    findGrid();
    const Position grid = m_grid.value_or(Position{});
    const int side = m_reader->cellSide();
    m_desktop.click(grid.x + code % 16 * side + side / 2, grid.y + code / 16 * side + side / 2, button);
}

std::string Tour::contentOf(const ui::Path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void Tour::clickButton(char code, unsigned button) {
    findGrid();
    const Position grid = m_grid.value_or(Position{});
    const int side = m_reader->cellSide();
    const ui::Rect below{grid.x, grid.y + 16 * side, 16 * side, 6 * side};
    Position position;
    until(
        [&] {
            const auto found = m_reader->find(m_desktop.grab(), below, std::string_view(&code, 1));
            position = found.value_or(position);
            return found.has_value();
        },
        "a glyph button");
    m_desktop.click(position.x + side / 2, position.y + side / 2, button);
}

void Tour::expectCopied(char code) {
    const GlyphReader reader(m_cells, 2);
    until(
        [&] { return reader.matches(m_desktop.clipboardPicture(), {}, std::string_view(&code, 1)); },
        "the picture of the glyph on the clipboard");
}

void Tour::expectFile(const std::string& name, std::string_view bytes) {
    until([&] { return contentOf(m_options.folder / name) == bytes; }, "the right bytes in " + name);
}

} // namespace tour
