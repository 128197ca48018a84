// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "MainWindow.h"

#include "shell/GlyphButton.h"
#include "shell/ProgressIndicator.h"
#include "support/Contrast.h"

#include <QAction>
#include <QImage>
#include <QLabel>
#include <QToolButton>
#include <algorithm>
#include <cmath>
#include <string>

using editing::Page;
using support::Contrast;

namespace {

class Looks : public MainWindow {
protected:
    /// A widget as a screen of that scale shows it.
    [[nodiscard]] static QImage shown(QWidget& widget, double scale) {
        QImage image(
            static_cast<int>(std::ceil(widget.width() * scale)),
            static_cast<int>(std::ceil(widget.height() * scale)), QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::magenta);
        widget.render(&image);
        return image;
    }
};

/// A colour, which may be translucent, as it looks on another.
QColor over(const QColor& background, const QColor& colour) {
    const auto mixed = [alpha = colour.alphaF()](float below, float above) {
        return below + (above - below) * alpha;
    };
    return QColor::fromRgbF(
        mixed(background.redF(), colour.redF()), mixed(background.greenF(), colour.greenF()),
        mixed(background.blueF(), colour.blueF()));
}

int countOf(const QImage& image, const QColor& colour) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixelColor(x, y) == colour ? 1 : 0;
        }
    }
    return count;
}

} // namespace

TEST_F(Looks, TheGlyphButtonsShowWholePixelsOnScaledScreens) {
    startOn(Page::Name);
    auto* button = find<shell::GlyphButton>("cmdFavorite_1");
    const ui::Picture& glyph = button->picture();
    for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
        SCOPED_TRACE(scale);
        const QImage image = shown(*button, scale);
        const int side = static_cast<int>(glyph.width() * scale);
        const int left = (image.width() - side + 1) / 2;
        const int top = (image.height() - side + 1) / 2;
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                const auto at = [scale](int place) {
                    return static_cast<int>((place + 0.5) / scale);
                };
                ASSERT_EQ(image.pixel(left + x, top + y), glyph.pixel(at(x), at(y))) << x << ',' << y;
            }
        }
    }
}

TEST_F(Looks, AModeThatIsOnIsLitInDarkThemesToo) {
    startOn(Page::Name);
    QPalette dark(QColor(0x40, 0x40, 0x40));
    const QColor bright(0x3D, 0xAE, 0xE9);
    const QColor dull(0x12, 0x60, 0x8A);
    const QColor text(0xF5, 0xF5, 0xF5);
    dark.setColor(QPalette::ButtonText, text);
    for (const char* name : {"cmdKey_0", "cmdKey_1", "cmdKey_2", "cmdKey_3"}) {
        SCOPED_TRACE(name);
        auto* button = find<QToolButton>(name);
        const auto lit = [&](const QColor& highlight, const QColor& expected) {
            dark.setColor(QPalette::Highlight, highlight);
            button->setPalette(dark);
            button->setChecked(false);
            const int off = countOf(button->grab().toImage(), expected);
            button->setChecked(true);
            return countOf(button->grab().toImage(), expected) - off;
        };
        EXPECT_GT(lit(bright, bright), button->width());
        EXPECT_GT(lit(dull, text), button->width()) << "such a highlight is not seen on the button";
    }
}

TEST_F(Looks, TheCaptionsOfTheTabsAreBlackOnTheirGreys) {
    startOn(Page::Name);
    for (const char* name : {"picTab_0", "picTab_1", "picTab_2"}) {
        SCOPED_TRACE(name);
        const QImage image = find(name)->grab().toImage();
        EXPECT_GT(countOf(image, Qt::black), 0);
        EXPECT_EQ(countOf(image, Qt::white), 0);
    }
}

TEST_F(Looks, EveryLabelStandsOutFromTheWindow) {
    startOn(Page::Name);
    for (const QLabel* label : window->findChildren<QLabel*>()) {
        const QColor background = label->palette().color(QPalette::Window);
        const QColor text = over(background, label->palette().color(label->foregroundRole()));
        EXPECT_GE(Contrast(text, background), 4.5) << label->text().toStdString();
    }
}

TEST_F(Looks, TheGridFillsItsFrame) {
    startOn(Page::Name);
    const auto* const grid = find<QWidget>("ImgGrid");
    EXPECT_EQ(grid->geometry(), grid->parentWidget()->contentsRect());
}

TEST_F(Looks, TheCursorsPlaceHasRoomForTheLongest) {
    startOn(Page::Animation);
    const auto* const place = find<QLabel>("lblCurPos");
    EXPECT_GE(place->width(), place->fontMetrics().horizontalAdvance(QStringLiteral("15,90")));
    const QRect before = place->geometry();
    find<QScrollBar>("AniTotalScroll")->setValue(90);
    press(Qt::Key_End, Qt::ControlModifier);
    press(Qt::Key_End);
    EXPECT_EQ(place->geometry(), before);
}

TEST_F(Looks, TheProgressIsSeenOnlyWhileAPageIsPainted) {
    startOn(Page::Animation);
    auto* const progress = find<shell::ProgressIndicator>("picProgress");
    const QRect place = progress->geometry();
    const auto isEmpty = [progress] {
        const QImage image = progress->grab().toImage();
        return countOf(image, image.pixelColor(0, 0)) == image.width() * image.height();
    };
    EXPECT_TRUE(isEmpty());
    progress->showPercentage(50);
    EXPECT_FALSE(isEmpty());
    choose("mnuNewAni");
    EXPECT_TRUE(isEmpty());
    EXPECT_EQ(progress->geometry(), place) << "nothing beside it has moved";
}

TEST_F(Looks, TheViewMenuMarksThePageInView) {
    startOn(Page::Messages);
    for (const int page : {1, 0, 0, 2}) {
        choose(("mnuView_" + std::to_string(page)).c_str());
        for (int other = 0; other < 3; ++other) {
            const auto* const entry = find<QAction>(("mnuView_" + std::to_string(other)).c_str());
            EXPECT_EQ(entry->isChecked(), other == page);
        }
    }
}

TEST_F(Looks, TheNumbersOfTheNamesEndAtOneLine) {
    startOn(Page::Animation);
    const auto* const first = find<QLabel>("lblNum_0");
    const auto* const last = find<QLabel>("lblNum_1");
    EXPECT_EQ(first->geometry().right(), last->geometry().right());
    EXPECT_TRUE(first->alignment().testFlag(Qt::AlignRight));
    EXPECT_TRUE(last->alignment().testFlag(Qt::AlignRight));
}

TEST_F(Looks, TheFrequentGlyphsSayWhereTheyComeFromUntilTheyAreCounted) {
    startOn(Page::Name);
    const auto* const label = find<QLabel>("lblFrequent");
    const QRect place = label->geometry();
    EXPECT_EQ(label->text(), QStringLiteral("Frequent: use \u03A3"));
    EXPECT_LE(label->fontMetrics().horizontalAdvance(label->text()), label->width());
    type("a");
    QTest::mouseClick(find("cmdCalcFrequent"), Qt::LeftButton);
    EXPECT_EQ(label->text(), QStringLiteral("Frequent"));
    EXPECT_EQ(label->geometry(), place);
}

TEST_F(Looks, TheButtonOfTheToolsWithoutRoomIsSeenInDarkThemesToo) {
    startOn(Page::Name);
    auto* const rest = find<QToolButton>("qt_toolbar_ext_button");
    for (const auto& [back, front] : {std::pair(Qt::black, Qt::white), std::pair(Qt::white, Qt::black)}) {
        QPalette palette = rest->palette();
        palette.setColor(QPalette::Window, back);
        palette.setColor(QPalette::Button, back);
        palette.setColor(QPalette::ButtonText, front);
        rest->setPalette(palette);
        rest->resize(16, 24);
        const QImage image = rest->grab().toImage();
        int seen = 0;
        for (int y = 4; y < image.height() - 4; ++y) {
            for (int x = 3; x < image.width() - 3; ++x) {
                seen += Contrast(image.pixelColor(x, y), back) > 4.5 ? 1 : 0;
            }
        }
        EXPECT_GT(seen, 8);
    }
}

TEST_F(Looks, TheCaptionsOfTheGlyphButtonsStandApart) {
    startOn(Page::Name);
    const auto labels = find("glyphColumn")->findChildren<QLabel*>();
    const auto placeOf = [&labels](const char* caption) {
        const auto found = std::ranges::find(labels, QLatin1String(caption), &QLabel::text);
        return found == labels.end() ? QRect() : (*found)->geometry();
    };
    const QRect rightClick = placeOf("Right click");
    const int apart = rightClick.left() - placeOf("Favorites").right();
    EXPECT_GE(apart, 8);
    EXPECT_GE(apart, 4 * (find("cmdRightGlyph")->x() - rightClick.right())) << "its glyph belongs to it";
    EXPECT_GE(find("lblFrequent")->x() - find("cmdRightGlyph")->geometry().right(), 6);
}
