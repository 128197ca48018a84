// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/MemorySettings.h"

namespace support {

std::optional<std::string> MemorySettings::read(const std::string& section, const std::string& key) const {
    const auto keys = sections.find(section);
    if (keys == sections.end()) {
        return {};
    }
    const auto value = keys->second.find(key);
    if (value == keys->second.end()) {
        return {};
    }
    return value->second;
}

void MemorySettings::write(const std::string& section, const std::string& key, const std::string& value) {
    sections[section][key] = value;
    writes.push_back({section, key, value});
}

std::vector<std::pair<std::string, std::string>> MemorySettings::list(const std::string& section) const {
    const auto keys = sections.find(section);
    if (keys == sections.end()) {
        return {};
    }
    return {keys->second.begin(), keys->second.end()};
}

void MemorySettings::refresh() {
    if (onRefresh) {
        onRefresh();
    }
}

ui::Status MemorySettings::readable() const {
    return readFailure.empty() ? ui::Status() : ui::Failure{readFailure};
}

ui::Status MemorySettings::save() {
    ++saves;
    if (!saveFailure.empty()) {
        return ui::Failure{saveFailure};
    }
    return {};
}

} // namespace support
