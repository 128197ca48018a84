// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/RecoveryFile.h"
#include "shell/WorkStates.h"
#include "support/FailingFiles.h"
#include "support/InChild.h"
#include "support/TempProgramDirectory.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace {

using editing::Page;
using shell::DecodeWorkState;
using shell::EncodeWorkState;
using shell::RecoveryFile;
using shell::WorkState;
using support::FailingFiles;

/// Where the number of names, the numbers of the cursors and the page stand, from the end of the file, in
/// bytes.
constexpr std::size_t TimeSize = 8;
constexpr std::size_t PageAt = TimeSize + 2;
constexpr std::size_t CurrentNameAt = PageAt + 6;
constexpr std::size_t NameCountAt = PageAt + 12;

class Recovering : public testing::Test {
protected:
    /// How many files of work there are.
    [[nodiscard]] std::ptrdiff_t filesOfWork() const {
        const auto names = disk.list(folder());
        return std::count_if(
            names.begin(), names.end(), [](const std::string& name) { return name.ends_with(".work"); });
    }

    [[nodiscard]] ui::Path folder() const { return home / "state/vtm"; }

    /// Leaves a state as a program that ends without any warning does.
    void leave(const WorkState& state) {
        RecoveryFile file(disk, folder());
        EXPECT_TRUE(file.keep(state).ok());
    }

    support::TempFolder home;
    ui::DiskFiles disk;
    FailingFiles files{disk};
};

ui::Bytes WithNumber(ui::Bytes bytes, std::size_t fromEnd, unsigned number) {
    bytes[bytes.size() - fromEnd] = static_cast<char>(number & 0xFFU);
    bytes[bytes.size() - fromEnd + 1] = static_cast<char>(number >> 8U);
    return bytes;
}

} // namespace

TEST(WorkState, ComesBackToTheLastNumber) {
    for (unsigned seed = 0; seed < 20; ++seed) {
        const WorkState state = RandomWork(seed);
        EXPECT_EQ(DecodeWorkState(EncodeWorkState(state)), state);
    }
}

TEST(WorkState, IsRefusedUnlessEveryNumberIsWithinItsBounds) {
    WorkState state = RandomWork(1);
    state.documents.animation.nameCount = 20;
    state.documents.animation.currentName = 20;
    const ui::Bytes good = EncodeWorkState(state);
    ASSERT_TRUE(DecodeWorkState(good));
    EXPECT_FALSE(DecodeWorkState(""));
    EXPECT_FALSE(DecodeWorkState(good.substr(1)));
    EXPECT_FALSE(DecodeWorkState(good.substr(0, good.size() - 1)));
    EXPECT_FALSE(DecodeWorkState(good + "x"));
    EXPECT_TRUE(DecodeWorkState(WithNumber(good, PageAt, 2)));
    EXPECT_FALSE(DecodeWorkState(WithNumber(good, PageAt, 3)));
    EXPECT_TRUE(DecodeWorkState(WithNumber(good, CurrentNameAt, 1)));
    EXPECT_FALSE(DecodeWorkState(WithNumber(good, CurrentNameAt, 0)));
    EXPECT_FALSE(DecodeWorkState(WithNumber(good, CurrentNameAt, 21)));
    EXPECT_TRUE(DecodeWorkState(WithNumber(good, NameCountAt, 90)));
    EXPECT_FALSE(DecodeWorkState(WithNumber(good, NameCountAt, 91)));
    EXPECT_FALSE(DecodeWorkState(WithNumber(good, NameCountAt, 14)));
    ui::Bytes glyph = good;
    const std::size_t firstGlyph = good.find('\n') + 1;
    glyph[firstGlyph + 1] = 1;
    EXPECT_FALSE(DecodeWorkState(glyph)) << "there is no glyph 256";
}

TEST_F(Recovering, NothingIsKeptUntilThereIsWork) {
    WorkState state = RandomWork(1);
    {
        RecoveryFile file(files, folder());
        file.start(state);
        state.documents.name.cursorPos = state.documents.name.cursorPos % 15 + 1;
        state.page = state.page == Page::Name ? Page::Messages : Page::Name;
        EXPECT_TRUE(file.keep(state).ok());
        file.end();
    }
    EXPECT_TRUE(files.steps().empty());
    EXPECT_FALSE(home.has("state"));
}

TEST_F(Recovering, WorkOutlivesAProgramThatIsKilled) {
    const WorkState state = RandomWork(2);
    const int end = support::InChild([&]() -> int {
        RecoveryFile file(disk, folder());
        (void)file.keep(state);
        while (filesOfWork() == 0) {
        }
        support::EndByForce();
    });
    ASSERT_EQ(end, support::EndedByForce);
    RecoveryFile file(disk, folder());
    const auto left = file.claimLeftOver();
    ASSERT_TRUE(left);
    EXPECT_EQ(*left, state);
}

TEST_F(Recovering, WorkOfARunningProgramIsNotLeftOver) {
    RecoveryFile other(disk, folder());
    EXPECT_TRUE(other.keep(RandomWork(1)).ok());
    while (filesOfWork() == 0) {
    }
    RecoveryFile file(disk, folder());
    EXPECT_FALSE(file.claimLeftOver());
    EXPECT_TRUE(file.keep(RandomWork(2)).ok());
    file.end();
    EXPECT_EQ(filesOfWork(), 1) << "each has a file of its own";
    other.end();
    EXPECT_TRUE(disk.list(folder()).empty());
}

TEST_F(Recovering, TheNewestIsClaimedAndTheOthersWait) {
    WorkState older = RandomWork(1);
    WorkState newer = RandomWork(2);
    older.time = 1000;
    newer.time = 2000;
    leave(newer);
    leave(older);
    RecoveryFile file(disk, folder());
    ASSERT_EQ(file.claimLeftOver()->time, 2000);
    {
        RecoveryFile second(disk, folder());
        ASSERT_EQ(second.claimLeftOver()->time, 1000)
            << "what another program has claimed is not offered again";
    }
    file.discardLeftOver();
    EXPECT_EQ(filesOfWork(), 1);
    EXPECT_EQ(RecoveryFile(disk, folder()).claimLeftOver()->time, 1000);
}

TEST_F(Recovering, WhatIsClaimedGoesWhenTheProgramEnds) {
    leave(RandomWork(1));
    RecoveryFile file(disk, folder());
    ASSERT_TRUE(file.claimLeftOver());
    file.end();
    EXPECT_TRUE(disk.list(folder()).empty());
}

TEST_F(Recovering, RestoredWorkIsKeptInTheFileThatItWasIn) {
    leave(RandomWork(1));
    {
        RecoveryFile file(disk, folder());
        EXPECT_TRUE(file.keep(RandomWork(2)).ok());
        const auto left = file.claimLeftOver();
        ASSERT_TRUE(left);
        file.adoptLeftOver(*left);
        EXPECT_EQ(filesOfWork(), 1);
        EXPECT_TRUE(file.keep(*left).ok());
        EXPECT_TRUE(file.keep(RandomWork(3)).ok());
    }
    EXPECT_EQ(filesOfWork(), 1);
    RecoveryFile file(disk, folder());
    EXPECT_EQ(file.claimLeftOver(), RandomWork(3));
}

TEST_F(Recovering, AFileThatCannotBeUnderstoodIsNeitherOfferedNorRemoved) {
    leave(RandomWork(1));
    home.put("state/vtm/odd.work", "VTM work 1\nshort");
    home.put("state/vtm/odd.lock", "");
    RecoveryFile file(disk, folder());
    EXPECT_EQ(file.claimLeftOver(), RandomWork(1));
    file.end();
    EXPECT_TRUE(home.has("state/vtm/odd.work"));
}

TEST_F(Recovering, AFailureIsToldOnceAndTheNextChangeIsKept) {
    files.failOnce(FailingFiles::Step::Write);
    RecoveryFile file(files, folder());
    EXPECT_TRUE(file.keep(RandomWork(1)).ok());
    ui::Status told;
    while (told.ok()) {
        told = file.keep(RandomWork(1));
    }
    EXPECT_NE(told.failure().message.find("state/vtm"), std::string::npos) << told.failure().message;
    EXPECT_TRUE(file.keep(RandomWork(2)).ok());
    while (filesOfWork() == 0) {
    }
    file.end();
    EXPECT_TRUE(disk.list(folder()).empty());
}

TEST_F(Recovering, WithoutAFolderNothingIsKept) {
    RecoveryFile file(files, ui::Path());
    EXPECT_TRUE(file.keep(RandomWork(1)).ok());
    EXPECT_FALSE(file.claimLeftOver());
    file.end();
    EXPECT_TRUE(files.steps().empty());
}
