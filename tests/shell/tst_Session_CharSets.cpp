// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "SessionRun.h"

#include "shell/RemovedCharSet.h"

namespace {

using editing::Page;

/// A session that follows the removal of character sets.
class SessionSets : public SessionRun {
protected:
    /// Starts with a set of the program (by its place) in use, as it is stored.
    void startWith(int place) {
        fake.settings.write("options", "grid", std::to_string(place));
        startOn(Page::Name);
    }

    void follow(int removed) { shell::FollowRemovedCharSet(session, fake.platform, removed); }

    [[nodiscard]] int inUse() { return session.workspace().settings.charSet; }

    [[nodiscard]] std::string stored() { return fake.settings.sections["options"]["grid"]; }

    [[nodiscard]] ui::Picture artworkOf(int place) {
        return glyphs::LoadCharSet(fake.files, fake.directory, place + 1).value().artwork;
    }
};

} // namespace

TEST_F(SessionSets, AnotherSetThatGoesLeavesTheOneInUse) {
    startWith(2);
    const ui::Picture before = session.workspace().atlas.artwork;
    follow(3);
    EXPECT_EQ(inUse(), 2);
    EXPECT_EQ(stored(), "2");
    follow(0);
    EXPECT_EQ(inUse(), 1) << "it has moved up";
    EXPECT_EQ(session.workspace().charSet.listIndex, 1);
    EXPECT_EQ(stored(), "1");
    EXPECT_EQ(session.workspace().atlas.artwork, before);
    EXPECT_TRUE(view.shown.empty());
    EXPECT_EQ(played(104), 0);
}

TEST_F(SessionSets, TheFirstSetTakesThePlaceOfTheOneInUse) {
    startWith(2);
    follow(2);
    EXPECT_EQ(inUse(), 0);
    EXPECT_EQ(stored(), "0");
    EXPECT_EQ(session.workspace().atlas.artwork, artworkOf(0));
    EXPECT_TRUE(isPainted());
    EXPECT_EQ(played(104), 3) << "every page is painted anew";
}

TEST_F(SessionSets, TheEndKeepsThePlaceThatTheSetHasMovedTo) {
    startWith(3);
    follow(1);
    ASSERT_TRUE(session.end());
    EXPECT_EQ(stored(), "2");
}

TEST_F(SessionSets, AStoreThatCannotBeSavedIsTold) {
    startWith(2);
    fake.settings.saveFailure = "The disk is full.";
    fake.dialogs.expectWarning("The character set was removed, but which one is in use could not be "
                               "stored.\n\nThe disk is full.");
    follow(1);
    EXPECT_EQ(inUse(), 1);
}

TEST_F(SessionSets, WhereNoOtherCanBeReadTheGlyphsStay) {
    startWith(2);
    const ui::Picture before = session.workspace().atlas.artwork;
    ASSERT_TRUE(fake.disk.remove(fake.directory.files / "vtmgrid.dat"));
    const auto failure = glyphs::LoadCharSet(fake.files, fake.directory, 1);
    ASSERT_FALSE(failure);
    fake.dialogs.expectWarning(
        "The character set \"Classic Stone\" cannot be read, so \"High Legibility\" stays in use.\n\n" +
        failure.failure().message);
    follow(2);
    EXPECT_EQ(inUse(), 0);
    EXPECT_EQ(session.workspace().atlas.artwork, before);
}
