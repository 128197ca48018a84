// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/StartCharSet.h"

#include "support/FakePlatform.h"

#include <gtest/gtest.h>

namespace {

/// A program directory with three character sets, and the starts over it.
class StartSets : public testing::Test {
protected:
    StartSets() {
        for (const char* name : {"vtmtc.dat", "vtmgrid.dat"}) {
            fake.directory.files.put(name, fake.disk.read(ui::Path(VTM_PROGRAM_DIR) / name).value());
        }
    }

    /// Damages the picture of a set (0-based).
    void damage(std::size_t set) const {
        std::string store = fake.directory.files.content("vtmgrid.dat");
        store.replace(set * glyphs::ArtworkSlotSize, 6, "damage");
        fake.directory.files.put("vtmgrid.dat", store);
    }

    void repair() const {
        fake.directory.files.put(
            "vtmgrid.dat", fake.disk.read(ui::Path(VTM_PROGRAM_DIR) / "vtmgrid.dat").value());
    }

    ui::Result<shell::StartCharSet> start(int place) {
        return shell::LoadStartCharSet(fake.files, fake.directory, fake.settings, place);
    }

    /// Why a set (0-based) cannot be read.
    std::string reason(int place) {
        return glyphs::LoadCharSet(fake.files, fake.directory, place + 1).failure().message;
    }

    void expectUsed(int place, const std::string& notice) {
        const auto started = start(place);
        ASSERT_TRUE(started) << started.failure().message;
        EXPECT_EQ(started.value().notice, notice);
    }

    support::FakePlatform fake;
};

} // namespace

TEST_F(StartSets, TakeTheSetThatIsAskedFor) {
    const auto started = start(2);
    ASSERT_TRUE(started);
    EXPECT_EQ(started.value().place, 2);
    EXPECT_EQ(started.value().set.record, glyphs::ReadCharSetRecord(fake.files, fake.directory, 3).value());
    EXPECT_EQ(started.value().notice, "");
    EXPECT_EQ(fake.settings.saves, 0);
}

TEST_F(StartSets, TakeTheFirstForAPlaceOutsideTheListAndKeepThePlace) {
    const auto started = start(700);
    ASSERT_TRUE(started);
    EXPECT_EQ(started.value().place, 700);
    EXPECT_EQ(started.value().set.record.listIndex, 0);
}

TEST_F(StartSets, FailOnceWithASetThatCannotBeRead) {
    damage(2);
    const auto first = start(2);
    ASSERT_FALSE(first);
    EXPECT_EQ(
        first.failure().message,
        "The character set \"High Legibility\" cannot be read, so the program ends.\n"
        "The next start takes the first one that can be read, \"Classic Stone\".\n\n" +
            reason(2));
    EXPECT_EQ(fake.settings.saves, 1) << "the next start must know";
    for (int next = 0; next < 3; ++next) {
        const auto started = start(2);
        ASSERT_TRUE(started);
        EXPECT_EQ(started.value().place, 0);
        EXPECT_EQ(started.value().set.record.listIndex, 0);
        EXPECT_EQ(
            started.value().notice,
            "The character set \"High Legibility\" cannot be read; \"Classic Stone\" is shown instead.");
    }
    EXPECT_EQ(fake.settings.saves, 1);
}

TEST_F(StartSets, TakeTheFirstThatCanBeRead) {
    damage(0);
    damage(1);
    EXPECT_FALSE(start(0));
    const auto started = start(0);
    ASSERT_TRUE(started);
    EXPECT_EQ(started.value().place, 2);
    EXPECT_EQ(
        started.value().notice,
        "The character set \"Classic Stone\" cannot be read; \"High Legibility\" is shown instead.");
}

TEST_F(StartSets, TellOfEachSetByItself) {
    damage(1);
    damage(2);
    EXPECT_FALSE(start(1));
    EXPECT_TRUE(start(1));
    EXPECT_FALSE(start(2));
    EXPECT_TRUE(start(2));
}

TEST_F(StartSets, TellAgainWhenTheSetWasReadInBetween) {
    damage(1);
    EXPECT_FALSE(start(1));
    repair();
    expectUsed(1, "");
    EXPECT_EQ(fake.settings.saves, 2);
    expectUsed(1, "");
    EXPECT_EQ(fake.settings.saves, 2);
    damage(1);
    EXPECT_FALSE(start(1));
}

TEST_F(StartSets, FailEveryTimeWhenNoneCanBeRead) {
    fake.directory.files.put("vtmgrid.dat", "");
    for (int attempt = 0; attempt < 3; ++attempt) {
        const auto started = start(1);
        ASSERT_FALSE(started);
        EXPECT_EQ(
            started.failure().message,
            "VTM cannot start, because no character set can be read.\n\n" + reason(1))
            << "no promise";
    }
    EXPECT_EQ(fake.settings.saves, 0);
}

TEST_F(StartSets, FailWithoutTheList) {
    fake.directory.files.put("vtmtc.dat", "");
    const auto started = start(0);
    ASSERT_FALSE(started);
    EXPECT_EQ(
        started.failure().message,
        "VTM cannot start, because no character set can be read.\n\nThe character-set list \"" +
            ui::PathText(fake.directory.files / "vtmtc.dat") + "\" holds no record.");
}

TEST_F(StartSets, PromiseNothingThatCannotBeKept) {
    damage(1);
    fake.settings.saveFailure = "no room";
    const auto started = start(1);
    ASSERT_FALSE(started);
    EXPECT_EQ(
        started.failure().message,
        "The character set \"Quake2 Steel\" cannot be read, so the program ends.\n\n" + reason(1));
}
