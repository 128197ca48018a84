// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"

namespace cli {

/// The program directory as a command finds it, where the program itself finds it too.
class ProgramFolder final : public ui::ProgramDirectory {
public:
    /// Of the running command.
    [[nodiscard]] static ProgramFolder OfThisCommand();

    /// Of a command whose file is `executable`, for a user whose data home is `dataHome`: the executable's
    /// folder or, for an installed command, PREFIX/share/vtm. The folder "vtm" of the data home stands in
    /// where that cannot be written.
    ProgramFolder(const ui::Path& executable, const ui::Path& dataHome);

    /// A folder that the user names: nothing stands in for it.
    explicit ProgramFolder(ui::Path folder);

    [[nodiscard]] ui::Path folder() const override { return m_folder; }

    [[nodiscard]] bool writable() const override { return m_writable; }

    [[nodiscard]] ui::Path toRead(const std::string& name) const override;
    [[nodiscard]] ui::Path toWrite(const std::string& name) const override;

private:
    ui::Path m_folder;
    ui::Path m_standIn; ///< empty: there is none
    bool m_writable = false;
};

} // namespace cli
