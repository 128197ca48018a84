// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/CopyNotes.h"

#include "support/FailingFiles.h"
#include "support/FakeDialogs.h"
#include "support/InChild.h"
#include "support/TempProgramDirectory.h"
#include "ui/FileWriter.h"

#include <gtest/gtest.h>
#include <string>

namespace {

using support::FailingFiles;
using support::FakeDialogs;
using support::TempFolder;

const std::string OldText = "what the file held before\r\n";
const std::string NewText = "other and shorter\r\n";

/// A file that is written over, and where notes go.
class CopyNotes : public testing::Test {
protected:
    TempFolder folder;
    TempFolder home;
    ui::DiskFiles files{home / "spare"};
    ui::Path path = folder / "a.vtn";
    ui::Path copy = folder / "copy.vtn";

    CopyNotes() {
        folder.put("a.vtn", OldText);
        std::filesystem::create_hard_link(path, folder / "b.vtn");
    }

    [[nodiscard]] std::string told() const {
        return "\"" + ui::PathText(path) + "\" may be incomplete: VTM was ended while it wrote the file.\n" +
               "What it held before is kept whole as \"" + ui::PathText(copy) + "\".";
    }

    /// What a program leaves that is ended right after it has made a note.
    void leaveNote() {
        folder.put("copy.vtn", OldText);
        (void)ui::NoteCopy(files, path, copy);
        folder.put("a.vtn", "half");
    }

    void expectNothingTold() {
        FakeDialogs dialogs;
        ui::TellOfKeptCopies(dialogs, files);
    }
};

TEST_F(CopyNotes, AreToldOfOnceAndRemembered) {
    leaveNote();
    EXPECT_EQ(ui::KeptCopyOf(files, path), copy);
    FakeDialogs dialogs;
    dialogs.expectWarning(told());
    ui::TellOfKeptCopies(dialogs, files);
    dialogs.expectAllAsked();
    expectNothingTold();
    EXPECT_EQ(ui::KeptCopyOf(files, path), copy);
    EXPECT_EQ(ui::KeptCopyOf(files, folder / "b.vtn"), copy) << "another name of the file";
    EXPECT_EQ(ui::KeptCopyOf(files, copy), std::nullopt);
    EXPECT_EQ(folder.content("copy.vtn"), OldText);
}

TEST_F(CopyNotes, EndWithTheirCopy) {
    leaveNote();
    std::filesystem::remove(copy);
    EXPECT_EQ(ui::KeptCopyOf(files, path), std::nullopt);
    expectNothingTold();
    EXPECT_TRUE(files.list(home / "spare").empty());
}

TEST_F(CopyNotes, EndWhenTheFileIsWhatItWas) {
    leaveNote();
    folder.put("a.vtn", OldText);
    expectNothingTold();
    EXPECT_TRUE(files.list(home / "spare").empty());
    EXPECT_TRUE(folder.has("copy.vtn"));
}

TEST_F(CopyNotes, EndWhenTheFileIsWhole) {
    leaveNote();
    ui::ForgetCopy(files, copy);
    EXPECT_EQ(ui::KeptCopyOf(files, path), std::nullopt);
    expectNothingTold();
}

TEST_F(CopyNotes, FollowTheirCopyToAnotherName) {
    leaveNote();
    const ui::Path moved = folder / "moved.vtn";
    std::filesystem::rename(copy, moved);
    ui::MoveCopyNote(files, copy, moved);
    EXPECT_EQ(ui::KeptCopyOf(files, path), moved);
    copy = moved;
    FakeDialogs dialogs;
    dialogs.expectWarning(told());
    ui::TellOfKeptCopies(dialogs, files);
    dialogs.expectAllAsked();
}

TEST_F(CopyNotes, OfAFileThatIsBeingWrittenAreNotToldOf) {
    folder.put("copy.vtn", OldText);
    {
        const auto lock = ui::NoteCopy(files, path, copy);
        ASSERT_NE(lock, nullptr);
        folder.put("a.vtn", "half");
        expectNothingTold();
    }
    FakeDialogs dialogs;
    dialogs.expectWarning(told());
    ui::TellOfKeptCopies(dialogs, files);
    dialogs.expectAllAsked();
}

TEST_F(CopyNotes, MeanNothingWhenTheyAreDamaged) {
    for (const char* bytes : {"", "no zero in it", "\n"}) {
        home.put("spare/x.vtn.note", bytes);
        EXPECT_EQ(ui::KeptCopyOf(files, path), std::nullopt);
        expectNothingTold();
    }
}

TEST_F(CopyNotes, AreDoneWithoutWhereThereIsNoPlaceForThem) {
    ui::DiskFiles homeless;
    EXPECT_EQ(ui::NoteCopy(homeless, path, copy), nullptr);
    ui::ForgetCopy(homeless, copy);
    ui::MarkCopyTold(homeless, copy);
    ui::MoveCopyNote(homeless, copy, path);
    EXPECT_EQ(ui::KeptCopyOf(homeless, path), std::nullopt);
    FakeDialogs dialogs;
    ui::TellOfKeptCopies(dialogs, homeless);
}

TEST_F(CopyNotes, TellWhereTheOldContentIsWheneverTheProgramDies) {
    int deaths = 0;
    int told = 0;
    for (int number = 1 + support::ChildrenBefore();; ++number) {
        SCOPED_TRACE(number);
        folder.put("a.vtn", OldText);
        const int end = support::InChild([&] {
            FailingFiles failing(files);
            failing.dieAt(number);
            return ui::WriteFile(failing, path, NewText) ? 0 : 1;
        });
        FakeDialogs dialogs;
        const auto kept = ui::KeptCopyOf(files, path);
        const std::string now = folder.content("a.vtn");
        if (kept && now != OldText) {
            copy = *kept;
            dialogs.expectWarning(this->told());
            EXPECT_EQ(folder.content(kept->filename()), OldText);
            ++told;
        } else {
            EXPECT_TRUE(now == OldText || now == NewText);
        }
        ui::TellOfKeptCopies(dialogs, files);
        dialogs.expectAllAsked();
        for (const std::string& name : files.list(folder.path())) {
            if (name.starts_with("vtm-copy-")) {
                std::filesystem::remove(folder / name);
            }
        }
        if (end == 0) {
            EXPECT_EQ(now, NewText);
            break;
        }
        EXPECT_EQ(end, FailingFiles::Death);
        ++deaths;
    }
    EXPECT_GE(deaths, 15);
    EXPECT_GE(told, 4);
}

TEST_F(CopyNotes, AreNotToldOfAgainWhenTheFailureHasNamedTheCopy) {
    FailingFiles failing(files);
    failing.failFrom(FailingFiles::Step::Resize, 2);
    const auto written = ui::WriteFile(failing, path, NewText);
    ASSERT_FALSE(written);
    const auto kept = ui::KeptCopyOf(files, path);
    ASSERT_TRUE(kept);
    EXPECT_NE(written.failure().message.find(ui::PathText(*kept)), std::string::npos);
    expectNothingTold();
}

} // namespace
