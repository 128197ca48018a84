// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "DesktopHome.h"

#include <QFile>
#include <QProcess>
#include <QTest>
#include <gtest/gtest.h>

namespace {

constexpr auto Recorder = "#!/bin/sh\n"
                          "printf '%s\\0' \"$@\" >\"$VTM_TEST_RECORD.new\"\n"
                          "mv \"$VTM_TEST_RECORD.new\" \"$VTM_TEST_RECORD\"\n";

QString text(const ui::Path& path) {
    return QFile::decodeName(QByteArray::fromStdString(path.native()));
}

} // namespace

DesktopHome::DesktopHome()
    : DesktopHome("data") {}

DesktopHome::DesktopHome(const ui::Path& dataHome)
    : m_dataHome(m_folder / dataHome) {}

std::string DesktopHome::content(const ui::Path& file) const {
    return m_folder.content(m_dataHome / file);
}

ui::Path DesktopHome::makeProgram(const ui::Path& folder) const {
    std::filesystem::create_directories(m_folder / folder);
    const ui::Path program = m_folder.put(folder / "VTM", Recorder);
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    return program;
}

ui::Path DesktopHome::makeFile(const std::string& name, const std::string& content) const {
    const ui::Path file = ui::Path("files") / name / name;
    std::filesystem::create_directories(m_folder / file.parent_path());
    return m_folder.put(file, content);
}

DesktopHome::Finished DesktopHome::run(const char* program, const std::vector<std::string>& arguments) const {
    auto environment = QProcessEnvironment::systemEnvironment();
    const auto set = [&](const char* name, const ui::Path& value) {
        environment.insert(QLatin1String(name), text(value));
    };
    set("HOME", path());
    set("XDG_DATA_HOME", m_dataHome);
    set("XDG_CONFIG_HOME", m_folder / "config");
    set("XDG_CACHE_HOME", m_folder / "cache");
    set("XDG_DATA_DIRS", "/usr/local/share:/usr/share");
    set("XDG_CURRENT_DESKTOP", "X-Generic");
    set("DISPLAY", ":none");
    set("BROWSER", "false");
    set("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
    set("GIO_USE_VFS", "local");
    set("GSETTINGS_BACKEND", "memory");
    set("VTM_TEST_RECORD", m_folder / "record");
    // Desktops name files in UTF-8; without a locale some openers take no other letters than those of ASCII.
    set("LC_ALL", "C.UTF-8");
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));

    QStringList words;
    for (const std::string& argument : arguments) {
        words << text(argument);
    }
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(text(path()));
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QLatin1String(program), words);
    if (!process.waitForFinished(Patience)) {
        ADD_FAILURE() << program << " does not end: " << process.errorString().toStdString();
        return {};
    }
    return {process.exitCode(), process.readAll().trimmed().toStdString()};
}

std::vector<std::string> DesktopHome::takeRecord() const {
    if (!QTest::qWaitFor([this] { return m_folder.has("record"); }, Patience)) {
        ADD_FAILURE() << "the program was not started";
        return {};
    }
    std::vector<std::string> arguments;
    const std::string record = m_folder.content("record");
    for (std::size_t start = 0; start < record.size();) {
        const auto end = record.find('\0', start);
        arguments.push_back(record.substr(start, end - start));
        start = end + 1;
    }
    std::filesystem::remove(m_folder / "record");
    return arguments;
}
