// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include <QDialog>
#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QStatusBar>
#include <QUrl>

using editing::Page;

namespace {

constexpr auto NameScript = "// Name File Created by Vortigo\r\nname \"dropped\"\r\n";
constexpr auto MessageScript = "// Macro File Created by Vortigo\r\nsay \"hello\"\r\n";

/// Files that are dropped on the window.
class Dropping : public MainWindow {
protected:
    [[nodiscard]] ui::Path put(const char* name, const std::string& content) {
        return fake.directory.files.put(name, content);
    }

    void expectRead(const ui::Path& path) {
        fake.dialogs.expectInform("Done! " + ui::PathText(path) + " was read succesfully.");
    }

    const char* over = "ImgGrid"; ///< what things are dropped on

    /// Drags over a control and drops there, as a file manager does; whether it was taken.
    bool drop(const QList<QUrl>& urls, Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction) const {
        QMimeData dragged;
        dragged.setUrls(urls);
        dragged.setText(urls.first().toString()); // as file managers do
        return drop(dragged, offered);
    }

    bool drop(const QMimeData& dragged, Qt::DropActions offered = Qt::CopyAction) const {
        auto* const target = find(over);
        const QPoint place = target->rect().center();
        QDragEnterEvent enter(place, offered, &dragged, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &enter);
        QDragMoveEvent move(place, offered, &dragged, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &move);
        EXPECT_EQ(move.isAccepted(), enter.isAccepted());
        if (!enter.isAccepted()) {
            return false;
        }
        EXPECT_EQ(enter.dropAction(), Qt::CopyAction) << "no file is taken away";
        QDropEvent dropped(place, offered, &dragged, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &dropped);
        EXPECT_TRUE(dropped.isAccepted());
        EXPECT_EQ(dropped.dropAction(), Qt::CopyAction);
        return true;
    }

    void dropFiles(std::initializer_list<ui::Path> paths) {
        QList<QUrl> urls;
        for (const ui::Path& path : paths) {
            urls.append(QUrl::fromLocalFile(QString::fromStdString(ui::PathText(path))));
        }
        const std::size_t asked = fake.dialogs.calls().size();
        EXPECT_TRUE(drop(urls));
        EXPECT_EQ(fake.dialogs.calls().size(), asked) << "the file manager does not wait";
        QCoreApplication::processEvents();
    }
};

} // namespace

TEST_F(Dropping, LoadsAScriptAsTheMenuDoes) {
    startOn(Page::Animation);
    const ui::Path path = put("me.vtn", NameScript);
    expectRead(path);
    window->statusBar()->showMessage(QStringLiteral("old"));
    dropFiles({path});
    EXPECT_EQ(workspace().page(), Page::Name);
    EXPECT_EQ(row(), "dropped        ");
    EXPECT_EQ(window->statusBar()->currentMessage(), QString());
    EXPECT_EQ(find<QAction>("mnuEditUndo")->text(), QStringLiteral("&Undo Load"));
    choose("mnuEditUndo");
    EXPECT_EQ(row(), "               ");
}

TEST_F(Dropping, LoadsAScriptThatIsDroppedOnTheFinderToo) {
    startOn(Page::Name);
    press(Qt::Key_I, Qt::AltModifier);
    over = "txtFind";
    auto* const field = find<QLineEdit>(over);
    ASSERT_TRUE(field->isVisible());
    const ui::Path path = put("me.vtn", NameScript);
    expectRead(path);
    dropFiles({path});
    EXPECT_EQ(row(), "dropped        ");
    EXPECT_EQ(field->text(), QString());
    QMimeData text;
    text.setText(QStringLiteral("quake"));
    EXPECT_TRUE(drop(text));
    EXPECT_EQ(field->text(), QStringLiteral("quake")) << "a text is what is looked for";
}

TEST_F(Dropping, GoesByTheFirstLineWhateverTheFileIsCalled) {
    startOn(Page::Name);
    const ui::Path path = put("hello.txt", MessageScript);
    expectRead(path);
    dropFiles({path});
    EXPECT_EQ(workspace().page(), Page::Messages);
    EXPECT_EQ(row().substr(0, 6), "hello ");
}

TEST_F(Dropping, LoadsTheFirstOfEachKind) {
    startOn(Page::Name);
    const ui::Path name = put("me.scr", NameScript);
    const ui::Path messages = put("hello.vtm", MessageScript);
    const ui::Path other = put("other.vtn", "// Name File Created by Vortigo\r\nname \"other\"\r\n");
    expectRead(name);
    expectRead(messages);
    dropFiles({name, messages, other});
    EXPECT_EQ(workspace().page(), Page::Messages);
    EXPECT_EQ(workspace().documents.name.cells[0], 'd');
    choose("mnuEditUndo");
    EXPECT_EQ(row(), std::string(31, ' '));
    EXPECT_EQ(workspace().documents.name.cells[0], 'd') << "each is a step";
    choose("mnuEditUndo");
    EXPECT_EQ(workspace().documents.name.cells[0], ' ');
}

TEST_F(Dropping, ReadsTheNameOfAConfigurationFile) {
    startOn(Page::Messages);
    const ui::Path path = put("CONFIG.CFG", "bind x y\nname \"player\"\n");
    fake.dialogs.expectInform("Done! The name was read from the config file.");
    dropFiles({path});
    EXPECT_EQ(workspace().page(), Page::Name);
    EXPECT_EQ(row(), "player         ");
    EXPECT_EQ(workspace().rememberedConfig, path);
}

TEST_F(Dropping, TellsOfAFileThatIsNoneAsTheMenuOfItsKindOrOfThePageDoes) {
    startOn(Page::Messages);
    const ui::Path animation = put("broken.VTA", "nothing");
    fake.dialogs.expectInform("Error reading animation from " + ui::PathText(animation) + ".");
    dropFiles({animation});
    EXPECT_EQ(workspace().page(), Page::Animation);
    const ui::Path picture = put("picture.png", "nothing");
    fake.dialogs.expectInform("Error reading animation from " + ui::PathText(picture) + ".");
    dropFiles({picture});
    EXPECT_EQ(row(1), "               ");
}

TEST_F(Dropping, TakesNothingButFilesOfThisComputer) {
    startOn(Page::Name);
    EXPECT_FALSE(drop({QUrl(QStringLiteral("https://vtm.example.org/me.vtn"))}));
    QMimeData text;
    text.setText(QStringLiteral("quake"));
    EXPECT_FALSE(drop(text));
}

TEST_F(Dropping, TakesNothingWhileADialogStandsOverTheWindow) {
    startOn(Page::Name);
    const ui::Path path = put("me.vtn", NameScript);
    QDialog dialog(window.get());
    dialog.setModal(true);
    dialog.show();
    EXPECT_FALSE(drop({QUrl::fromLocalFile(QString::fromStdString(ui::PathText(path)))}));
    dialog.hide();
    expectRead(path);
    dropFiles({path});
}
