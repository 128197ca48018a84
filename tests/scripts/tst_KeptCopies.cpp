// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/ConfigRewrite.h"
#include "scripts/Names.h"
#include "scripts/mdlBind.h"
#include "scripts/mdlConfig.h"
#include "support/FakePlatform.h"
#include "support/InChild.h"
#include "ui/CopyNotes.h"

#include <gtest/gtest.h>

namespace {

const std::string OldConfig = "name \"old\"\r\nbind a b\r\n";
const std::string NewConfig = "bind b \"" + std::string(300, 'x') + "\"\r\n" + OldConfig;

/// A configuration file that is written over, and what is left of it when the program dies meanwhile.
class KeptCopies : public testing::Test {
protected:
    support::FakePlatform fake;
    support::TempFolder game;
    ui::Path path = game.put("config.cfg", OldConfig);
    ui::Path copy = fake.directory.folder() / "tempfile.cfg";

    KeptCopies() {
        fake.disk = ui::DiskFiles(fake.directory.folder());
        std::filesystem::create_hard_link(path, game / "other.cfg");
    }

    int rewriteDyingAt(int number) {
        return support::InChild([&] {
            fake.files.dieAt(number);
            return scripts::RewriteConfig(fake.files, fake.directory, path, OldConfig, NewConfig) ? 0 : 1;
        });
    }

    /// As before the rewrite.
    void reset() {
        game.put("config.cfg", OldConfig);
        for (const std::string& name : fake.disk.list(fake.directory.folder())) {
            std::filesystem::remove(fake.directory.folder() / name);
        }
    }

    std::string content() { return game.content("config.cfg"); }

    bool isWhole() { return content() == OldConfig || content() == NewConfig; }

    /// Dies where the file is left incomplete.
    void dieInTheMiddle() {
        for (int number = 1 + support::ChildrenBefore(); isWhole(); ++number) {
            reset();
            ASSERT_EQ(rewriteDyingAt(number), support::FailingFiles::Death);
        }
    }

    [[nodiscard]] std::string refusal(const ui::Path& keptAt) const {
        return "\"" + ui::PathText(path) + "\" may be incomplete: writing it did not end well.\n" +
               "What it held before is kept whole as \"" + ui::PathText(keptAt) +
               "\". Please put that back, or delete it, and try again.";
    }
};

TEST_F(KeptCopies, AreNamedAtTheNextStartWheneverTheProgramDied) {
    int incomplete = 0;
    for (int number = 1 + support::ChildrenBefore();; ++number) {
        SCOPED_TRACE(number);
        reset();
        const int end = rewriteDyingAt(number);
        incomplete += isWhole() ? 0 : 1;
        // A file that is whole has to be told of as well, unless the program knew that before it died.
        if (!isWhole() || (content() == NewConfig && ui::KeptCopyOf(fake.disk, path))) {
            EXPECT_EQ(fake.directory.files.content("tempfile.cfg"), OldConfig);
            fake.dialogs.expectWarning(
                "\"" + ui::PathText(path) + "\" may be incomplete: VTM was ended while it wrote the file.\n" +
                "What it held before is kept whole as \"" + ui::PathText(copy) + "\".");
        }
        ui::TellOfKeptCopies(fake.dialogs, fake.disk);
        fake.dialogs.expectAllAsked();
        ui::TellOfKeptCopies(fake.dialogs, fake.disk);
        if (end == 0) {
            break;
        }
    }
    EXPECT_GE(incomplete, 1);
}

TEST_F(KeptCopies, KeepTheirFileFromBeingTakenForOneWithoutAName) {
    dieInTheMiddle();
    const std::string half = content();
    ASSERT_EQ(scripts::FindNameLine(half)->number, 0);
    fake.dialogs.expectWarning(refusal(copy));
    EXPECT_FALSE(
        scripts::SaveNameToConfig(fake.dialogs, fake.files, fake.directory, path, support::Name("Player"))
            .written);
    fake.dialogs.expectWarning(refusal(copy));
    EXPECT_FALSE(scripts::BindKey(fake.dialogs, fake.files, fake.directory, {path, "script.scr", 0}).written);
    fake.dialogs.expectAllAsked();
    EXPECT_EQ(content(), half);
    // The user puts the copy back.
    game.put("config.cfg", fake.directory.files.content("tempfile.cfg"));
    std::filesystem::remove(copy);
    fake.dialogs.expectInform(
        "Done! The config file, " + ui::PathText(path) + ", was updated with your new name.");
    EXPECT_TRUE(
        scripts::SaveNameToConfig(fake.dialogs, fake.files, fake.directory, path, support::Name("Player"))
            .written);
}

TEST_F(KeptCopies, AreStillKnownAfterTheyHaveMadeRoomForAnother) {
    dieInTheMiddle();
    const ui::Path other = game.put("autoexec.cfg", "name \"old\"\r\n");
    ASSERT_TRUE(
        scripts::RewriteConfig(fake.files, fake.directory, other, "name \"old\"\r\n", "name \"new\"\r\n"));
    const ui::Path kept = fake.directory.folder() / "tempfile-1.cfg";
    EXPECT_EQ(ui::KeptCopyOf(fake.disk, path), kept);
    fake.dialogs.expectWarning(
        "\"" + ui::PathText(path) + "\" may be incomplete: VTM was ended while it wrote the file.\n" +
        "What it held before is kept whole as \"" + ui::PathText(kept) + "\".");
    ui::TellOfKeptCopies(fake.dialogs, fake.disk);
    fake.dialogs.expectAllAsked();
    EXPECT_EQ(ui::KeptCopyOf(fake.disk, other), std::nullopt);
}

TEST_F(KeptCopies, ThatAFailureHasNamedAreNotToldOfAgain) {
    fake.files.failFrom(support::FailingFiles::Step::Resize, 2);
    const auto done = scripts::RewriteConfig(fake.files, fake.directory, path, OldConfig, NewConfig);
    ASSERT_FALSE(done);
    EXPECT_NE(done.failure().message.find(ui::PathText(copy)), std::string::npos);
    EXPECT_EQ(ui::KeptCopyOf(fake.disk, path), copy);
    ui::TellOfKeptCopies(fake.dialogs, fake.disk);
}

} // namespace
