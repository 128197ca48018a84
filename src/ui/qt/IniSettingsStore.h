// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"
#include "ui/qt/IniText.h"

#include <string>

namespace ui::qt {

/// Settings in an INI file, a group a section. Several programs may use the file at once: each of them
/// changes only the keys that it has written. A value that cannot be read counts as absent.
class IniSettingsStore final : public SettingsStore {
public:
    /// `files` outlives the store.
    IniSettingsStore(Files& files, Path file);

    /// The file of the user who runs this program.
    [[nodiscard]] static Path UsersFile();

    [[nodiscard]] std::optional<std::string>
    read(const std::string& section, const std::string& key) const override;
    void write(const std::string& section, const std::string& key, const std::string& value) override;
    [[nodiscard]] std::vector<std::pair<std::string, std::string>>
    list(const std::string& section) const override;

    void refresh() override;

    [[nodiscard]] Status readable() const override { return m_readable; }

    /// Puts the written values into the file, as a whole or not at all. A file that is damaged is first kept
    /// as a copy beside it; one that cannot be read is left alone.
    Status save() override;

private:
    [[nodiscard]] Result<IniValues> load() const;
    [[nodiscard]] Status saveLocked();

    Files& m_files;
    Path m_file;
    Status m_readable;
    IniValues m_saved;     ///< as the file was when it was last read
    IniSections m_written; ///< not yet in the file
};

} // namespace ui::qt
