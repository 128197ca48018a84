// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/TempProgramDirectory.h"

#include <string>
#include <vector>

/// How long to wait for a program that is started, in milliseconds.
inline constexpr int Patience = 40000;

/// A user with a home of their own, on a machine without a desktop, and a program that records what it is
/// started with.
class DesktopHome {
public:
    struct Finished {
        int exitCode = -1;
        std::string output; ///< without the blanks and line feeds around it
    };

    DesktopHome();

    /// A home whose data home is called `dataHome`.
    explicit DesktopHome(const ui::Path& dataHome);

    [[nodiscard]] const ui::Path& path() const { return m_folder.path(); }

    [[nodiscard]] const ui::Path& dataHome() const { return m_dataHome; }

    /// The content of a file in the data home; fails the test when there is none.
    [[nodiscard]] std::string content(const ui::Path& file) const;

    /// Makes the recording program, in a folder of that name; its path.
    [[nodiscard]] ui::Path makeProgram(const ui::Path& folder) const;

    /// Makes a file of that name in a folder of that name as well; its path.
    [[nodiscard]] ui::Path makeFile(const std::string& name, const std::string& content) const;

    /// Runs a program as the user, in the home, to its end.
    [[nodiscard]] Finished run(const char* program, const std::vector<std::string>& arguments) const;

    /// What the recording program was started with, once it has been started; forgets it.
    [[nodiscard]] std::vector<std::string> takeRecord() const;

private:
    support::TempFolder m_folder;
    ui::Path m_dataHome;
};
