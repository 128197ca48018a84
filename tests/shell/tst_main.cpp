// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/TempProgramDirectory.h"

#include <QFile>
#include <QProcess>
#include <QTest>
#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <utility>

namespace {

/// The program itself, with settings of its own.
class Program : public testing::Test {
protected:
    Program() {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), text(home / "config"));
        environment.insert(QStringLiteral("XDG_DATA_HOME"), text(home / "data"));
        // As if the program was installed nowhere.
        environment.insert(QStringLiteral("XDG_DATA_DIRS"), text(home / "system"));
        environment.insert(QStringLiteral("SDL_AUDIODRIVER"), QStringLiteral("dummy"));
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(text(home.path()));
        process.setProcessChannelMode(QProcess::ForwardedChannels);
    }

    ~Program() override {
        if (process.state() != QProcess::NotRunning) {
            process.kill();
            process.waitForFinished();
        }
    }

    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    Program(Program&&) = delete;
    Program& operator=(Program&&) = delete;

    [[nodiscard]] static QString text(const ui::Path& path) { return QFile::decodeName(path.c_str()); }

    void start(const QStringList& arguments) { startWith(QStringLiteral(VTM_PROGRAM_DIR "/VTM"), arguments); }

    /// Starts the program by a command.
    void startWith(const QString& command, const QStringList& arguments) {
        process.start(command, arguments);
        ASSERT_TRUE(process.waitForStarted());
        // Told to end before it listens, it would just be killed.
        ASSERT_TRUE(QTest::qWaitFor([this] { return catchesTermination(); }, 20000));
    }

    /// Tells the program to end; whether it does so, in its own way.
    [[nodiscard]] bool ends() {
        process.terminate();
        return process.waitForFinished(20000) && process.exitStatus() == QProcess::NormalExit &&
               process.exitCode() == 0;
    }

    support::TempFolder home;
    QProcess process;

private:
    [[nodiscard]] bool catchesTermination() const {
        QFile status(QStringLiteral("/proc/%1/status").arg(process.processId()));
        if (!status.open(QIODevice::ReadOnly)) {
            return false;
        }
        const QByteArray lines = status.readAll();
        const qsizetype place = lines.indexOf("SigCgt:");
        const qulonglong caught = lines.mid(place + 7, 18).trimmed().toULongLong(nullptr, 16);
        return place >= 0 && (caught >> (SIGTERM - 1) & 1U) != 0;
    }
};

TEST_F(Program, PrintsItsHelpAndItsVersionWithoutAScreen) {
    QProcessEnvironment environment = process.processEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("none such"));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::SeparateChannels);
    for (const auto& [argument, beginning] :
         {std::pair{"--help", "Usage: vtm\n"}, std::pair{"--version", "vtm 1."}}) {
        process.start(QStringLiteral(VTM_PROGRAM_DIR "/VTM"), {QLatin1String(argument)});
        ASSERT_TRUE(process.waitForFinished(20000));
        EXPECT_EQ(process.exitCode(), 0);
        EXPECT_TRUE(process.readAllStandardOutput().startsWith(beginning)) << argument;
        EXPECT_EQ(process.readAllStandardError(), QByteArray());
    }
    EXPECT_FALSE(std::filesystem::exists(home / "config")) << "nothing is written";
}

TEST_F(Program, EndsWhenItIsToldToAndSavesItsSettings) {
    start({});
    EXPECT_TRUE(ends());
    EXPECT_NE(home.content("config/VTM/VTM.ini").find("maketype="), std::string::npos);
}

TEST_F(Program, RegistersItsFileTypesHoweverSoonItEnds) {
    start({});
    EXPECT_TRUE(ends());
    for (const char* const file :
         {"data/applications/vtm.desktop", "data/applications/vtm-name.desktop", "data/mime/packages/vtm.xml",
          "data/icons/hicolor/48x48/apps/vtm.png",
          "data/icons/hicolor/scalable/mimetypes/application-x-vtm-name.svg"}) {
        EXPECT_TRUE(home.has(file)) << file;
    }
}

TEST_F(Program, EndsWhenItIsToldToThoughItCannotSaveItsSettings) {
    std::filesystem::create_directory(home / "config");
    home.put("config/VTM", "a file where the folder should be");
    start({});
    EXPECT_TRUE(ends());
}

TEST_F(Program, EndsWhenItIsToldToThoughNoFileMayGrow) {
    startWith(
        QStringLiteral("/bin/sh"),
        {QStringLiteral("-c"), QStringLiteral("ulimit -f 0; exec " VTM_PROGRAM_DIR "/VTM")});
    EXPECT_TRUE(ends());
    EXPECT_FALSE(home.has("config/VTM/VTM.ini"));
}

TEST_F(Program, EndsWhenItIsToldToWhileAMessageOfTheStartIsShown) {
    start({QStringLiteral(" /name"), text(home.put("no.vtn", "not a script"))});
    EXPECT_TRUE(ends());
}

} // namespace
