// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/IniSettingsStore.h"

#include "ui/FileWriter.h"
#include "ui/System.h"

#include <utility>

namespace ui::qt {

IniSettingsStore::IniSettingsStore(Files& files, Path file)
    : m_files(files)
    , m_file(std::move(file)) {
    refresh();
}

Path IniSettingsStore::UsersFile() {
    return ConfigHome() / "VTM" / "VTM.ini";
}

std::optional<std::string> IniSettingsStore::read(const std::string& section, const std::string& key) const {
    if (const auto keys = m_written.find(section); keys != m_written.end()) {
        if (const auto value = keys->second.find(key); value != keys->second.end()) {
            return value->second;
        }
    }
    if (const auto keys = m_saved.find(section); keys != m_saved.end()) {
        if (const auto value = keys->second.find(key); value != keys->second.end()) {
            return value->second;
        }
    }
    return {};
}

void IniSettingsStore::write(const std::string& section, const std::string& key, const std::string& value) {
    m_written[section][key] = value;
}

std::vector<std::pair<std::string, std::string>> IniSettingsStore::list(const std::string& section) const {
    IniSection values;
    if (const auto keys = m_saved.find(section); keys != m_saved.end()) {
        for (const auto& [key, value] : keys->second) {
            if (value) {
                values[key] = *value;
            }
        }
    }
    if (const auto keys = m_written.find(section); keys != m_written.end()) {
        for (const auto& [key, value] : keys->second) {
            values[key] = value;
        }
    }
    return {values.begin(), values.end()};
}

void IniSettingsStore::refresh() {
    auto values = load();
    m_readable = values ? Status() : values.failure();
    // While the file cannot be read, the values read before stay.
    if (values) {
        m_saved = std::move(values).value();
    }
}

Result<IniValues> IniSettingsStore::load() const {
    if (m_files.kindOf(m_file) == PathKind::Nothing) {
        return IniValues();
    }
    const auto bytes = m_files.read(m_file);
    if (!bytes) {
        return bytes.failure();
    }
    auto values = ReadIniFile(m_file);
    // The toolkit treats a file that it fails to read as an empty one.
    if (values && (!values->empty() || bytes.value().empty())) {
        return std::move(*values);
    }
    const auto text = WithIniValues(bytes.value(), {});
    return text ? Result<IniValues>(text.value().values) : text.failure();
}

Status IniSettingsStore::save() {
    if (m_written.empty()) {
        return {};
    }
    Status done = m_readable;
    if (done) {
        done = m_files.makeFolder(FolderOf(m_file));
    }
    if (done) {
        done = saveLocked();
    }
    return done
               ? Status()
               : Failure{
                     "Could not write the settings \"" + PathText(m_file) + "\".\n" + done.failure().message};
}

Status IniSettingsStore::saveLocked() {
    const auto folderLock = m_files.lockFolder(FolderOf(m_file));
    if (!folderLock) {
        return folderLock.failure();
    }
    Bytes before;
    std::unique_ptr<FileLock> fileLock;
    if (m_files.exists(m_file)) {
        // The lock of the folder keeps out no other host that shares the file.
        auto locked = m_files.lockFile(m_file);
        if (!locked) {
            return locked.failure();
        }
        fileLock = std::move(locked).value();
        auto bytes = m_files.read(m_file);
        if (!bytes) {
            return bytes.failure();
        }
        before = std::move(bytes).value();
    }
    auto after = WithIniValues(before, m_written);
    if (!after) {
        return after.failure();
    }
    if (after.value().wasDamaged) {
        if (auto kept = WritePrivateCopy(m_files, DamagedCopyName(m_files, m_file), before); !kept) {
            return kept;
        }
    }
    if (after.value().bytes != before) {
        if (auto written = WriteFile(m_files, m_file, after.value().bytes); !written) {
            return written;
        }
    }
    m_saved = std::move(after).value().values;
    m_written.clear();
    return {};
}

} // namespace ui::qt
