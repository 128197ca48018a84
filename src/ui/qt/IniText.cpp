// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/qt/IniText.h"

#include "ui/qt/Text.h"

#include <QSettings>
#include <QTemporaryDir>
#include <algorithm>
#include <utility>

namespace ui::qt {

namespace {

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
    case QMetaType::QVariantList:
        // A comma without quotes, which only people write, makes the value a list.
        return value.toStringList().join(QLatin1Char(',')).toStdString();
    default:
        return {};
    }
}

IniValues ValuesOf(QSettings& settings) {
    IniValues values;
    for (const QString& fullKey : settings.allKeys()) {
        const auto slash = fullKey.lastIndexOf(QLatin1Char('/'));
        const std::string section = fullKey.left(std::max<decltype(slash)>(slash, 0)).toStdString();
        // The toolkit reads a key without a name, but does not write it.
        if (const std::string key = fullKey.mid(slash + 1).toStdString(); !key.empty()) {
            values[section][key] = FromVariant(settings.value(fullKey));
        }
    }
    return values;
}

/// Makes a temporary file, which need not be flushed.
Status MakeScratchFile(Files& files, const Path& path, std::string_view bytes) {
    auto file = files.open(path, Files::OpenMode::CreatePrivate);
    if (!file) {
        return file.failure();
    }
    Status done = file.value()->write(bytes);
    if (done) {
        done = file.value()->check(bytes);
    }
    return done ? file.value()->close() : done;
}

/// Lets the toolkit put the values into a temporary file that holds `before`.
Result<IniText> SetValues(const Path& file, const IniValues& before, const IniSections& values) {
    QSettings settings(FromPath(file), QSettings::IniFormat);
    IniText text{.bytes = {}, .values = ValuesOf(settings), .wasDamaged = false};
    text.wasDamaged = settings.status() == QSettings::FormatError;
    if (text.values != before) {
        return Failure{"What \"" + PathText(file) + "\" holds could not be read."};
    }
    for (const auto& [section, keys] : values) {
        for (const auto& [key, value] : keys) {
            settings.setValue(QString::fromStdString(section + '/' + key), ToVariant(value));
            text.values[section][key] = value;
        }
    }
    settings.sync();
    if (settings.status() == QSettings::AccessError) {
        return Failure{"Could not write \"" + PathText(file) + "\"."};
    }
    return text;
}

} // namespace

std::optional<IniValues> ReadIniFile(const Path& file) {
    QSettings settings(FromPath(file), QSettings::IniFormat);
    // The toolkit may have kept an older state of the file.
    settings.sync();
    if (settings.status() == QSettings::AccessError) {
        return {};
    }
    return ValuesOf(settings);
}

Result<IniText> WithIniValues(std::string_view before, const IniSections& values) {
    const QTemporaryDir folder;
    if (!folder.isValid()) {
        return Failure{"Could not make a temporary folder: " + folder.errorString().toStdString() + "."};
    }
    const Path path = ToPath(folder.path());
    DiskFiles files;
    const Path original = path / "before.ini";
    if (auto made = MakeScratchFile(files, original, before); !made) {
        return made.failure();
    }
    // The toolkit treats a file that it fails to read as an empty one, and remembers files by their names: so
    // it reads twice, each time under a new name.
    const auto valuesBefore = ReadIniFile(original);
    const Path written = path / "settings.ini";
    if (auto renamed = files.rename(original, written); !renamed) {
        return renamed.failure();
    }
    const auto set = SetValues(written, valuesBefore.value_or(IniValues()), values);
    if (!set) {
        return set.failure();
    }
    const Path checked = path / "check.ini";
    if (auto renamed = files.rename(written, checked); !renamed) {
        return renamed.failure();
    }
    if (ReadIniFile(checked) != set.value().values) {
        return Failure{"What was written to \"" + PathText(written) + "\" could not be read again."};
    }
    auto bytes = files.read(checked);
    if (!bytes) {
        return bytes.failure();
    }
    IniText text = set.value();
    text.bytes = std::move(bytes).value();
    return text;
}

} // namespace ui::qt
