// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/Environment.h"
#include "support/TempProgramDirectory.h"
#include "ui/linux/DesktopLauncher.h"

#include <QTest>
#include <QThread>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <optional>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

using namespace std::chrono_literals;
using ui::native::DesktopLauncher;

/// A desktop whose opener is a script of the test's own.
class DesktopLauncherTest : public testing::Test {
protected:
    DesktopLauncherTest()
        : m_path("PATH", QByteArray::fromStdString(programs.path().native()) + ":" + qgetenv("PATH"))
        , m_notes("VTM_TEST_NOTES", QByteArray::fromStdString(notes.path().native())) {}

    ~DesktopLauncherTest() override {
        if (opener > 0) {
            ::kill(opener, SIGKILL);
            EXPECT_TRUE(QTest::qWaitFor([this] { return ::kill(opener, 0) != 0; }, 20000)) << "a zombie";
        }
    }

    void installOpener(const std::string& script) const {
        std::filesystem::permissions(
            programs.put("xdg-open", "#!/bin/sh\n" + script), std::filesystem::perms::owner_all);
    }

    /// An opener that runs until it is ended.
    void installHangingOpener() const {
        installOpener("echo $$ >\"$VTM_TEST_NOTES/pid.new\"; mv \"$VTM_TEST_NOTES/pid.new\" "
                      "\"$VTM_TEST_NOTES/pid\"; exec sleep 600\n");
    }

    /// Waits until the hanging opener runs.
    void findOpener() {
        ASSERT_TRUE(QTest::qWaitFor([this] { return notes.has("pid"); }, 20000));
        opener = std::stoi(notes.content("pid"));
        ASSERT_GT(opener, 1);
    }

    void open(DesktopLauncher& launcher, const std::string& address = "https://vtm.example.org/") {
        launcher.open("/nowhere/temphtm.url", address, [this](int result) { results.push_back(result); });
    }

    bool waitForResults(std::size_t count) {
        return QTest::qWaitFor([&] { return results.size() >= count; }, 20000);
    }

    const support::TempFolder programs;
    const support::TempFolder notes;
    std::vector<int> results;
    pid_t opener = 0;

private:
    const Environment m_path;
    const Environment m_notes;
};

} // namespace

TEST_F(DesktopLauncherTest, TranslatesWhatTheOpenerSays) {
    struct Row {
        std::string exit;
        int result;
    };

    const std::vector<Row> rows = {
        {"exit 0", 33}, {"exit 1", 0}, {"exit 2", 2}, {"exit 3", 31},  {"exit 4", 0},
        {"exit 5", 5},  {"exit 6", 5}, {"exit 7", 0}, {"exit 127", 0}, {"kill -KILL $$", 0},
    };
    DesktopLauncher launcher(1h);
    for (const Row& row : rows) {
        SCOPED_TRACE(row.exit);
        results.clear();
        installOpener(row.exit + "\n");
        open(launcher);
        ASSERT_TRUE(waitForResults(1));
        EXPECT_EQ(results, std::vector<int>{row.result});
    }
}

TEST_F(DesktopLauncherTest, HandsOverTheAddressAsItsOnlyArgument) {
    installOpener("printf '%s\\n' \"$#\" \"$@\" >\"$VTM_TEST_NOTES/arguments\"\n");
    DesktopLauncher launcher(1h);
    const std::vector<std::string> addresses = {
        "https://vtm.example.org/",
        "mailto:vtm@example.org?subject=VTM Help",
        "file:///home/a%20b/vtmhelp.htm",
        "http://example.org/?a=$(id)&b=`id`;'\"\\",
        "-h",
    };
    for (const std::string& address : addresses) {
        SCOPED_TRACE(address);
        results.clear();
        open(launcher, address);
        ASSERT_TRUE(waitForResults(1));
        EXPECT_EQ(notes.content("arguments"), "1\n" + address + "\n");
    }
}

TEST_F(DesktopLauncherTest, PercentEncodesWhatIsNotAscii) {
    installOpener("printf '%s' \"$1\" >\"$VTM_TEST_NOTES/arguments\"\n");
    DesktopLauncher launcher(1h);
    open(launcher, "http://example.org/\xC3\xA4\xFF\n");
    ASSERT_TRUE(waitForResults(1));
    EXPECT_EQ(notes.content("arguments"), "http://example.org/%C3%A4%FF%0A");
}

TEST_F(DesktopLauncherTest, LeavesEveryPrintableByteAsItIs) {
    installOpener("printf '%s' \"$1\" >\"$VTM_TEST_NOTES/arguments\"\n");
    std::string address;
    std::string expected;
    for (int byte = 0; byte < 256; ++byte) {
        address += static_cast<char>(byte);
        std::array<char, 4> encoded{};
        std::snprintf(encoded.data(), encoded.size(), "%%%02X", static_cast<unsigned>(byte));
        expected += byte >= ' ' && byte <= '~' ? std::string(1, static_cast<char>(byte)) : encoded.data();
    }
    DesktopLauncher launcher(1h);
    open(launcher, address);
    ASSERT_TRUE(waitForResults(1));
    EXPECT_EQ(notes.content("arguments"), expected);
}

TEST_F(DesktopLauncherTest, ReportsLaterAndOnTheThreadOfTheWindow) {
    installOpener("exit 0\n");
    DesktopLauncher launcher(1h);
    QThread* thread = nullptr;
    launcher.open("", "https://vtm.example.org/", [&](int) { thread = QThread::currentThread(); });
    EXPECT_EQ(thread, nullptr);
    ASSERT_TRUE(QTest::qWaitFor([&] { return thread != nullptr; }, 20000));
    EXPECT_EQ(thread, QThread::currentThread());
}

TEST_F(DesktopLauncherTest, WithoutAnOpenerThereIsNoProgramForTheAddress) {
    const Environment emptyPath("PATH", QByteArray::fromStdString(programs.path().native()));
    DesktopLauncher launcher(1h);
    open(launcher);
    EXPECT_TRUE(results.empty());
    ASSERT_TRUE(waitForResults(1));
    EXPECT_EQ(results, std::vector<int>{31});
}

TEST_F(DesktopLauncherTest, AnOpenerThatCannotBeStartedIsNone) {
    installOpener("exit 0\n");
    programs.put("xdg-open", "#!/nowhere/sh\n");
    DesktopLauncher launcher(1h);
    open(launcher);
    ASSERT_TRUE(waitForResults(1));
    EXPECT_EQ(results, std::vector<int>{31});
}

TEST_F(DesktopLauncherTest, AnOpenerThatKeepsRunningHasSucceededAndIsLeftAlone) {
    installHangingOpener();
    DesktopLauncher launcher(1ms);
    open(launcher);
    ASSERT_TRUE(waitForResults(1));
    EXPECT_EQ(results, std::vector<int>{33});
    findOpener();
    EXPECT_EQ(::kill(opener, 0), 0);
}

TEST_F(DesktopLauncherTest, TheLateEndOfAnOpenerIsNotReportedAgain) {
    installHangingOpener();
    DesktopLauncher launcher(1ms);
    open(launcher);
    ASSERT_TRUE(waitForResults(1));
    findOpener();
    ::kill(opener, SIGTERM);
    // Nothing but the end of the process itself, noticed by the event loop, takes it off the list of
    // processes.
    ASSERT_TRUE(QTest::qWaitFor([this] { return ::kill(opener, 0) != 0; }, 20000));
    opener = 0;
    QCoreApplication::processEvents();
    EXPECT_EQ(results, std::vector<int>{33});
}

TEST_F(DesktopLauncherTest, NothingIsReportedOnceTheLauncherIsGone) {
    installHangingOpener();
    {
        DesktopLauncher launcher(1h);
        open(launcher);
        findOpener();
    }
    EXPECT_EQ(::kill(opener, 0), 0) << "it was ended together with the launcher";
    ::kill(opener, SIGTERM);
    ASSERT_TRUE(QTest::qWaitFor([this] { return ::kill(opener, 0) != 0; }, 20000)) << "a zombie";
    opener = 0;
    QCoreApplication::processEvents();
    EXPECT_TRUE(results.empty());
}

TEST_F(DesktopLauncherTest, AResultThatWaitsForDeliveryGoesWithTheLauncher) {
    const Environment emptyPath("PATH", QByteArray::fromStdString(programs.path().native()));
    {
        DesktopLauncher launcher(1ms);
        open(launcher);
    }
    DesktopLauncher other(1h);
    bool isReported = false;
    other.open("", "https://vtm.example.org/", [&](int) { isReported = true; });
    ASSERT_TRUE(QTest::qWaitFor([&] { return isReported; }, 20000));
    EXPECT_TRUE(results.empty());
}

TEST_F(DesktopLauncherTest, AnOpenerOutlivesTheTerminalThatTheProgramWasStartedFrom) {
    installHangingOpener();
    DesktopLauncher launcher(1h);
    open(launcher);
    findOpener();
    EXPECT_EQ(::getsid(opener), opener);
}

TEST_F(DesktopLauncherTest, SeveralAddressesAreOpenedAtOnce) {
    installOpener("exit \"$1\"\n");
    DesktopLauncher launcher(1h);
    std::vector<std::optional<int>> found(3);
    const std::vector<std::string> exits = {"0", "2", "3"};
    for (std::size_t i = 0; i < exits.size(); ++i) {
        launcher.open("", exits[i], [&found, i](int result) { found[i] = result; });
    }
    ASSERT_TRUE(QTest::qWaitFor([&] { return found[0] && found[1] && found[2]; }, 20000));
    EXPECT_EQ(found, (std::vector<std::optional<int>>{33, 2, 31}));
}
