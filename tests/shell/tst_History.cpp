// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/History.h"

#include "animation/mdlAniName.h"
#include "animation/mdlAniScript.h"
#include "animation/mdlAniWizard.h"
#include "editing/PagePainter.h"
#include "editing/mdlArray.h"
#include "editing/mdlKey.h"
#include "support/FakePlatform.h"
#include "support/PaintedPages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <random>
#include <string>
#include <vector>

namespace shell {

namespace {

using editing::CursorOf;
using editing::Documents;
using editing::Page;
using editing::PageCursor;

const std::vector<Page> EveryPage{Page::Name, Page::Animation, Page::Messages};

/// Documents and their history, as whoever runs commands keeps them.
class HistoryOf : public testing::Test {
protected:
    HistoryOf() { history.start(documents); }

    void record(std::string_view command) { history.record(documents, page, command); }

    void type(std::string_view text) {
        for (const char character : text) {
            editing::PutGlyph(cursor(), modes, static_cast<unsigned char>(character));
            record(History::Typing);
        }
    }

    void go(int virtualKey) {
        editing::NavigateKey(cursor(), virtualKey);
        record("Delete");
    }

    [[nodiscard]] PageCursor cursor() { return CursorOf(documents, page); }

    [[nodiscard]] std::string text() {
        std::string text;
        for (const glyphs::GlyphCode code : cursor().rows.row(cursor().row)) {
            text.push_back(static_cast<char>(code));
        }
        text.resize(text.find_last_not_of(' ') + 1);
        return text;
    }

    /// What undo() and redo() would do: "Typing/Delete"; "" where there is nothing.
    [[nodiscard]] std::string offers() const {
        const auto name = [](const std::string* command) {
            return command == nullptr ? std::string() : *command;
        };
        return name(history.undoCommand()) + "/" + name(history.redoCommand());
    }

    Documents documents;
    Page page = Page::Name;
    editing::Modes modes{.typingColour = false};
    History history;
};

TEST_F(HistoryOf, HasNothingToTakeBackAtFirst) {
    EXPECT_EQ(offers(), "/");
    const Documents before = documents;
    EXPECT_TRUE(history.undo(documents).empty());
    EXPECT_TRUE(history.redo(documents).empty());
    EXPECT_EQ(documents, before);
    record("Copy");
    EXPECT_EQ(offers(), "/") << "a command that changes nothing is no step";
}

TEST_F(HistoryOf, TakesARunOfTypingBackAtOnceWithItsCursor) {
    documents.name.cursorPos = 3;
    record("Delete");
    type("a b ");
    EXPECT_EQ(offers(), "Typing/");
    EXPECT_EQ(history.undo(documents), std::vector{Page::Name});
    EXPECT_EQ(text(), "");
    EXPECT_EQ(documents.name.cursorPos, 3);
    EXPECT_EQ(offers(), "/Typing");
    EXPECT_EQ(history.redo(documents), std::vector{Page::Name});
    EXPECT_EQ(text(), "  a b");
    EXPECT_EQ(documents.name.cursorPos, 7) << "behind the blank, which changed no cell";
    EXPECT_EQ(offers(), "Typing/");
}

TEST_F(HistoryOf, EndsARunOfTypingWithAnythingElse) {
    const std::vector<std::function<void()>> others{
        [this] { go(editing::KeyLeft); },
        [this] { record("Copy"); },
        [this] {
            page = Page::Messages;
            record("Messages");
            page = Page::Name;
            record("Name");
        },
        [this] {
            page = Page::Messages;
            type("m");
            history.undo(documents);
            page = Page::Name;
        },
    };
    for (const auto& other : others) {
        documents = Documents();
        history.start(documents);
        page = Page::Name;
        type("ab");
        other();
        type("c");
        history.undo(documents);
        EXPECT_EQ(text(), "ab");
        history.undo(documents);
        EXPECT_EQ(text(), "");
        EXPECT_EQ(offers(), "/Typing");
    }
}

TEST_F(HistoryOf, JoinsNothingButTyping) {
    type("abc");
    go(editing::KeyBackspace);
    go(editing::KeyBackspace);
    EXPECT_EQ(offers(), "Delete/");
    history.undo(documents);
    EXPECT_EQ(text(), "ab");
    history.undo(documents);
    EXPECT_EQ(text(), "abc");
    EXPECT_EQ(documents.name.cursorPos, 4);
    EXPECT_EQ(offers(), "Typing/Delete");
}

TEST_F(HistoryOf, ForgetsWhatWasTakenBackWhenSomethingElseIsDone) {
    type("abc");
    go(editing::KeyBackspace);
    history.undo(documents);
    go(editing::KeyLeft);
    EXPECT_EQ(offers(), "Typing/Delete") << "a move of the cursor changes nothing";
    go(editing::KeyDelete);
    EXPECT_EQ(offers(), "Delete/");
    history.undo(documents);
    EXPECT_EQ(text(), "abc");
}

TEST_F(HistoryOf, LeavesTheCursorsOfOtherPagesAlone) {
    page = Page::Messages;
    type("m");
    page = Page::Name;
    type("n");
    documents.messages.cursorPos = 20;
    documents.messages.currentMessage = 3;
    record("Messages");
    EXPECT_EQ(history.undo(documents), std::vector{Page::Name});
    EXPECT_EQ(documents.messages.cursorPos, 20);
    EXPECT_EQ(history.undo(documents), std::vector{Page::Messages});
    EXPECT_EQ(documents.messages.cursorPos, 1);
    EXPECT_EQ(documents.messages.currentMessage, 1);
}

TEST_F(HistoryOf, TakesTheNumberOfNamesAndTheTicksBack) {
    page = Page::Animation;
    animation::SetNameCount(documents.animation, 40);
    record("Total");
    animation::SetTicks(documents.animation, 90, 7);
    record("Ticks");
    animation::SetNameCount(documents.animation, 15);
    record("Total");
    history.undo(documents);
    EXPECT_EQ(documents.animation.nameCount, 40);
    history.undo(documents);
    EXPECT_EQ(documents.animation.ticks(90), 2);
    EXPECT_EQ(offers(), "Total/Ticks");
    history.undo(documents);
    EXPECT_EQ(documents, Documents());
}

TEST_F(HistoryOf, TakesAChangeOfAllDocumentsBackAtOnce) {
    Documents other;
    for (const Page each : EveryPage) {
        const PageCursor there = CursorOf(other, each);
        there.rows.cell(there.rows.count(), there.rows.width()) = 'x';
        there.column = 9;
    }
    other.animation.nameCount = 90;
    other.animation.ticks(90) = 9;
    documents = other;
    record("Restore");
    EXPECT_EQ(history.undo(documents), EveryPage);
    EXPECT_EQ(documents, Documents());
    EXPECT_EQ(history.redo(documents), EveryPage);
    EXPECT_EQ(documents, other);
}

TEST_F(HistoryOf, KeepsThousandsOfSteps) {
    static_assert(History::MaxSteps >= 1000);
    for (std::size_t step = 0; step < History::MaxSteps + 10; ++step) {
        documents.animation.nameGlyphs.fill(static_cast<glyphs::GlyphCode>(step % 2 == 0 ? 'a' : 'b'));
        documents.animation.nameTicks.fill(static_cast<std::int16_t>(step));
        record("Load");
    }
    std::size_t taken = 0;
    while (!history.undo(documents).empty()) {
        ++taken;
    }
    EXPECT_EQ(taken, History::MaxSteps);
    EXPECT_EQ(documents.animation.ticks(1), 9) << "what is older stays";
    EXPECT_EQ(documents.animation.ticks(90), 9);
}

/// Commands of every kind in a random order, each recorded as the window does it.
class RandomSession : public testing::Test {
protected:
    RandomSession() {
        const ui::Path built(VTM_PROGRAM_DIR);
        for (const char* name : {"vtmani01.dat", "vtmani02.dat"}) {
            std::filesystem::copy_file(built / name, fake.directory.files / name);
        }
        for (const Page each : EveryPage) {
            editing::PaintRowsFrom(painter, each, 1);
        }
        history.start(documents);
    }

    int upTo(int last) { return std::uniform_int_distribution<int>(1, last)(random); }

    glyphs::GlyphCode glyph() {
        return static_cast<glyphs::GlyphCode>(upTo(3) == 1 ? glyphs::BlankGlyph : upTo(255));
    }

    [[nodiscard]] PageCursor cursor() { return CursorOf(documents, page); }

    void show(const editing::Change& change) { editing::ShowChange(painter, change); }

    /// Does something, shows it and returns its name.
    std::string command();
    std::string format();
    std::string loadAnimation();
    std::string buildAnimation();
    std::string changeNameList();

    /// Shows the pages that were taken back or done again.
    void showWhole(const std::vector<Page>& pages) {
        for (const Page each : pages) {
            editing::PaintRowsFrom(painter, each, 1);
        }
    }

    [[nodiscard]] bool isPainted() { return support::ArePaintedLike(documents, pictures, atlas); }

    /// The documents as if their cursors had never moved.
    static Documents contentOf(Documents documents) {
        for (const Page each : EveryPage) {
            const PageCursor place = CursorOf(documents, each);
            place.column = 1;
            place.row = 1;
        }
        return documents;
    }

    /// Whether the cursors of some pages are the same.
    static bool haveSameCursors(Documents& first, Documents& second, const std::vector<Page>& pages) {
        return std::ranges::all_of(pages, [&](Page each) {
            const PageCursor one = CursorOf(first, each);
            const PageCursor two = CursorOf(second, each);
            return one.column == two.column && one.row == two.row && one.rowsInUse == two.rowsInUse;
        });
    }

    std::mt19937 random;
    Documents documents;
    Page page = Page::Name;
    editing::Modes modes;
    editing::EditClipboard clipboard;
    editing::PagePictures pictures;
    glyphs::GlyphAtlas atlas = glyphs::BuildAtlas(artwork(), ui::OpaqueBlack);
    support::FakePlatform fake;
    glyphs::SoundOptions soundOptions{};
    glyphs::Progress progress{[](int) {
    }};
    editing::PagePainter painter{documents, atlas, pictures, fake.sounds, soundOptions, progress};
    History history;

private:
    static ui::Picture artwork() {
        ui::Picture picture(glyphs::ArtworkSide, glyphs::ArtworkSide);
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                picture.setPixel(
                    x, y, ui::OpaquePixel(static_cast<unsigned>(x), static_cast<unsigned>(y), 7));
            }
        }
        return picture;
    }
};

std::string RandomSession::format() {
    constexpr std::array<std::pair<const char*, editing::FormatOperation>, 4> Operations{{
        {"Align Right", editing::FormatOperation::AlignRight},
        {"Align Center", editing::FormatOperation::AlignCenter},
        {"Switch Case", editing::FormatOperation::SwitchCase},
        {"Reverse Character Order", editing::FormatOperation::ReverseCharacters},
    }};
    const auto& [name, operation] = Operations[static_cast<std::size_t>(upTo(4) - 1)];
    if (page != Page::Name) {
        fake.dialogs.expectBox(
            {page == Page::Animation ? "Do you wish to format all names?"
                                     : "Do you wish to format all macros?",
             ui::Buttons::YesNoCancel, ui::Icon::None, "No or Cancel: only the current one."},
            upTo(2) == 1 ? ui::Answer::Yes : ui::Answer::No);
    }
    show(editing::FormatPage(cursor(), fake.dialogs, {}, operation));
    return name;
}

std::string RandomSession::loadAnimation() {
    Documents other;
    other.animation.nameCount = 14 + upTo(76);
    for (glyphs::GlyphCode& code : other.animation.nameGlyphs) {
        code = static_cast<glyphs::GlyphCode>('a' + upTo(20));
    }
    ui::Bytes script = animation::EncodeAnimationScript(other.animation, animation::NameCommand::Name);
    if (upTo(2) == 1) {
        // Broken off in the middle of a name: what stands before it has been read.
        script.resize(script.size() / 2);
    }
    const editing::AnimationDocument before = documents.animation;
    if (animation::DecodeAnimationScript(script, documents.animation).end == animation::ScriptEnd::Read) {
        show({.kind = editing::Change::Kind::WholePage, .page = Page::Animation});
    } else {
        // Names that come into use are painted as they were; nothing that was read is.
        Documents unread = documents;
        unread.animation.nameGlyphs = before.nameGlyphs;
        const editing::PagePainter other2{unread, atlas, pictures, fake.sounds, soundOptions, progress};
        editing::PaintRowsFrom(other2, Page::Animation, before.nameCount + 1);
    }
    return "Load";
}

std::string RandomSession::buildAnimation() {
    animation::WizardChoices choices;
    choices.firstPosition = upTo(3);
    choices.color = upTo(3) - 1;
    choices.nameToUse = upTo(90);
    choices.startName = upTo(76);
    const auto outcome = animation::BuildAnimation(
        documents.animation, choices, glyphs::CaseChoice::LettersOnly, fake.files, fake.directory);
    EXPECT_EQ(outcome.end, animation::BuildEnd::Built);
    show({.kind = editing::Change::Kind::WholePage, .page = Page::Animation});
    return "Wizard";
}

std::string RandomSession::changeNameList() {
    switch (upTo(6)) {
    case 1:
        show(animation::InsertName(documents.animation));
        return "Insert Name";
    case 2:
        show(animation::DeleteName(documents.animation));
        return "Delete Name";
    case 3:
        show(animation::MoveNameUp(documents.animation));
        return "Move Name";
    case 4:
        show(animation::MoveNameDown(documents.animation));
        return "Move Name";
    case 5: {
        const int before = documents.animation.nameCount;
        animation::SetNameCount(documents.animation, 14 + upTo(76));
        editing::PaintRowsFrom(painter, Page::Animation, before + 1);
        return "Total";
    }
    default:
        if (upTo(2) == 1) {
            animation::SetAllTicks(documents.animation, static_cast<std::int16_t>(upTo(15)));
        } else {
            animation::SetTicks(documents.animation, upTo(90), static_cast<std::int16_t>(upTo(15)));
        }
        return "Ticks";
    }
}

std::string RandomSession::command() {
    switch (upTo(20)) {
    case 1:
        page = EveryPage[static_cast<std::size_t>(upTo(3) - 1)];
        return "Name";
    case 2:
        cursor().column = upTo(cursor().rows.width());
        cursor().row = upTo(cursor().rowsInUse);
        return "";
    case 3:
        modes.insert = !modes.insert;
        return "";
    case 4:
    case 5: {
        constexpr std::array Keys{editing::KeyBackspace, editing::KeyDelete, editing::KeyEnter,
                                  editing::KeyHome,      editing::KeyUp,     editing::KeyLeft};
        show(editing::NavigateKey(cursor(), Keys[static_cast<std::size_t>(upTo(6) - 1)]));
        return "Delete";
    }
    case 6:
        show(editing::CutRow(cursor(), clipboard));
        return "Cut";
    case 7:
        show(editing::PasteRow(cursor(), clipboard));
        return "Paste";
    case 8:
        editing::CopyRow(cursor(), clipboard);
        return "Copy";
    case 9:
        return format();
    case 10:
        show(editing::ReverseNameOrder(cursor()));
        return "Reverse Name Order";
    case 11:
        return upTo(3) == 1 ? loadAnimation() : changeNameList();
    case 12:
        return upTo(3) == 1 ? buildAnimation() : changeNameList();
    case 13:
        show(editing::NewDocument(documents, upTo(4) == 1 ? Page::Animation : Page::Name));
        return "New";
    default:
        show(editing::PutGlyph(cursor(), modes, glyph()));
        return std::string(History::Typing);
    }
}

TEST_F(RandomSession, IsUndoneToItsStartAndRedoneToItsEnd) {
    constexpr int Commands = 5000;
    for (const unsigned seed : {1U, 20031U, 77U}) {
        SCOPED_TRACE(seed);
        random.seed(seed);
        std::vector<Documents> was{documents};
        std::vector<Documents> contents{contentOf(documents)};
        history.start(documents);
        int others = 0; // commands that changed something and are no typing
        for (int i = 0; i < Commands; ++i) {
            const std::string name = command();
            history.record(documents, page, name);
            was.push_back(documents);
            contents.push_back(contentOf(documents));
            if (contents.back() != contents[contents.size() - 2]) {
                EXPECT_EQ(*history.undoCommand(), name);
                others += name == History::Typing ? 0 : 1;
            }
        }
        EXPECT_GT(others, 1000);

        // Every step leads to what the documents held earlier, with the cursor of that time.
        std::size_t place = was.size() - 1;
        int steps = 0;
        std::vector<Documents> undone;
        for (;;) {
            undone.push_back(contentOf(documents));
            const std::vector<Page> pages = history.undo(documents);
            if (pages.empty()) {
                break;
            }
            showWhole(pages);
            ++steps;
            const Documents content = contentOf(documents);
            do {
                ASSERT_GT(place, 0U) << "step " << steps << " leads to what never was";
                --place;
            } while (contents[place] != content || !haveSameCursors(documents, was[place], pages));
            if (steps % 100 == 0) {
                ASSERT_TRUE(isPainted()) << "step " << steps;
            }
        }
        EXPECT_GE(steps, others);
        EXPECT_EQ(contentOf(documents), contents.front());
        EXPECT_TRUE(isPainted());

        undone.pop_back();
        for (std::vector<Page> pages = history.redo(documents); !pages.empty();
             pages = history.redo(documents)) {
            showWhole(pages);
            ASSERT_EQ(contentOf(documents), undone.back());
            undone.pop_back();
        }
        EXPECT_TRUE(undone.empty());
        EXPECT_EQ(contentOf(documents), contents.back());
        EXPECT_TRUE(isPainted());

        // And back again: the cursors too are those of the first time.
        const Documents redone = documents;
        while (!history.undo(documents).empty()) {
        }
        while (!history.redo(documents).empty()) {
        }
        EXPECT_EQ(documents, redone);
    }
}

} // namespace

} // namespace shell
