// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"

namespace ui::native {

/// Registers file types as free desktops know them: a desktop entry for each type and one description of all
/// of them for the shared MIME database, both in the user's data home and nowhere else. The executable's
/// icons, and an entry that shows the program in menus, are added there where the system's own data lack them
/// and nobody else's entry is there. The user's preferred program for a type is not touched.
class FreedesktopFileTypes final : public FileTypes {
public:
    /// For the user and the executable that the program runs as.
    FreedesktopFileTypes();

    /// For a user whose data home is `dataHome`.
    FreedesktopFileTypes(Path dataHome, Path executable);

    /// The entries name `program`; where there is no such file (an installed program lies apart from its
    /// folder) they name the executable. The desktop's caches are renewed in the background, and only if
    /// something was written or a cache is missing.
    void registerTypes(const std::vector<FileType>& types, const Path& program) override;

private:
    [[nodiscard]] Path link() const;
    [[nodiscard]] Path startable(const Path& program);
    [[nodiscard]] bool isInSystem(const Path& name) const;
    bool putProgramEntry(const Path& entry, const Path& program);
    void putIcons();
    bool writeIfOther(const Path& file, std::string_view content);

    DiskFiles m_files;
    Path m_dataHome;
    Path m_executable;
};

} // namespace ui::native
