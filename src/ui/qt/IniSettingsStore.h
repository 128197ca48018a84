// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"

#include <map>
#include <memory>
#include <string>

class QSettings;

namespace ui::qt {

/// Settings in an INI file, a group a section. Several programs may use the file at once: each of them
/// changes only the keys that it has written. A value that cannot be read counts as absent.
class IniSettingsStore final : public SettingsStore {
public:
    /// The user's settings file.
    IniSettingsStore();

    explicit IniSettingsStore(const Path& file);
    IniSettingsStore(const IniSettingsStore&) = delete;
    IniSettingsStore& operator=(const IniSettingsStore&) = delete;
    IniSettingsStore(IniSettingsStore&&) = delete;
    IniSettingsStore& operator=(IniSettingsStore&&) = delete;
    ~IniSettingsStore() override;

    [[nodiscard]] std::optional<std::string>
    read(const std::string& section, const std::string& key) const override;
    void write(const std::string& section, const std::string& key, const std::string& value) override;
    [[nodiscard]] std::vector<std::pair<std::string, std::string>>
    list(const std::string& section) const override;

    void refresh() override;

    /// Puts the written values into the file. A file that is damaged is first kept as a copy beside it.
    Status save() override;

private:
    using Section = std::map<std::string, std::string>;

    Path m_file;
    std::unique_ptr<QSettings> m_settings;
    std::map<std::string, Section> m_written; ///< not yet in the file
};

} // namespace ui::qt
