// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"

namespace ui {

/// The program directory of a desktop program: the executable's folder; for an installed program, whose data
/// lie apart in PREFIX/share/vtm, that folder. The stand-in folder is "vtm" in the user's data home; it takes
/// part only where the program directory cannot be written.
class DesktopProgramDirectory final : public ProgramDirectory {
public:
    /// Of the running program.
    DesktopProgramDirectory();

    /// Of a program at `executable` for the user who runs this one.
    explicit DesktopProgramDirectory(const Path& executable);

    /// Of a program at `executable` for a user whose data home is `dataHome`; empty: nothing stands in.
    DesktopProgramDirectory(const Path& executable, const Path& dataHome);

    [[nodiscard]] Path folder() const override { return m_folder; }

    [[nodiscard]] bool writable() const override { return m_writable; }

    [[nodiscard]] Path toRead(const std::string& name) const override;
    [[nodiscard]] Path toWrite(const std::string& name) const override;

    /// Where toWrite() puts files, whether the folder is there yet or not; empty: nowhere.
    [[nodiscard]] Path spareFolder() const;

    /// The program's folder in the user's state home, whether it is there yet or not; empty: nowhere.
    [[nodiscard]] static Path StateFolder();

private:
    Path m_folder;
    Path m_standIn; ///< empty: there is none
    bool m_writable;
};

} // namespace ui
