// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
//
// Every operation that writes, with every call to the system failing once, in every way: what the user had is
// still there afterwards, and nobody was told otherwise.
#include "faults/Injection.h"
#include "faults/Operations.h"
#include "support/InChild.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <optional>

namespace {

using faults::Fault;
using faults::Operation;
using faults::Report;
using faults::World;

struct FaultName {
    Fault fault;
    const char* text;
    bool movesOnly; ///< happens only to a call that moves bytes
};

constexpr std::array FaultNames{
    FaultName{Fault::NoSpace, "fails once with ENOSPC", false},
    FaultName{Fault::InputOutput, "fails once with EIO", false},
    FaultName{Fault::NoAccess, "fails once with EACCES", false},
    FaultName{Fault::ShortWrite, "moves half of its bytes", true},
    FaultName{Fault::HalfWrite, "moves half of its bytes and fails", true},
    FaultName{Fault::FullDisk, "and all later ones find the disk full", false},
    FaultName{Fault::BrokenDisk, "and all later ones fail with EIO", false},
    FaultName{Fault::Death, "ends the program", false},
    FaultName{Fault::HalfDeath, "ends the program when half of its bytes are moved", true}};

/// What came of the cases of one kind of fault.
struct Tally {
    int cases = 0;
    int done = 0;   ///< the operation was done all the same
    int told = 0;   ///< it failed and said so
    int deaths = 0; ///< the program ended
    int copies = 0; ///< of these: a file incomplete, and its copy named
    int lost = 0;
    int silent = 0;
    int wrong = 0;
};

std::array<Tally, FaultNames.size()> tallies;
int operationCount = 0;

using Contents = std::vector<std::optional<std::string>>;

Contents Look(const Operation& operation, const World& world) {
    Contents contents;
    for (const ui::Path& path : operation.targets(world)) {
        const auto bytes = world.files.read(path);
        contents.push_back(bytes ? std::optional(bytes.value()) : std::nullopt);
    }
    return contents;
}

/// How a process ended that ran an operation, and what it told.
struct Outcome {
    int end = 0;
    std::string calls;
    bool hasHappened = false;
    Report report;
};

void WriteAll(int number, const std::string& bytes) {
    EXPECT_EQ(::write(number, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
}

Outcome RunWith(const Operation& operation, World& world, Fault fault, int place) {
    std::array<int, 2> pipe{};
    EXPECT_EQ(::pipe(pipe.data()), 0);
    const support::Child child = support::StartChild([&] {
        const ui::Path temporary = world.home / "temporary";
        std::filesystem::create_directory(temporary);
        ::setenv("TMPDIR", temporary.c_str(), 1); // NOLINT(concurrency-mt-unsafe)
        faults::Begin(fault, place);
        const Report report = operation.run(world);
        const std::string calls = faults::End();
        WriteAll(
            pipe[1], calls + '\0' + (report.isDone ? 'D' : 'F') + (faults::HasHappened() ? 'H' : 'N') +
                         report.messages);
        return 0;
    });
    ::close(pipe[1]);
    std::string told;
    std::array<char, 4096> buffer{};
    for (ssize_t count = 0; (count = ::read(pipe[0], buffer.data(), buffer.size())) > 0;) {
        told.append(buffer.data(), static_cast<std::size_t>(count));
    }
    ::close(pipe[0]);
    Outcome outcome{.end = support::EndOf(child), .calls = {}, .hasHappened = true, .report = {}};
    if (const auto end = told.find('\0'); end != std::string::npos) {
        outcome.calls = told.substr(0, end);
        outcome.report = {told[end + 1] == 'D', told.substr(end + 3)};
        outcome.hasHappened = told[end + 2] == 'H';
    }
    return outcome;
}

/// Whether a file that holds these bytes lies anywhere, and is named in a text unless that is empty.
bool IsKept(const World& world, const std::string& bytes, const std::optional<std::string>& named) {
    for (const ui::Path& folder :
         {world.game.path(), world.home.path(), world.directory.folder(), world.directory.standIn.path()}) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            const auto content =
                entry.is_regular_file() ? world.files.read(entry.path()) : ui::Failure{"not a file"};
            if (content && content.value() == bytes &&
                (!named || named->find(entry.path().native()) != std::string::npos)) {
                return true;
            }
        }
    }
    return false;
}

void Judge(
    const Operation& operation, World& world, const Outcome& outcome, const Contents& before,
    const Contents& after, Tally& tally) {
    ++tally.cases;
    const Contents now = Look(operation, world);
    std::string messages = outcome.report.messages;
    const bool hasEnded = outcome.end == faults::DeathStatus;
    EXPECT_TRUE(hasEnded || outcome.end == 0) << "it ended with " << outcome.end;
    if (hasEnded) {
        messages += faults::NextStart(world);
        ++tally.deaths;
    }
    for (std::size_t i = 0; i < now.size(); ++i) {
        if (now[i] == before[i] || now[i] == after[i]) {
            continue;
        }
        if (before[i] && IsKept(world, *before[i], messages)) {
            ++tally.copies;
        } else {
            ++tally.lost;
            ADD_FAILURE() << "lost: file " << i << " holds neither the old nor the new; told: " << messages;
        }
    }
    if (operation.keepsOld && now == after && !IsKept(world, before[0].value_or(""), {})) {
        ++tally.lost;
        ADD_FAILURE() << "lost: no copy of what was replaced";
    }
    if (operation.isUsable && !operation.isUsable(world)) {
        ++tally.lost;
        ADD_FAILURE() << "lost: the files cannot be used together";
    }
    if (hasEnded) {
        return;
    }
    if (outcome.report.isDone) {
        ++tally.done;
        if (now != after && !operation.isSilent) {
            ++tally.wrong;
            ADD_FAILURE() << "done, it says, and is not: " << messages;
        }
        return;
    }
    ++tally.told;
    if (messages.empty()) {
        ++tally.silent;
        ADD_FAILURE() << "failed, and says nothing";
    }
}

class Faults : public testing::TestWithParam<std::size_t> {};

TEST_P(Faults, LoseNothing) {
    const Operation operation = faults::AllOperations()[GetParam()];
    ++operationCount;
    std::string calls;
    Contents before;
    Contents after;
    {
        World world;
        operation.prepare(world);
        before = Look(operation, world);
        const Outcome outcome = RunWith(operation, world, Fault::None, 0);
        ASSERT_EQ(outcome.end, 0);
        ASSERT_TRUE(outcome.report.isDone) << outcome.report.messages;
        calls = outcome.calls;
        after = Look(operation, world);
        ASSERT_NE(before, after);
        ASSERT_GT(calls.size(), 5U);
    }
    std::size_t happened = 0;
    for (std::size_t kind = 0; kind < FaultNames.size(); ++kind) {
        for (std::size_t place = 1; place <= calls.size(); ++place) {
            if (FaultNames[kind].movesOnly && calls[place - 1] != 'm') {
                continue;
            }
            SCOPED_TRACE(
                operation.name + ": call " + std::to_string(place) + " of " + std::to_string(calls.size()) +
                ' ' + FaultNames[kind].text);
            World world;
            operation.prepare(world);
            const Outcome outcome =
                RunWith(operation, world, FaultNames[kind].fault, static_cast<int>(place));
            if (outcome.hasHappened) {
                ++happened;
                Judge(operation, world, outcome, before, after, tallies[kind]);
            }
        }
    }
    // Faults that do not come prove nothing.
    EXPECT_GE(happened, 5 * calls.size());
}

std::string TestName(const testing::TestParamInfo<std::size_t>& parameter) {
    std::string name;
    bool startsWord = true;
    const std::string title = faults::AllOperations()[parameter.param].name;
    for (const char letter : title) {
        const bool isLetter = std::isalpha(static_cast<unsigned char>(letter)) != 0;
        if (isLetter) {
            name += startsWord ? static_cast<char>(std::toupper(static_cast<unsigned char>(letter))) : letter;
        }
        startsWord = !isLetter;
    }
    return name;
}

INSTANTIATE_TEST_SUITE_P(
    All, Faults, testing::Range<std::size_t>(0, faults::AllOperations().size()), TestName);

/// Prints the figures once all is through.
class Figures : public testing::Environment {
public:
    void SetUp() override {
        for (const auto& [name, value] :
             {std::pair("PATH", "/nowhere"), std::pair("XDG_DATA_DIRS", "/nowhere"),
              std::pair("HOME", "/nowhere"), std::pair("XDG_DATA_HOME", "")}) {
            ::setenv(name, value, 1); // NOLINT(concurrency-mt-unsafe)
        }
        if (::access("/dev/shm", W_OK) == 0) {
            ::setenv("TMPDIR", "/dev/shm", 0); // NOLINT(concurrency-mt-unsafe)
        }
    }

    void TearDown() override {
        Tally sum;
        std::printf("\n| a call ... | cases | done all the same | failed, told | ended | incomplete, copy "
                    "named | lost "
                    "| silent | wrong |\n| --- | --- | --- | --- | --- | --- | --- | --- | --- |\n");
        for (std::size_t kind = 0; kind < tallies.size(); ++kind) {
            const Tally& tally = tallies[kind];
            print(FaultNames[kind].text, tally);
            sum.cases += tally.cases;
            sum.done += tally.done;
            sum.told += tally.told;
            sum.deaths += tally.deaths;
            sum.copies += tally.copies;
            sum.lost += tally.lost;
            sum.silent += tally.silent;
            sum.wrong += tally.wrong;
        }
        print(("all, " + std::to_string(operationCount) + " operations").c_str(), sum);
    }

private:
    static void print(const char* title, const Tally& tally) {
        std::printf(
            "| %s | %d | %d | %d | %d | %d | %d | %d | %d |\n", title, tally.cases, tally.done, tally.told,
            tally.deaths, tally.copies, tally.lost, tally.silent, tally.wrong);
    }
};

const testing::Environment* const figures = testing::AddGlobalTestEnvironment(new Figures);

} // namespace
