// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/CharSetWorld.h"
#include "support/FailingFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>

namespace {

using artwork::CharSetFiles;
using artwork::WithSetAdded;
using artwork::WithSetRemoved;
using support::FailingFiles;
using support::MakeSets;
using support::ShownSet;
using support::ShownSets;
using support::SmallArtwork;
using support::SmallGif;
using support::TempProgramDirectory;

CharSetFiles Added(const CharSetFiles& files, const std::string& name, unsigned shade) {
    return WithSetAdded(files, name, "https://example.org/", SmallGif(shade)).value();
}

std::size_t SetCount(const CharSetFiles& files) {
    return files.list.size() / 154;
}

ShownSet Set(const std::string& name, unsigned shade) {
    return {name, SmallArtwork(shade)};
}

} // namespace

TEST(CharSetFiles, ASetIsAddedAtTheEndWithASlotOfItsOwn) {
    const CharSetFiles before = MakeSets(2);
    const CharSetFiles after = Added(before, "New set", 7);
    EXPECT_EQ(
        after.list, before.list + std::string("\2\0", 2) + "New set" + std::string(43, ' ') +
                        "https://example.org/" + std::string(80, ' ') + std::string("\2\0", 2));
    EXPECT_EQ(after.store.size(), 30000U);
    EXPECT_EQ(after.store.substr(0, 20000), before.store);
    EXPECT_EQ(after.store.substr(20000, SmallGif(7).size()), SmallGif(7));
    EXPECT_EQ(after.store.find_first_not_of('\0', 20000 + SmallGif(7).size()), std::string::npos);
}

TEST(CharSetFiles, RemovingTheSetThatWasAddedLastRestoresEveryByte) {
    CharSetFiles files = MakeSets(1);
    std::vector<CharSetFiles> steps{files};
    for (unsigned shade = 10; shade < 15; ++shade) {
        files = Added(files, "Set " + std::to_string(shade), shade);
        steps.push_back(files);
    }
    while (steps.size() > 1) {
        const CharSetFiles removed = WithSetRemoved(steps.back(), SetCount(steps.back()) - 1);
        steps.pop_back();
        EXPECT_EQ(removed, steps.back());
    }
}

TEST(CharSetFiles, AStoreThatEndsWithinASlotIsRestoredToo) {
    CharSetFiles before = MakeSets(2);
    before.store.resize(10000 + SmallGif(1).size());
    EXPECT_EQ(artwork::RoomForImage(before), 9988U);
    const CharSetFiles after = Added(before, "New", 7);
    EXPECT_EQ(after.store.size(), 30000U);
    EXPECT_EQ(after.store.substr(20000, SmallGif(7).size()), SmallGif(7));
    EXPECT_EQ(WithSetRemoved(after, 2), before);

    // The largest image that there is room for.
    const CharSetFiles full = WithSetAdded(before, "Full", "", std::string(9988, 'x')).value();
    EXPECT_EQ(full.store.substr(20000, 9988), std::string(9988, 'x'));
    EXPECT_EQ(WithSetRemoved(full, 2), before);
    EXPECT_EQ(artwork::RoomForImage(MakeSets(2)), 10000U);
}

TEST(CharSetFiles, OnlyPaddingIsCutOffWithASlot) {
    CharSetFiles before = MakeSets(2);
    before.store.resize(19000);
    CharSetFiles after = Added(before, "New", 7);
    // Somebody has written into the padding meanwhile.
    after.store[19500] = 'x';
    const CharSetFiles removed = WithSetRemoved(after, 2);
    EXPECT_EQ(removed.list, before.list);
    EXPECT_EQ(removed.store, after.store.substr(0, 20000));
}

TEST(CharSetFiles, TheSetsAfterARemovedOneMoveUpAndKeepTheirSlots) {
    const TempProgramDirectory directory;
    const CharSetFiles removed = WithSetRemoved(MakeSets(4), 1);
    (void)directory.files.put("vtmtc.dat", removed.list);
    (void)directory.files.put("vtmgrid.dat", removed.store);
    EXPECT_EQ(ShownSets(directory), (std::vector<ShownSet>{Set("A", 0), Set("C", 2), Set("D", 3)}));
    EXPECT_EQ(removed.store, MakeSets(4).store);
    const auto records = artwork::RecordsOf(removed.list);
    EXPECT_EQ(records[1].artworkSlot, 2);
}

TEST(CharSetFiles, SlotsInTheMiddleAreNotUsedAgainButThoseAtTheEndAre) {
    const CharSetFiles withoutB = WithSetRemoved(MakeSets(3), 1);
    EXPECT_EQ(artwork::NextSlot(withoutB.list), 3U);
    const CharSetFiles withoutC = WithSetRemoved(MakeSets(3), 2);
    EXPECT_EQ(artwork::NextSlot(withoutC.list), 2U);
    EXPECT_EQ(withoutC.store.size(), 20000U);
    // C's slot is the last one in use even after it: B's place at the end becomes free together with it.
    EXPECT_EQ(WithSetRemoved(withoutB, 1).store.size(), 10000U);
}

TEST(CharSetFiles, ASlotWithoutARecordIsWrittenOver) {
    CharSetFiles before = MakeSets(2);
    const CharSetFiles crashed{.list = before.list, .store = Added(before, "Lost", 8).store};
    const CharSetFiles after = Added(crashed, "New", 7);
    EXPECT_EQ(after, Added(before, "New", 7));
}

TEST(CharSetFiles, TwoSetsMayShareASlot) {
    CharSetFiles files = MakeSets(2);
    files.list +=
        glyphs::EncodeCharSetRecord({.listIndex = 2, .name = "B again", .webAddress = "", .artworkSlot = 1});
    EXPECT_EQ(WithSetRemoved(files, 2), MakeSets(2));
    EXPECT_EQ(WithSetRemoved(files, 1).store, MakeSets(2).store);
}

TEST(CharSetFiles, ThereAreNoMoreSetsThanTheProgramReads) {
    CharSetFiles files = MakeSets(1);
    constexpr auto Slots = static_cast<std::size_t>(ui::Files::MaxFileSize / 10000);
    files.list += glyphs::EncodeCharSetRecord(
        {.listIndex = 1, .name = "B", .webAddress = "", .artworkSlot = static_cast<std::int16_t>(Slots - 1)});
    files.store.resize(Slots * 10000);
    const auto added = WithSetAdded(files, "New", "", SmallGif(1));
    ASSERT_FALSE(added);
    EXPECT_EQ(added.failure().message, "there is no room for another character set; remove one first");
    files.list.replace(files.list.size() - 2, 2, "\xFF\x7F");
    EXPECT_FALSE(WithSetAdded(files, "New", "", SmallGif(1)));
    EXPECT_EQ(WithSetRemoved(files, 1), MakeSets(1));
}

TEST(CharSetFiles, ADamagedListIsLeftAlone) {
    const TempProgramDirectory directory;
    ui::DiskFiles disk;
    (void)directory.files.put("vtmtc.dat", MakeSets(1).list + "rest");
    (void)directory.files.put("vtmgrid.dat", MakeSets(1).store);
    const auto read = artwork::ReadCharSetFiles(disk, directory);
    ASSERT_FALSE(read);
    EXPECT_EQ(
        read.failure().message, "The character-set list \"" + ui::PathText(directory.files / "vtmtc.dat") +
                                    "\" is damaged: its last record is cut off.");
}

namespace {

/// A change of the files and what lies where before it.
struct Change {
    const char* name;
    bool isInStandIn;                    ///< whether the own folder cannot be written
    CharSetFiles own;                    ///< what lies in the own folder
    std::optional<CharSetFiles> standIn; ///< what lies in the stand-in folder; nothing: no files
    CharSetFiles before;
    CharSetFiles after;
};

void PrintTo(const Change& change, std::ostream* stream) {
    *stream << change.name;
}

void Put(const support::TempFolder& folder, const CharSetFiles& files) {
    (void)folder.put("vtmtc.dat", files.list);
    (void)folder.put("vtmgrid.dat", files.store);
}

CharSetFiles Seen(const ui::ProgramDirectory& directory) {
    const ui::DiskFiles disk;
    const auto list = disk.read(directory.toRead("vtmtc.dat"));
    const auto store = disk.read(directory.toRead("vtmgrid.dat"));
    return {list ? list.value() : "missing", store ? store.value() : "missing"};
}

std::vector<ShownSet> SetsOf(const CharSetFiles& files) {
    const TempProgramDirectory directory;
    Put(directory.files, files);
    return ShownSets(directory);
}

/// The folders before a change.
class Folders {
public:
    explicit Folders(const Change& change) {
        Put(directory.files, change.own);
        if (change.standIn) {
            Put(directory.standIn, *change.standIn);
        }
        directory.isWritable = !change.isInStandIn;
    }

    /// Whether anything else lies there than the files themselves, and those that begin with `known`.
    [[nodiscard]] bool hasLeftover(const std::string& known = "vtmtc.dat") const {
        for (const auto* folder : {&directory.files, &directory.standIn}) {
            for (const auto& entry : std::filesystem::directory_iterator(folder->path())) {
                const std::string name = ui::PathText(entry.path().filename());
                if (name != "vtmtc.dat" && name != "vtmgrid.dat" && !name.starts_with(known)) {
                    return true;
                }
            }
        }
        return false;
    }

    TempProgramDirectory directory;
    ui::DiskFiles disk;
    FailingFiles files{disk};
};

ui::Status Make(const Change& change, Folders& folders) {
    return artwork::WriteCharSetFiles(folders.files, folders.directory, change.before, change.after);
}

/// The steps that the change takes when nothing fails, and their kinds.
std::vector<FailingFiles::Step> StepsOf(const Change& change) {
    Folders folders(change);
    EXPECT_TRUE(Make(change, folders));
    const std::map<std::string, FailingFiles::Step> kinds{
        {"look", FailingFiles::Step::Look},     {"read", FailingFiles::Step::Read},
        {"create", FailingFiles::Step::Create}, {"write", FailingFiles::Step::Write},
        {"flush", FailingFiles::Step::Flush},   {"close", FailingFiles::Step::Close},
        {"remove", FailingFiles::Step::Remove}, {"rename", FailingFiles::Step::Rename},
        {"folder", FailingFiles::Step::Folder}, {"lock", FailingFiles::Step::Lock}};
    std::vector<FailingFiles::Step> steps;
    for (const std::string& step : folders.files.steps()) {
        steps.push_back(kinds.at(step.substr(0, step.find(' '))));
    }
    return steps;
}

/// The place (1-based) among its kind of a step (0-based).
int PlaceAmongItsKind(
    const std::vector<FailingFiles::Step>& steps, std::size_t step, FailingFiles::Step kind) {
    return 1 + static_cast<int>(
                   std::count(steps.begin(), steps.begin() + static_cast<std::ptrdiff_t>(step), kind));
}

std::vector<Change> Changes() {
    const CharSetFiles two = MakeSets(2);
    CharSetFiles shortStore = two;
    shortStore.store.resize(15000);
    const CharSetFiles three = Added(two, "New", 7);
    const CharSetFiles four = Added(three, "Newer", 8);
    return {
        {"AddASet", false, two, {}, two, three},
        {"AddASetToAShortStore", false, shortStore, {}, shortStore, Added(shortStore, "New", 7)},
        {"RemoveTheLastSet", false, three, {}, three, two},
        {"RemoveASetInTheMiddle", false, three, {}, three, WithSetRemoved(three, 0)},
        {"AddTheFirstSetOfAUser", true, two, {}, two, three},
        {"AddTheSecondSetOfAUser", true, two, three, three, four},
        {"RemoveTheSecondSetOfAUser", true, two, four, four, three},
        {"RemoveTheOnlySetOfAUser", true, two, three, three, two},
        {"RemoveASetOfTheProgramForAUser", true, two, {}, two, WithSetRemoved(two, 0)},
    };
}

class CharSetChange : public ::testing::TestWithParam<Change> {};

INSTANTIATE_TEST_SUITE_P(All, CharSetChange, ::testing::ValuesIn(Changes()), [](const auto& test) {
    return std::string(test.param.name);
});

} // namespace

TEST_P(CharSetChange, IsMade) {
    Folders folders(GetParam());
    ASSERT_TRUE(Make(GetParam(), folders));
    EXPECT_EQ(Seen(folders.directory), GetParam().after);
    EXPECT_FALSE(folders.hasLeftover());
    if (GetParam().isInStandIn) {
        EXPECT_EQ(folders.directory.files.content("vtmtc.dat"), GetParam().own.list);
        EXPECT_EQ(folders.directory.files.content("vtmgrid.dat"), GetParam().own.store);
    }
}

TEST_P(CharSetChange, LeavesEveryByteAsItWasWhenAnyOneStepFails) {
    const Change& change = GetParam();
    const auto steps = StepsOf(change);
    const auto firstWrite = std::ranges::find(steps, FailingFiles::Step::Look) - steps.begin();
    for (std::size_t step = 0; step < steps.size(); ++step) {
        SCOPED_TRACE(step);
        Folders folders(change);
        folders.files.failOnce(steps[step], PlaceAmongItsKind(steps, step, steps[step]));
        const ui::Status status = Make(change, folders);
        if (steps[step] == FailingFiles::Step::Read && static_cast<std::ptrdiff_t>(step) < firstWrite) {
            // What the program's own folder holds is of no account then.
            EXPECT_TRUE(status);
            EXPECT_EQ(Seen(folders.directory), change.after);
            continue;
        }
        EXPECT_FALSE(folders.hasLeftover());
        if (steps[step] == FailingFiles::Step::Create || steps[step] == FailingFiles::Step::Rename) {
            // A file that is there can still be written over.
            EXPECT_EQ(Seen(folders.directory), status ? change.after : change.before);
            continue;
        }
        EXPECT_FALSE(status);
        EXPECT_EQ(Seen(folders.directory), change.before);
        if (!change.standIn) {
            EXPECT_FALSE(folders.directory.standIn.has("vtmtc.dat"));
            EXPECT_FALSE(folders.directory.standIn.has("vtmgrid.dat"));
        }
    }
}

TEST_P(CharSetChange, LeavesUsableSetsWhenItIsCutShortAnywhereAndCanBeMadeThen) {
    const Change& change = GetParam();
    const auto steps = StepsOf(change);
    const auto setsBefore = SetsOf(change.before);
    const auto setsAfter = SetsOf(change.after);
    for (std::size_t step = 0; step < steps.size(); ++step) {
        SCOPED_TRACE(step);
        Folders folders(change);
        for (const auto kind :
             {FailingFiles::Step::Look, FailingFiles::Step::Read, FailingFiles::Step::Open,
              FailingFiles::Step::Create, FailingFiles::Step::Write, FailingFiles::Step::Resize,
              FailingFiles::Step::Flush, FailingFiles::Step::Close, FailingFiles::Step::Remove,
              FailingFiles::Step::Rename, FailingFiles::Step::Folder, FailingFiles::Step::Lock}) {
            folders.files.failFrom(kind, PlaceAmongItsKind(steps, step, kind));
        }
        EXPECT_FALSE(Make(change, folders));
        const auto sets = ShownSets(folders.directory);
        EXPECT_TRUE(sets == setsBefore || sets == setsAfter);

        folders.files.failNothing();
        const auto now = artwork::ReadCharSetFiles(folders.files, folders.directory);
        ASSERT_TRUE(now) << now.failure().message;
        ASSERT_TRUE(artwork::WriteCharSetFiles(folders.files, folders.directory, now.value(), change.after));
        EXPECT_EQ(Seen(folders.directory), change.after);
        EXPECT_FALSE(folders.hasLeftover(".vtm-")) << "only what never took its place";
    }
}

TEST_P(CharSetChange, LeavesEveryByteAsItWasWhenTheDiskIsFull) {
    const Change& change = GetParam();
    for (const std::size_t room : {0U, 1U, 100U, 9999U, 20100U, 30100U}) {
        SCOPED_TRACE(room);
        Folders folders(change);
        folders.files.failWritesAfter(room);
        const ui::Status status = Make(change, folders);
        EXPECT_EQ(Seen(folders.directory), status ? change.after : change.before);
        EXPECT_FALSE(folders.hasLeftover());
    }
}

TEST(CharSetFiles, TheStoreGrowsBeforeTheListNamesTheSlot) {
    const CharSetFiles two = MakeSets(2);
    const Change change{"", false, two, {}, two, Added(two, "New", 7)};
    Folders folders(change);
    ASSERT_TRUE(Make(change, folders));
    const std::string folder = "folder " + ui::PathText(folders.directory.folder().filename());
    EXPECT_EQ(
        folders.files.steps(),
        (std::vector<std::string>{
            "look vtmgrid.dat", "create vtmgrid.dat", "write vtmgrid.dat", "flush vtmgrid.dat",
            "read vtmgrid.dat", "close vtmgrid.dat", "look vtmtc.dat", "create vtmtc.dat", "write vtmtc.dat",
            "flush vtmtc.dat", "read vtmtc.dat", "close vtmtc.dat", "rename vtmgrid.dat vtmgrid.dat", folder,
            "rename vtmtc.dat vtmtc.dat", folder}));
}

TEST(CharSetFiles, TheListForgetsASetBeforeItsSlotIsCutOff) {
    const CharSetFiles three = MakeSets(3);
    const Change change{"", false, three, {}, three, MakeSets(2)};
    Folders folders(change);
    ASSERT_TRUE(Make(change, folders));
    EXPECT_EQ(folders.files.steps().at(12), "rename vtmtc.dat vtmtc.dat");
    EXPECT_EQ(folders.files.steps().at(14), "rename vtmgrid.dat vtmgrid.dat");
}

TEST(CharSetFiles, FilesOfTheUserWithSuchNamesAreLeftAlone) {
    const CharSetFiles two = MakeSets(2);
    const Change change{"", false, two, {}, two, Added(two, "New", 7)};
    Folders folders(change);
    (void)folders.directory.files.put("vtmgrid.dat.new", "somebody's store");
    (void)folders.directory.files.put("vtmtc.dat.new", "somebody's list");
    ASSERT_TRUE(Make(change, folders));
    EXPECT_EQ(Seen(folders.directory), change.after);
    EXPECT_EQ(folders.directory.files.content("vtmgrid.dat.new"), "somebody's store");
    EXPECT_EQ(folders.directory.files.content("vtmtc.dat.new"), "somebody's list");
}

TEST(CharSetFiles, AUserWhoHasNoSetsOfTheirOwnSeesThoseOfTheProgramAgain) {
    const CharSetFiles two = MakeSets(2);
    const CharSetFiles three = Added(two, "New", 7);
    const Change change{"", true, two, three, three, two};
    Folders folders(change);
    ASSERT_TRUE(Make(change, folders));
    EXPECT_FALSE(folders.directory.standIn.has("vtmtc.dat"));
    EXPECT_FALSE(folders.directory.standIn.has("vtmgrid.dat"));
    EXPECT_EQ(Seen(folders.directory), two);
}
