// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"

#include <string>
#include <string_view>

namespace support {

/// A new folder, removed with everything in it when the test ends.
class TempFolder {
public:
    TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    TempFolder(TempFolder&&) = delete;
    TempFolder& operator=(TempFolder&&) = delete;
    ~TempFolder();

    [[nodiscard]] const ui::Path& path() const { return m_path; }

    [[nodiscard]] ui::Path operator/(const ui::Path& name) const { return m_path / name; }

    /// Writes a file in it, replacing an old one; its path.
    ui::Path put(const ui::Path& name, std::string_view bytes) const;

    /// The whole content of a file in it; fails the test when there is none.
    [[nodiscard]] std::string content(const ui::Path& name) const;

    /// Whether anything of that name is in it.
    [[nodiscard]] bool has(const ui::Path& name) const;

private:
    ui::Path m_path;
};

/// A program directory of its own for a test, with a stand-in folder of its own.
class TempProgramDirectory final : public ui::ProgramDirectory {
public:
    [[nodiscard]] ui::Path folder() const override { return files.path(); }

    [[nodiscard]] bool writable() const override { return isWritable; }

    [[nodiscard]] ui::Path toRead(const std::string& name) const override;
    [[nodiscard]] ui::Path toWrite(const std::string& name) const override;

    TempFolder files;   ///< the program's folder
    TempFolder standIn; ///< the user's stand-in folder
    bool isWritable = true;
};

} // namespace support
