// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tour_driver/Desktop.h"
#include "tour_driver/GlyphReader.h"
#include "ui/DesktopProgramDirectory.h"
#include "ui/Files.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <utility>

namespace tour {

struct TourOptions {
    ui::Path program; ///< the executable
    ui::Path folder;  ///< for pictures and scripts
    int scale = 1;    ///< pixels of the screen to a pixel of the program
};

/// One run of the program, driven by keys and mouse and watched on the screen. Whatever is waited for and
/// does not come throws TourFailure.
class Tour {
public:
    Tour(TourOptions options, Desktop& desktop);
    ~Tour();
    Tour(const Tour&) = delete;
    Tour& operator=(const Tour&) = delete;

    /// Starts the program, waits for its window and puts it into the corner.
    void start(const std::string& title);

    /// Waits until the program has ended; its exit status.
    int waitForExit();

    /// Takes the next numbered picture, once the screen is still.
    void stop(const std::string& name);

    /// The same, of the window that has the keyboard alone.
    void portrait(const std::string& name);

    /// Takes the next numbered picture at once.
    void snap(const std::string& name);

    /// Waits until the screen no longer changes.
    void settle();

    /// Waits for a window, other than the one waited for before, to have the keyboard.
    void expectWindow(const std::string& title);

    /// Waits until the main window has the keyboard and this title.
    void expectMain(const std::string& title);

    /// Opens a menu by Alt and its first letter, and goes on with the letters that follow.
    void menu(std::string_view letters);

    /// Types the path of a script in the tour's folder into a file dialog and accepts it.
    ui::Path chooseFile(const std::string& name);

    /// Waits until a row of glyphs, as bytes, is somewhere outside the glyph grid; where it is.
    Position expectRow(std::string_view codes);

    /// Waits until a row of glyphs is at a place that was found before.
    void expectRowAt(Position position, std::string_view codes);

    /// Waits until a row of glyphs is somewhere, enlarged by whatever half factor; what has seen it, and
    /// where.
    std::pair<GlyphReader, Position> expectEnlargedRow(std::string_view codes);

    /// Clicks where a row of glyphs is, below the glyph grid: on a glyph button.
    void clickButton(char code, unsigned button = 1);

    /// Clicks a glyph of the grid.
    void clickGrid(unsigned char code, unsigned button = 1);

    /// Waits until a file in the tour's folder holds these bytes.
    void expectFile(const std::string& name, std::string_view bytes);

    /// Waits until the clipboard holds the picture of a glyph.
    void expectCopied(char code);

    void expect(bool condition, const std::string& what);
    void until(const std::function<bool()>& condition, const std::string& what);

    [[nodiscard]] Desktop& desktop() { return m_desktop; }

    [[nodiscard]] const GlyphReader& reader() const { return *m_reader; }

    /// The whole of a file; empty if it is not there.
    [[nodiscard]] static std::string contentOf(const ui::Path& path);

    /// Where pictures and scripts go.
    [[nodiscard]] ui::Path folder() const { return m_options.folder; }

    /// Where the program's data lie.
    [[nodiscard]] ui::Path dataFolder() const { return m_directory.folder(); }

    /// Reads the artwork of a character set (0-based) from the program's data: what glyphs look like from now
    /// on.
    void useCharSet(int number);

    /// Puts the artwork of a character set (0-based) into the tour's folder, as a picture.
    void putCharSet(int number, const std::string& name);

private:
    [[nodiscard]] ui::Picture artworkOf(int number) const;
    void findGrid();
    void save(const std::string& name, const ui::Rect& area);
    [[nodiscard]] ui::Rect outsideGrid(const ui::Picture& screen) const;

    TourOptions m_options;
    ui::DesktopProgramDirectory m_directory; ///< of the program that is played
    Desktop& m_desktop;
    ui::Picture m_cells; ///< the atlas of the character set in use
    std::optional<GlyphReader> m_reader;
    std::optional<Position> m_grid;
    unsigned long m_window = 0; ///< the one waited for last
    unsigned long m_main = 0;
    pid_t m_process = 0;
    int m_stops = 0;
};

} // namespace tour
