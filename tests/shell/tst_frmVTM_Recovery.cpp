// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/MainWindow.h"
#include "shell/WorkStates.h"

#include <QStatusBar>

namespace {

using editing::Page;

/// A program that is started where another one has crashed.
class Recovery : public MainWindow {
protected:
    Recovery() { fake.platform.stateFolder = state.path(); }

    void leaveWork() {
        state.put("left.work", shell::EncodeWorkState(left));
        state.put("left.lock", "");
    }

    /// Starts on the name page and waits for the offer.
    void startWithOffer() {
        leaveWork();
        startOn(Page::Name);
        ASSERT_TRUE(QTest::qWaitFor([this] { return isOffered(); }));
    }

    [[nodiscard]] bool isOffered() const {
        const auto* link = window->findChild<QLabel*>(QStringLiteral("lblRestore"));
        return link != nullptr && link->isVisible();
    }

    [[nodiscard]] QString status() const { return window->statusBar()->currentMessage(); }

    void followLink(const char* name) const {
        auto* link = find<QLabel>(name);
        QTest::mouseClick(link, Qt::LeftButton, {}, link->rect().center());
    }

    /// The documents, as they would be kept.
    [[nodiscard]] ui::Bytes work() const {
        return shell::EncodeWorkState({workspace().documents, workspace().page(), left.time});
    }

    [[nodiscard]] bool isShown(Page page) const {
        editing::PagePictures expected;
        const editing::PageCursor cursor = editing::CursorOf(workspace().documents, page);
        for (int row = 1; row <= cursor.rowsInUse; ++row) {
            for (int column = 1; column <= cursor.rows.width(); ++column) {
                glyphs::PaintGlyph(
                    expected.of(page).canvas(), workspace().atlas, cursor.rows.cell(row, column), column,
                    row);
            }
        }
        const int width = cursor.rows.width() * glyphs::CellSide;
        const int height = cursor.rowsInUse * glyphs::CellSide;
        ui::Picture shown(width, height);
        ui::Picture wanted(width, height);
        glyphs::BlitCells(shown, 0, 0, width, height, workspace().pictures.of(page).pixels(), 0, 0);
        glyphs::BlitCells(wanted, 0, 0, width, height, expected.of(page).pixels(), 0, 0);
        return shown == wanted;
    }

    support::TempFolder state;
    shell::WorkState left = RandomWork(7);
};

} // namespace

TEST_F(Recovery, NothingIsOfferedWhereNothingIsLeft) {
    startOn(Page::Name);
    QTest::qWait(700);
    EXPECT_FALSE(isOffered());
    EXPECT_EQ(status(), "");
    EXPECT_TRUE(fake.disk.list(state.path()).empty());
}

TEST_F(Recovery, WorkIsOfferedAndNotLoadedUnasked) {
    startWithOffer();
    EXPECT_TRUE(status().startsWith("VTM was not closed at ")) << status().toStdString();
    EXPECT_EQ(row(), std::string(15, ' '));
    EXPECT_EQ(find<QLabel>("lblRestore")->focusPolicy(), Qt::NoFocus);
    type("a");
    EXPECT_EQ(row(), "a" + std::string(14, ' '));
    EXPECT_TRUE(isOffered()) << "typing goes on beside the offer";
    choose("mnuFormatAlignRight");
    EXPECT_TRUE(isOffered()) << "what is told next does not take it away";
}

TEST_F(Recovery, TheLinkPutsTheWorkBackOnThePages) {
    startWithOffer();
    followLink("lblRestore");
    EXPECT_EQ(work(), shell::EncodeWorkState(left));
    EXPECT_TRUE(fake.sounds.waves.empty()) << "as what is taken back comes, in silence";
    for (const Page page : {Page::Name, Page::Animation, Page::Messages}) {
        EXPECT_TRUE(isShown(page));
    }
    EXPECT_FALSE(isOffered());
    EXPECT_EQ(status(), "");
    EXPECT_TRUE(state.has("left.work")) << "it is kept on";
    window->close();
    EXPECT_TRUE(fake.disk.list(state.path()).empty());
}

TEST_F(Recovery, RestoredWorkIsTakenBackAtOnce) {
    startWithOffer();
    const editing::Documents before = workspace().documents;
    followLink("lblRestore");
    EXPECT_EQ(workspace().documents, left.documents);
    EXPECT_EQ(find<QAction>("mnuEditUndo")->text().toStdString(), "&Undo Restore");
    choose("mnuEditUndo");
    EXPECT_EQ(workspace().documents, before);
    for (const Page page : {Page::Name, Page::Animation, Page::Messages}) {
        EXPECT_TRUE(isShown(page));
    }
}

TEST_F(Recovery, AltUPutsTheWorkBackAndAltShiftUForgetsIt) {
    startWithOffer();
    press(Qt::Key_U, Qt::AltModifier);
    EXPECT_EQ(work(), shell::EncodeWorkState(left));
    const ui::Bytes before = work();
    press(Qt::Key_U, Qt::AltModifier);
    press(Qt::Key_U, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_EQ(work(), before);
    EXPECT_TRUE(state.has("left.work"));
}

TEST_F(Recovery, DiscardedWorkIsGone) {
    startWithOffer();
    press(Qt::Key_U, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_FALSE(isOffered());
    EXPECT_EQ(status(), "");
    EXPECT_EQ(row(), std::string(15, ' '));
    EXPECT_TRUE(fake.disk.list(state.path()).empty());
}

TEST_F(Recovery, TheLinkToDiscardDoesSoToo) {
    startWithOffer();
    followLink("lblDiscard");
    EXPECT_FALSE(isOffered());
    EXPECT_TRUE(fake.disk.list(state.path()).empty());
}

TEST_F(Recovery, WorkThatIsNotRestoredGoesWhenTheProgramIsClosed) {
    startWithOffer();
    window->close();
    EXPECT_TRUE(fake.disk.list(state.path()).empty());
}

TEST_F(Recovery, TypedWorkIsKeptUntilTheProgramIsClosed) {
    startOn(Page::Name);
    type("keep");
    auto* timer = window->findChild<QTimer*>(QStringLiteral("tmrRecovery"));
    ASSERT_NE(timer, nullptr);
    EXPECT_LE(timer->interval(), 5000) << "a few seconds";
    timer->setInterval(1);
    std::optional<shell::WorkState> kept;
    ASSERT_TRUE(QTest::qWaitFor([&] {
        for (const std::string& name : fake.disk.list(state.path())) {
            if (name.ends_with(".work")) {
                kept = shell::DecodeWorkState(state.content(name));
            }
        }
        return kept.has_value();
    }));
    EXPECT_EQ(kept->documents.name.cells, workspace().documents.name.cells);
    window->close();
    EXPECT_TRUE(fake.disk.list(state.path()).empty());
}

TEST_F(Recovery, WorkThatCannotBeKeptIsTold) {
    fake.platform.stateFolder = fake.directory.files.put("file", "") / "folder";
    startOn(Page::Name);
    type("keep");
    window->findChild<QTimer*>(QStringLiteral("tmrRecovery"))->setInterval(1);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !status().isEmpty(); }));
    EXPECT_TRUE(status().startsWith("What is on the pages is not kept for after a crash: "))
        << status().toStdString();
}
