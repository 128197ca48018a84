// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/MainWindow.h"
#include "support/PaintedPages.h"

#include <QLabel>
#include <QMenu>
#include <QStatusBar>

namespace {

using editing::Page;

/// An animation script that cannot be read to its end.
class Abandoned : public MainWindow {
protected:
    /// Loads a script of 20 names of which the third is too long.
    void load() {
        const ui::Path path = fake.directory.files.put(
            "long.vta", "// Animation File Created by Vortigo\r\n// 20 Names In The Animation Sequence\r\n"
                        "name \"first\"\r\nname \"second\"\r\nname \"much longer than a name\"\r\n");
        fake.settings.write("AnimFiles", "RecentFile1", ui::PathText(path));
        startOn(Page::Animation);
        choose("mnuRecentAniFiles_0");
        fake.sounds.waves.clear();
    }

    [[nodiscard]] QLabel& link() const { return *find<QLabel>("lblShow"); }

    [[nodiscard]] std::string status() const { return window->statusBar()->currentMessage().toStdString(); }

    /// Whether the painted names are those of the animation.
    [[nodiscard]] bool isShown() const {
        return support::ArePaintedLike(workspace().documents, workspace().pictures, workspace().atlas);
    }
};

} // namespace

TEST_F(Abandoned, TheStatusLineOffersToShowWhatWasRead) {
    load();
    EXPECT_FALSE(isShown());
    EXPECT_NE(status().find("Names 1 to 3 stand in the animation and not on the screen."), std::string::npos)
        << status();
    ASSERT_TRUE(link().isVisible());
    EXPECT_EQ(link().focusPolicy(), Qt::NoFocus) << "the keyboard stays with the names";
    QTest::mouseClick(&link(), Qt::LeftButton, {}, link().rect().center());
    EXPECT_TRUE(isShown());
    EXPECT_EQ(played(104), 1);
    EXPECT_EQ(status(), "");
    EXPECT_FALSE(link().isVisible());
    EXPECT_TRUE(find("AniPic")->hasFocus());
}

TEST_F(Abandoned, AltSShowsWhatWasReadFromEveryPage) {
    load();
    choose("mnuView_0");
    press(Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(isShown());
    EXPECT_EQ(workspace().page(), Page::Animation);
    choose("mnuView_0");
    fake.sounds.waves.clear();
    press(Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(workspace().page(), Page::Name) << "nothing is offered any more";
    EXPECT_TRUE(fake.sounds.waves.empty());
}

TEST_F(Abandoned, TheOfferGoesWithItsText) {
    load();
    window->statusBar()->showMessage(QStringLiteral("Another text"));
    EXPECT_FALSE(link().isVisible());
    press(Qt::Key_S, Qt::AltModifier);
    EXPECT_FALSE(isShown());
}

TEST_F(Abandoned, ATextThatIsTooLongIsWrapped) {
    start();
    const auto& label = *find<QLabel>("lblStatus");
    const int two = 2 * label.fontMetrics().lineSpacing();
    const auto textOf = [](std::size_t paths) {
        std::string text = "Reading \"";
        for (std::size_t i = 0; i < paths; ++i) {
            text += "/" + std::string(40, 'a');
        }
        return text + "\" stopped at line 4, and so on until the line is full.";
    };
    const int height = window->statusBar()->height();
    EXPECT_GE(height, two);
    for (const std::size_t paths : {0U, 3U, 7U, 0U}) {
        const std::string text = textOf(paths);
        window->statusBar()->showMessage(QString::fromStdString(text));
        const bool isLong = paths == 7;
        ASSERT_TRUE(QTest::qWaitFor([&] { return (label.height() > two) == isLong; })) << paths;
        EXPECT_GE(label.height(), label.heightForWidth(label.width())) << "it is seen whole";
        EXPECT_LE(label.geometry().right(), window->statusBar()->width());
        EXPECT_GE(window->statusBar()->height(), label.height());
        QString shown = label.text();
        EXPECT_EQ(shown.remove(QChar(0x200B)).toStdString(), text);
        EXPECT_TRUE(QTest::qWaitFor([&] { return (window->statusBar()->height() > height) == isLong; }))
            << "a second line moves nothing";
    }
}

TEST_F(Abandoned, ATextWithoutEndTakesFourLinesAtMost) {
    start();
    const auto& label = *find<QLabel>("lblStatus");
    const int most = 4 * label.fontMetrics().lineSpacing();
    const QString more(QChar(0x2026));
    for (const char32_t character : {U'漢', U'😀'}) {
        const QString text = QStringLiteral("It is ") + QString::fromUcs4(&character, 1).repeated(20000);
        window->statusBar()->showMessage(text);
        for (const int width : {800, 1000, 900}) {
            SCOPED_TRACE(width);
            window->resize(width, window->height());
            QCoreApplication::processEvents();
            EXPECT_LE(label.height(), most);
            EXPECT_LE(label.heightForWidth(label.width()), most) << "it is seen whole";
            EXPECT_GT(label.heightForWidth(label.width()), most * 3 / 4) << "as much as there is room for";
            EXPECT_TRUE(label.text().endsWith(more) && label.text().startsWith(QStringLiteral("It is ")));
            EXPECT_LT(window->statusBar()->height(), 2 * most);
        }
        EXPECT_LT(window->statusBar()->toolTip().size(), 1100);
        EXPECT_TRUE(window->statusBar()->toolTip().contains(more));
    }
    window->statusBar()->showMessage(QStringLiteral("short"));
    EXPECT_EQ(label.text(), QStringLiteral("short"));
}

TEST_F(Abandoned, UndoTakesWhatWasReadAwayAndTheOfferWithIt) {
    load();
    const editing::AnimationDocument read = workspace().documents.animation;
    ASSERT_TRUE(link().isVisible());
    choose("mnuEditUndo");
    EXPECT_EQ(workspace().documents.animation, editing::AnimationDocument());
    EXPECT_EQ(find<QScrollBar>("AniTotalScroll")->value(), 15);
    EXPECT_TRUE(isShown());
    EXPECT_FALSE(link().isVisible());
    EXPECT_EQ(status(), "");
    choose("mnuEditRedo");
    EXPECT_EQ(workspace().documents.animation, read);
    EXPECT_EQ(find<QScrollBar>("AniTotalScroll")->value(), 20);
    EXPECT_TRUE(isShown());
    EXPECT_FALSE(link().isVisible());
    EXPECT_TRUE(fake.sounds.waves.empty());
}
