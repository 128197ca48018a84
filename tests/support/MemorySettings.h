// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace support {

/// Settings in memory. Sections and keys are sorted by their bytes.
class MemorySettings final : public ui::SettingsStore {
public:
    using Section = std::map<std::string, std::string>;

    [[nodiscard]] std::optional<std::string>
    read(const std::string& section, const std::string& key) const override;
    void write(const std::string& section, const std::string& key, const std::string& value) override;
    [[nodiscard]] std::vector<std::pair<std::string, std::string>>
    list(const std::string& section) const override;
    void refresh() override;
    [[nodiscard]] ui::Status readable() const override;
    ui::Status save() override;

    /// What lies in the store; a test may put values here.
    std::map<std::string, Section> sections;

    /// Every write in order: section, key, value.
    struct Write {
        std::string section;
        std::string key;
        std::string value;

        friend bool operator==(const Write&, const Write&) = default;
    };

    std::vector<Write> writes;
    int saves = 0;

    /// What other programs have done to the store when it is refreshed.
    std::function<void()> onRefresh;

    /// When it is not empty, the store could not be read for this reason.
    std::string readFailure;

    /// When it is not empty, save() fails with it.
    std::string saveFailure;
};

} // namespace support
