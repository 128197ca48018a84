// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include "animation/frmRankings.h"
#include "editing/frmGetChar.h"
#include "shell/GlyphButton.h"
#include "shell/ScrollingCentre.h"
#include "shell/frmAbout.h"
#include "shell/frmOptions.h"
#include "support/Screens.h"
#include "ui/qt/MarkerShape.h"
#include "ui/qt/PictureWidget.h"
#include "ui/qt/WholePixels.h"

#include <QImage>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>
#include <array>
#include <cmath>

using editing::Page;
using support::ScreenCase;
using ui::qt::MarkerShape;
using ui::qt::PictureWidget;

namespace {

constexpr const char* PageEntries[] = {"mnuView_0", "mnuView_1", "mnuView_2"};

/// The program started on a screen.
class OnEachScreen : public MainWindow, public testing::WithParamInterface<ScreenCase> {
protected:
    void startThere(Page page = Page::Name) {
        fake.settings.write("options", "maketype", std::to_string(static_cast<int>(page)));
        window = std::make_unique<shell::frmVTM>(fake.platform);
        QScreen* const screen = support::ScreenOf(GetParam());
        window->setScreen(screen);
        window->move(screen->geometry().topLeft());
        ASSERT_TRUE(window->Form_Load({}).ok());
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        ASSERT_EQ(window->devicePixelRatioF(), scale());
    }

    /// Expects that a picture shows every block of pixels with `pixels` pixels of the screen on each side.
    static void expectWhole(PictureWidget& shown, int block, int pixels) {
        for (auto* const marker : shown.findChildren<MarkerShape*>()) {
            marker->hide();
        }
        const ui::Picture& picture = *shown.picture();
        // The animation page shows but the first rows.
        const bool isView = shown.viewSize() != shown.size();
        const QImage image = (isView ? shown.parentWidget() : &shown)->grab().toImage();
        const int width = picture.width() / block * pixels;
        const int height = (isView ? 15 * 16 : picture.height()) / block * pixels;
        ASSERT_GE(image.width(), width);
        ASSERT_GE(image.height(), height);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                ASSERT_EQ(image.pixel(x, y), picture.pixel(x / pixels * block, y / pixels * block))
                    << shown.objectName().toStdString() << ' ' << x << ',' << y;
            }
        }
    }

    [[nodiscard]] static int pixelsOf(int block) {
        return ui::qt::BlockPixels(block, scale(), support::ScreenOf(GetParam())->size());
    }

    [[nodiscard]] static double scale() { return GetParam().scale; }

    [[nodiscard]] shell::ScrollingCentre& centre() const { return *find<shell::ScrollingCentre>("center"); }
};

template <class Dialog>
PictureWidget& PictureIn(const Dialog& dialog, const char* name) {
    return *dialog.template findChild<PictureWidget*>(QLatin1String(name));
}

} // namespace

TEST_P(OnEachScreen, TheWindowFitsAndShowsAllOfEveryPage) {
    startThere();
    const QSize screen = support::ScreenOf(GetParam())->size();
    EXPECT_LE(window->width(), screen.width() - 10);
    EXPECT_LE(window->height(), screen.height() - 40);
    // Only where there is no room is there less around the columns.
    const int margin = find("ImgGrid")->mapTo(window.get(), QPoint()).x();
    EXPECT_GE(margin, screen.width() < 880 ? 2 : 12);
    for (const char* entry : PageEntries) {
        SCOPED_TRACE(entry);
        choose(entry);
        QCoreApplication::processEvents();
        EXPECT_EQ(centre().horizontalScrollBar()->maximum(), 0);
        EXPECT_EQ(centre().verticalScrollBar()->maximum(), 0);
        for (const QWidget* control : centre().widget()->findChildren<QWidget*>()) {
            const bool isMoved = control->objectName() == QLatin1String("AniPic") ||
                                 qobject_cast<const MarkerShape*>(control) != nullptr;
            if (control->isVisible() && !isMoved) {
                EXPECT_TRUE(control->parentWidget()->rect().contains(control->geometry()))
                    << control->metaObject()->className() << ' ' << control->objectName().toStdString();
            }
        }
    }
}

TEST_P(OnEachScreen, EveryButtonOfTheToolbarIsReached) {
    startThere();
    const auto* const toolbar = find<QToolBar>("Toolbar1");
    auto* const rest = find<QToolButton>("qt_toolbar_ext_button");
    const bool isSmall = support::ScreenOf(GetParam())->size().width() < 880;
    EXPECT_EQ(rest->isVisible(), isSmall);
    EXPECT_EQ(find("help")->isVisible(), !isSmall);
    if (!isSmall) {
        // The screen's scale may take a pixel of the window.
        window->resize(window->width() - 1, window->height());
        QCoreApplication::processEvents();
    } else {
        EXPECT_EQ(rest->accessibleName(), QStringLiteral("The other buttons"));
        EXPECT_EQ(rest->focusPolicy(), Qt::NoFocus);
        QTest::mouseClick(rest, Qt::LeftButton);
    }
    EXPECT_TRUE(QTest::qWaitFor([this] { return find("help")->isVisible(); }));
    for (const QAction* action : toolbar->actions()) {
        const QWidget* const button = toolbar->widgetForAction(const_cast<QAction*>(action));
        if (!action->isSeparator()) {
            EXPECT_TRUE(button->isVisible()) << action->objectName().toStdString();
            EXPECT_EQ(button->objectName(), action->objectName());
            EXPECT_EQ(button->accessibleName(), action->text());
            EXPECT_TRUE(QTest::qWaitFor([&] { return toolbar->rect().contains(button->geometry()); }))
                << action->objectName().toStdString();
        }
    }
    chooseAndUse<shell::frmAbout>("about", [](shell::frmAbout&) {});
}

TEST_P(OnEachScreen, EveryGlyphIsMadeOfWholePixels) {
    startThere();
    for (const char* entry : PageEntries) {
        choose(entry);
        press(Qt::Key_Home);
        type("Vortigo #8");
    }
    constexpr int Block = glyphs::CellBlock;
    expectWhole(*find<PictureWidget>("ImgGrid"), Block, GetParam().block);
    expectWhole(*find<PictureWidget>("NamePic"), Block, GetParam().block);
    expectWhole(*find<PictureWidget>("MacPic"), Block, GetParam().block);
    expectWhole(*find<PictureWidget>("AniPic"), Block, GetParam().block);
    EXPECT_EQ(find("NameScroll")->width(), find("NamePic")->width());
    EXPECT_EQ(find("MacNameScroll")->width(), find("MacPic")->width());
    EXPECT_EQ(find("MacScroll")->height(), find("MacPic")->height());
}

TEST_P(OnEachScreen, RowsThatOthersSeeMoveNothing) {
    startThere();
    const auto top = [this](const char* name) {
        return find(name)->mapTo(window.get(), QPoint()).y();
    };
    const std::array before{top("NamePic"), top("imgDir"), top("cmdKey_0")};
    click("ImgGrid", {5 * 16 + 8, 8}); // QuakeWorld and Quake2 leave that glyph out
    type("a");
    const auto isDrawn = [this](const QString& name) {
        const auto* const shown = window->findChild<PictureWidget*>(name);
        return shown != nullptr && shown->isVisible();
    };
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return isDrawn(QStringLiteral("picShown_1")) && isDrawn(QStringLiteral("picShown_2")); }));
    QCoreApplication::processEvents();
    EXPECT_EQ((std::array{top("NamePic"), top("imgDir"), top("cmdKey_0")}), before);
    auto& shown = *find<PictureWidget>("picShown_2");
    const int pixels = static_cast<int>(std::floor(shown.height() * scale() / glyphs::ArtworkCell));
    EXPECT_GE(pixels, std::floor(scale()));
    expectWhole(shown, glyphs::CellBlock, pixels);
}

TEST_P(OnEachScreen, TheGlyphButtonsAreMadeOfWholePixels) {
    startThere();
    for (const char* name : {"cmdFavorite_0", "cmdFavorite_1", "cmdFavorite_4"}) {
        auto* const button = find<shell::GlyphButton>(name);
        const QImage image = button->grab().toImage();
        const int pixels = GetParam().block;
        const int side = 8 * pixels;
        const QPoint corner(
            static_cast<int>(std::floor((button->width() * scale() - side) / 2 + 0.5)),
            static_cast<int>(std::floor((button->height() * scale() - side) / 2 + 0.5)));
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                ASSERT_EQ(
                    image.pixel(corner + QPoint(x, y)),
                    button->picture().pixel(x / pixels * 2, y / pixels * 2))
                    << name << ' ' << x << ',' << y;
            }
        }
    }
}

TEST_P(OnEachScreen, ThePicturesOfTheDialogsAreMadeOfWholePixels) {
    startThere();
    QTimer::singleShot(0, window.get(), [] {
        const auto* const picker = qobject_cast<editing::frmGetChar*>(QApplication::activeModalWidget());
        ASSERT_NE(picker, nullptr);
        QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Down);
        expectWhole(PictureIn(*picker, "ImgGrid"), 2, GetParam().block);
        expectWhole(PictureIn(*picker, "picChosen"), 8, pixelsOf(8));
        QApplication::activeModalWidget()->close();
    });
    press(Qt::Key_G, Qt::AltModifier);
    chooseAndUse<shell::frmOptions>("mnuToolsSettings", [](shell::frmOptions& options) {
        options.findChild<QTabWidget*>()->setCurrentIndex(3);
        expectWhole(PictureIn(options, "ImgGrid"), 2, GetParam().block);
        options.findChild<QTabWidget*>()->setCurrentIndex(5);
        QCoreApplication::processEvents();
        for (const char* name : {"picKey_0", "picKey_1", "picKey_2"}) {
            PictureWidget& key = PictureIn(options, name);
            expectWhole(key, 6, pixelsOf(6));
            const QWidget& strip = *key.parentWidget();
            EXPECT_TRUE(strip.contentsRect().contains(key.geometry())) << name;
        }
    });
    chooseAndUse<shell::frmAbout>("mnuAboutVTM", [](shell::frmAbout& about) {
        expectWhole(PictureIn(about, "picBanner"), 2, GetParam().block);
    });
}

TEST_P(OnEachScreen, ThePreviewIsMadeOfWholePixels) {
    QImage screenShot(640, 480, QImage::Format_RGB32);
    for (int y = 0; y < screenShot.height(); ++y) {
        for (int x = 0; x < screenShot.width(); ++x) {
            screenShot.setPixel(x, y, qRgb(x / 2 % 256, y / 2 % 256, (x / 2 + y / 2) % 2 * 255));
        }
    }
    const std::string file = (fake.directory.files / "shot.bmp").string();
    ASSERT_TRUE(screenShot.save(QString::fromStdString(file), "BMP"));
    startThere(Page::Animation);
    workspace().settings.screenshot = file;
    press(Qt::Key_Home);
    type("Vortigo #8 VTM!");
    chooseAndUse<animation::frmRankings>("mnuToolsAnimationViewer", [](animation::frmRankings& viewer) {
        viewer.findChild<QPushButton*>(QStringLiteral("cmdToEnd"))->click();
        PictureWidget& shot = PictureIn(viewer, "picScreenShot");
        PictureWidget& names = PictureIn(viewer, "AniPic");
        const auto pixels = static_cast<int>(std::lround(shot.width() * scale() * 2 / 640));
        EXPECT_GE(pixels, 2);
        expectWhole(shot, 2, pixels);
        // The row lies exactly where the board has its line.
        const QImage image = viewer.grab().toImage();
        const QPoint corner = ui::qt::WholePixels(QPointF(shot.pos()) * scale());
        const ui::Picture& rows = *names.picture();
        ASSERT_EQ(rows.height(), 15 * 16);
        for (int y = 0; y < 176 / 2 * pixels + 10 * pixels; ++y) {
            for (int x = 0; x < 320 * pixels; ++x) {
                const QPoint at(x / pixels * 2, y / pixels * 2);
                const bool isName = QRect(240, 176, 240, 16).contains(at);
                const QRgb expected =
                    isName ? rows.pixel(at.x() - 240, 14 * 16 + at.y() - 176)
                           : qRgb(at.x() / 2 % 256, at.y() / 2 % 256, (at.x() + at.y()) / 2 % 2 * 255);
                ASSERT_EQ(image.pixel(corner + QPoint(x, y)), expected) << at.x() << ',' << at.y();
            }
        }
    });
}

TEST_P(OnEachScreen, TheWindowFollowsToOtherScreens) {
    startThere();
    for (const ScreenCase& other : support::Screens) {
        SCOPED_TRACE(other.name);
        support::PutOnto(*window, other);
        for (const char* name : {"ImgGrid", "NamePic", "MacPic"}) {
            expectWhole(*find<PictureWidget>(name), glyphs::CellBlock, other.block);
        }
        expectWhole(*find<PictureWidget>("AniPic"), glyphs::CellBlock, other.block);
        EXPECT_EQ(find("NameScroll")->width(), find("NamePic")->width());
        EXPECT_EQ(
            find("AniPicBox")->height(), static_cast<int>(std::ceil(15 * 8 * other.block / other.scale)));
    }
}

INSTANTIATE_TEST_SUITE_P(Screens, OnEachScreen, testing::ValuesIn(support::Screens));

namespace {

class OnATinyScreen : public MainWindow {
protected:
    void startThere(Page page) {
        startOn(page);
        support::PutOnto(*window, support::TinyScreen);
        window->resize(1, 1);
        QCoreApplication::processEvents();
    }
};

} // namespace

TEST_F(OnATinyScreen, EverythingIsReachedByScrolling) {
    startThere(Page::Messages);
    EXPECT_LE(window->width(), 640 - 10);
    EXPECT_LE(window->height(), 480 - 40);
    auto& centre = *find<shell::ScrollingCentre>("center");
    EXPECT_GT(centre.horizontalScrollBar()->maximum(), 0);
    EXPECT_GT(centre.verticalScrollBar()->maximum(), 0);
    for (const char* name :
         {"ImgGrid", "cmdFavorite_0", "cmdKey_0", "MacPic", "MacScroll", "imgDir", "lblCurPos"}) {
        const QWidget* const control = find(name);
        centre.ensureWidgetVisible(find(name), 0, 0);
        EXPECT_FALSE(control->visibleRegion().isEmpty()) << name;
    }
}

TEST_F(OnATinyScreen, TheCursorStaysInView) {
    startThere(Page::Messages);
    auto& centre = *find<shell::ScrollingCentre>("center");
    const QWidget* const marker = find("MacPosShape");
    for (int column = 1; column <= 31; ++column) {
        EXPECT_EQ(marker->visibleRegion().boundingRect(), marker->rect()) << column;
        type("x");
    }
    EXPECT_EQ(centre.horizontalScrollBar()->value() > 0, true);
    press(Qt::Key_Home);
    EXPECT_EQ(marker->visibleRegion().boundingRect(), marker->rect());
}

TEST_F(OnATinyScreen, ACursorThatIsOutOfTheViewOfItsPageScrollsNothing) {
    startThere(Page::Animation);
    workspace().documents.animation.nameCount = 90;
    press(Qt::Key_Home);
    auto& centre = *find<shell::ScrollingCentre>("center");
    find<QScrollBar>("VScroll1")->setValue(60);
    centre.verticalScrollBar()->setValue(3);
    centre.horizontalScrollBar()->setValue(7);
    type("x");
    EXPECT_EQ(centre.verticalScrollBar()->value(), 3);
    EXPECT_EQ(centre.horizontalScrollBar()->value(), 7);
}
