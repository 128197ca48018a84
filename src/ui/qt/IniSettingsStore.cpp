// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/IniSettingsStore.h"

#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <system_error>

namespace ui::qt {

namespace {

Path DefaultFile() {
    const Path home =
        QFile::encodeName(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation))
            .toStdString();
    return home / "VTM" / "VTM.ini";
}

std::unique_ptr<QSettings> OpenSettings(const Path& file) {
    return std::make_unique<QSettings>(
        QFile::decodeName(QByteArray::fromStdString(file.native())), QSettings::IniFormat);
}

QString FullKey(const std::string& section, const std::string& key) {
    return QString::fromStdString(section) + QLatin1Char('/') + QString::fromStdString(key);
}

/// Text as it is stored: readable where it is UTF-8, otherwise its bytes.
QVariant ToVariant(const std::string& value) {
    const QByteArray bytes = QByteArray::fromStdString(value);
    const QString text = QString::fromUtf8(bytes);
    if (text.toUtf8() != bytes) {
        return bytes;
    }
    return text;
}

std::optional<std::string> FromVariant(const QVariant& value) {
    switch (value.typeId()) {
    case QMetaType::QString:
        return value.toString().toStdString();
    case QMetaType::QByteArray:
        return value.toByteArray().toStdString();
    case QMetaType::QStringList:
        // The file holds a comma without quotes, which only people write.
        return value.toStringList().join(QLatin1Char(',')).toStdString();
    default:
        return {};
    }
}

/// Keeps a copy of a file that cannot be understood under a name that is free.
Status KeepDamagedFile(const Path& file) {
    std::error_code error;
    for (int number = 1;; ++number) {
        Path copy = file;
        copy += ".damaged-" + std::to_string(number);
        if (std::filesystem::copy_file(file, copy, error)) {
            return {};
        }
        if (error != std::errc::file_exists) {
            return Failure{
                "Could not keep a copy of the damaged file \"" + PathText(file) + "\": " + error.message() +
                "."};
        }
    }
}

} // namespace

IniSettingsStore::IniSettingsStore()
    : IniSettingsStore(DefaultFile()) {}

IniSettingsStore::IniSettingsStore(const Path& file)
    : m_file(file)
    , m_settings(OpenSettings(file)) {}

IniSettingsStore::~IniSettingsStore() = default;

std::optional<std::string> IniSettingsStore::read(const std::string& section, const std::string& key) const {
    if (const auto keys = m_written.find(section); keys != m_written.end()) {
        if (const auto value = keys->second.find(key); value != keys->second.end()) {
            return value->second;
        }
    }
    return FromVariant(m_settings->value(FullKey(section, key)));
}

void IniSettingsStore::write(const std::string& section, const std::string& key, const std::string& value) {
    m_written[section][key] = value;
}

std::vector<std::pair<std::string, std::string>> IniSettingsStore::list(const std::string& section) const {
    Section values;
    m_settings->beginGroup(QString::fromStdString(section));
    for (const QString& key : m_settings->childKeys()) {
        if (key.isEmpty()) {
            continue;
        }
        if (auto value = FromVariant(m_settings->value(key))) {
            values[key.toStdString()] = std::move(*value);
        }
    }
    m_settings->endGroup();
    if (const auto keys = m_written.find(section); keys != m_written.end()) {
        for (const auto& [key, value] : keys->second) {
            values[key] = value;
        }
    }
    return {values.begin(), values.end()};
}

void IniSettingsStore::refresh() {
    // There is nothing to write in it: that stays in m_written until it is saved.
    m_settings->sync();
}

Status IniSettingsStore::save() {
    if (m_settings->status() == QSettings::FormatError) {
        if (auto kept = KeepDamagedFile(m_file); !kept) {
            return kept;
        }
    }
    if (m_settings->status() != QSettings::NoError) {
        // The status does not go away by itself.
        m_settings = OpenSettings(m_file);
    }
    for (const auto& [section, keys] : m_written) {
        for (const auto& [key, value] : keys) {
            m_settings->setValue(FullKey(section, key), ToVariant(value));
        }
    }
    m_settings->sync();
    if (m_settings->status() == QSettings::AccessError) {
        return Failure{"Could not write the settings \"" + PathText(m_file) + "\"."};
    }
    m_written.clear();
    return {};
}

} // namespace ui::qt
