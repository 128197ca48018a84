// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace bench {

/// One start of a program.
struct Start {
    double paintMilliseconds = 0; ///< from exec to the first paint of its window
    double cpuMilliseconds = 0;   ///< what it has computed by then
    double peakMebibytes = 0;     ///< the most memory it has held, a moment after
};

/// What one key press did to the screen.
struct KeyEcho {
    double milliseconds = 0; ///< from the press to the first change
    double areas = 0;        ///< how many areas were painted
    double largest = 0;      ///< the pixels of the largest of them
};

/// Watches what programs paint on the display that DISPLAY names. Nobody else may use that display.
class Watcher {
public:
    Watcher();
    ~Watcher();

    /// Whether there is such a display and it has the extensions.
    [[nodiscard]] bool connected() const;

    /// Starts a program, waits for its first paint and ends it. Nothing if it paints nothing for ten seconds.
    std::optional<Start> start(const std::string& program);

    /// Starts a program, fills a row with the first fifteen keys, presses `count` more one by one and ends
    /// it. Returns what those did that changed the screen.
    std::vector<KeyEcho> pressKeys(const std::string& program, int count);

private:
    struct Connection;
    std::unique_ptr<Connection> m_connection;
};

} // namespace bench
