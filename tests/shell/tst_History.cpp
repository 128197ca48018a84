// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/History.h"

#include "animation/mdlAniName.h"
#include "editing/mdlKey.h"

#include <gtest/gtest.h>

#include <functional>
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

} // namespace

} // namespace shell
