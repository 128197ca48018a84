// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "PaintRecorder.h"
#include "support/Screens.h"
#include "ui/qt/MarkerShape.h"
#include "ui/qt/PictureWidget.h"
#include "ui/qt/WholePixels.h"

#include <QImage>
#include <QMouseEvent>
#include <QSignalSpy>
#include <cmath>
#include <map>

namespace {

using support::ScreenCase;
using ui::qt::MarkerShape;
using ui::qt::PictureWidget;

constexpr int Cell = 16;
constexpr int Block = 2;

/// Cells of an artwork no two pixels of which are alike, each enlarged to a block.
ui::Picture Artwork(int columns, int rows) {
    ui::Picture picture(columns * Cell, rows * Cell);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const auto number = static_cast<unsigned>(y / Block * (picture.width() / Block) + x / Block) + 1;
            picture.setPixel(x, y, ui::OpaquePixel(number >> 16U, number >> 8U, number));
        }
    }
    return picture;
}

/// Where each colour is found in an image.
std::map<QRgb, QRect> Areas(const QImage& image) {
    std::map<QRgb, QRect> areas;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            areas[image.pixel(x, y)] |= QRect(x, y, 1, 1);
        }
    }
    return areas;
}

QImage AsShown(QWidget& widget) {
    return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// A window on a screen, with a picture somewhere in it.
class OnAScreen : public testing::TestWithParam<ScreenCase> {
protected:
    void SetUp() override {
        window.resize(320, 240);
        picture.setBlock(Block);
        picture.setPicture(&artwork);
        picture.move(13, 37);
        cells.columns = 4;
        cells.side = Cell;
        cells.rows = [] {
            return 3;
        };
        picture.setCells(cells);
        support::PutOnto(window, GetParam());
    }

    /// Expects every pixel of the artwork as a block of the same number of pixels, one beside the other.
    void expectWholeBlocks(int block) {
        const std::map<QRgb, QRect> areas = Areas(AsShown(window));
        const QPoint origin = areas.at(artwork.pixel(0, 0)).topLeft();
        for (int y = 0; y < artwork.height(); y += Block) {
            for (int x = 0; x < artwork.width(); x += Block) {
                const QRect expected(origin + QPoint(x, y) / Block * block, QSize(block, block));
                const auto found = areas.find(artwork.pixel(x, y));
                ASSERT_NE(found, areas.end()) << x << ',' << y;
                ASSERT_EQ(found->second, expected) << x << ',' << y;
            }
        }
        const QRectF place(QPointF(picture.pos()) * scale(), QSizeF(picture.size()) * scale());
        EXPECT_LE(std::abs(origin.x() - place.x()), 0.5);
        EXPECT_LE(std::abs(origin.y() - place.y()), 0.5);
        EXPECT_LT(place.width() - artwork.width() / Block * block, scale());
        EXPECT_GE(place.width() - artwork.width() / Block * block, 0);
        EXPECT_LT(place.height() - artwork.height() / Block * block, scale());
        EXPECT_GE(place.height() - artwork.height() / Block * block, 0);
    }

    [[nodiscard]] static double scale() { return GetParam().scale; }

    ui::Picture artwork = Artwork(4, 3);
    ui::qt::PictureCells cells;
    QWidget window;
    PictureWidget picture{&window};
};

TEST_P(OnAScreen, EveryPixelOfTheArtworkIsTheSameNumberOfPixels) {
    for (const QPoint place : {QPoint(13, 37), QPoint(14, 38), QPoint(15, 39), QPoint(16, 40)}) {
        picture.move(place);
        expectWholeBlocks(GetParam().block);
    }
}

TEST_P(OnAScreen, ThePointerIsOverThePixelThatIsSeenThere) {
    const QImage image = AsShown(window);
    QPoint pixel;
    QObject::connect(&picture, &PictureWidget::pressed, [&](QPoint where) { pixel = where; });
    for (const auto& [colour, area] : Areas(image)) {
        if ((colour & 0xFFFFFFU) > static_cast<unsigned>(artwork.width() * artwork.height() / 4)) {
            continue; // the window around it
        }
        for (const QPoint at : {area.topLeft(), area.center(), area.bottomRight()}) {
            for (const double part : {0.0, 0.5, 0.99}) {
                const QPointF local = (QPointF(at) + QPointF(part, part)) / scale() - picture.pos();
                QMouseEvent press(
                    QEvent::MouseButtonPress, local, picture.mapToGlobal(local), Qt::LeftButton,
                    Qt::LeftButton, Qt::NoModifier);
                QApplication::sendEvent(&picture, &press);
                ASSERT_EQ(artwork.pixel(pixel.x(), pixel.y()), colour) << at.x() << ',' << at.y();
            }
        }
    }
}

TEST_P(OnAScreen, AMarkerStandsExactlyOnItsCell) {
    MarkerShape marker(&picture, MarkerShape::Style::Solid);
    const QImage without = AsShown(window);
    const QPoint origin = Areas(without).at(artwork.pixel(0, 0)).topLeft();
    const int side = Cell / Block * GetParam().block;
    const int thickness = std::max(1, static_cast<int>(std::floor(side / 16.0 + 0.5)));
    marker.setColour(Qt::magenta);
    marker.show();
    for (int row = 1; row <= 3; ++row) {
        for (int column = 1; column <= 4; ++column) {
            marker.moveToCell(column, row);
            const QRect cell(origin + QPoint(column - 1, row - 1) * side, QSize(side, side));
            const QRect inside = cell.adjusted(thickness, thickness, -thickness, -thickness);
            const QImage with = AsShown(window);
            for (int y = 0; y < with.height(); ++y) {
                for (int x = 0; x < with.width(); ++x) {
                    const bool isOutline = cell.contains(x, y) && !inside.contains(x, y);
                    const QRgb expected = isOutline ? QColor(Qt::magenta).rgb() : without.pixel(x, y);
                    ASSERT_EQ(with.pixel(x, y), expected) << row << ' ' << column << ": " << x << ',' << y;
                }
            }
        }
    }
}

TEST_P(OnAScreen, ACellThatChangesIsRepaintedAndLittleElse) {
    for (int row = 1; row <= 3; ++row) {
        for (int column = 1; column <= 4; ++column) {
            QImage image = AsShown(window);
            const ui::Rect cell{(column - 1) * Cell, (row - 1) * Cell, Cell, Cell};
            artwork.fill(
                cell, ui::OpaquePixel(255, static_cast<unsigned>(row), static_cast<unsigned>(column)));
            PaintRecorder recorder(picture);
            picture.showDamage(cell);
            QCoreApplication::processEvents();
            const QRect painted = recorder.painted().boundingRect();
            const int most = static_cast<int>(std::ceil(Cell * GetParam().block / (Block * scale())));
            const int margin = scale() == std::floor(scale()) ? 0 : 3;
            EXPECT_LE(painted.width(), most + margin);
            EXPECT_LE(painted.height(), most + margin);
            const QRect inWindow = painted.translated(picture.pos());
            image.setDevicePixelRatio(scale());
            window.render(&image, inWindow.topLeft(), inWindow);
            image.setDevicePixelRatio(1);
            QImage whole = AsShown(window);
            whole.setDevicePixelRatio(1);
            EXPECT_EQ(image, whole) << row << ' ' << column;
        }
    }
}

TEST_P(OnAScreen, AnAreaHoldsItsCellWhereverItsEdgesAreRoundedTo) {
    for (int place = 0; place < 8; ++place) {
        const QPointF corner = QPointF(place, place) * scale();
        for (int column = 1; column <= 4; ++column) {
            const ui::Rect cell = picture.cellPart(2, column);
            const QRect area = picture.areaOf(cell);
            const QRect pixels = picture.pixelsOf(cell, corner, scale());
            EXPECT_LE(std::ceil(corner.x() + area.left() * scale()), pixels.left());
            EXPECT_LE(std::ceil(corner.y() + area.top() * scale()), pixels.top());
            EXPECT_GE(std::floor(corner.x() + (area.right() + 1) * scale()), pixels.right() + 1);
            EXPECT_GE(std::floor(corner.y() + (area.bottom() + 1) * scale()), pixels.bottom() + 1);
        }
    }
}

TEST_P(OnAScreen, TheCellsOfAssistiveToolsLieSideBySide) {
    const QImage image = AsShown(window);
    const QRect bounds = picture.rect().adjusted(-1, -1, 1, 1);
    for (int row = 1; row <= 3; ++row) {
        for (int column = 1; column <= 4; ++column) {
            const QRect cell = picture.cellRect(row, column);
            EXPECT_TRUE(bounds.contains(cell));
            EXPECT_EQ(picture.cellRect(row, column + 1).left(), cell.right() + 1);
            EXPECT_EQ(picture.cellRect(row + 1, column).top(), cell.bottom() + 1);
            const QPointF middle = (QRectF(cell).center() + picture.pos()) * scale();
            const auto number = static_cast<int>(
                image.pixel(static_cast<int>(middle.x()), static_cast<int>(middle.y())) & 0xFFFFFFU);
            EXPECT_EQ((number - 1) % (4 * 8) / 8, column - 1);
            EXPECT_EQ((number - 1) / (4 * 8) / 8, row - 1);
        }
    }
}

TEST_P(OnAScreen, AViewShowsItsRowsAndNothingOfTheirNeighbours) {
    constexpr int Rows = 40;
    constexpr int RowsInView = 7;
    ui::Picture column(Cell, Rows * Cell);
    const auto colourOf = [](int row) {
        return ui::OpaquePixel(200, 0, static_cast<unsigned>(row));
    };
    for (int row = 0; row < Rows; ++row) {
        column.fill({0, row * Cell, Cell, Cell}, colourOf(row));
    }
    picture.hide();
    QWidget box(&window);
    PictureWidget tall(&box);
    tall.setBlock(Block);
    tall.setPicture(&column);
    tall.setView(0, RowsInView * Cell);
    box.setGeometry(QRect(QPoint(17, 21), tall.viewSize()));
    MarkerShape below(&tall, MarkerShape::Style::Solid);
    below.setColour(Qt::magenta);
    below.show();
    box.show();
    const int side = Cell / Block * GetParam().block;
    const QPoint origin = ui::qt::WholePixels(QPointF(box.pos()) * scale());
    QCoreApplication::processEvents();
    int topBefore = 0;
    for (const int top : {1, 0, 2, 3, 4, 17, 32, 33, 0}) {
        PaintRecorder recorder(tall);
        tall.setView(top * Cell, RowsInView * Cell);
        QCoreApplication::processEvents();
        const bool isWhole = scale() == std::floor(scale());
        const int fresh = isWhole ? std::min(std::abs(top - topBefore), RowsInView) : RowsInView;
        EXPECT_GE(recorder.pixels(), fresh * Cell * tall.width() * box.height() / (RowsInView * Cell));
        topBefore = top;
        recorder.forget();
        tall.setView(top * Cell, RowsInView * Cell);
        QCoreApplication::processEvents();
        EXPECT_EQ(recorder.pixels(), 0) << "it is there already";
        below.moveToCell(1, top + RowsInView + 1);
        const std::map<QRgb, QRect> areas = Areas(AsShown(window));
        for (int row = 0; row < Rows; ++row) {
            const auto found = areas.find(colourOf(row));
            if (row < top || row >= top + RowsInView) {
                EXPECT_EQ(found, areas.end()) << top << ' ' << row;
            } else {
                ASSERT_NE(found, areas.end()) << top << ' ' << row;
                EXPECT_EQ(found->second, QRect(origin + QPoint(0, (row - top) * side), QSize(side, side)));
            }
        }
        EXPECT_EQ(areas.count(QColor(Qt::magenta).rgb()), 0U) << "the marker below the view";
    }
}

TEST_P(OnAScreen, TheSizeFollowsTheWindowFromScreenToScreen) {
    MarkerShape marker(&picture);
    marker.moveToCell(3, 2);
    for (const ScreenCase& other : support::Screens) {
        SCOPED_TRACE(other.name);
        QSignalSpy fitted(&picture, &PictureWidget::fitted);
        support::PutOnto(window, other);
        const bool isAlike = other.scale == scale() && other.block == GetParam().block;
        EXPECT_TRUE(isAlike || !fitted.isEmpty());
        const auto extent = [&other](int pixels) {
            return static_cast<int>(std::ceil(pixels * other.block / (Block * other.scale)));
        };
        EXPECT_EQ(picture.size(), QSize(extent(4 * Cell), extent(3 * Cell)));
        EXPECT_TRUE(marker.geometry().contains(picture.cellRect(2, 3).center()));
        EXPECT_LE(marker.width(), extent(Cell) + 3);
        support::PutOnto(window, GetParam());
        expectWholeBlocks(GetParam().block);
    }
}

INSTANTIATE_TEST_SUITE_P(Screens, OnAScreen, testing::ValuesIn(support::Screens));

TEST(BlockPixels, AreTheNearestWholeNumber) {
    const QSize large(1920, 1080);
    for (const auto& [scale, pixels] :
         {std::pair(1.0, 2),
          {1.1, 2},
          {1.2, 2},
          {1.25, 3},
          {1.3, 3},
          {1.5, 3},
          {1.6, 3},
          {1.75, 4},
          {2.0, 4},
          {2.25, 5},
          {3.0, 6},
          {0.75, 2},
          {0.5, 1},
          {0.2, 1}}) {
        EXPECT_EQ(ui::qt::BlockPixels(2, scale, large), pixels) << scale;
    }
}

TEST(BlockPixels, AreTheNumberBelowWhereTheScreenHasNoRoomForMore) {
    EXPECT_EQ(ui::qt::BlockPixels(2, 1.25, {960, 720}), 3);
    EXPECT_EQ(ui::qt::BlockPixels(2, 1.25, {959, 720}), 2);
    EXPECT_EQ(ui::qt::BlockPixels(2, 1.25, {960, 719}), 2);
    EXPECT_EQ(ui::qt::BlockPixels(2, 1.25, {819, 614}), 2);
    EXPECT_EQ(ui::qt::BlockPixels(2, 1.5, {640, 480}), 3) << "what is exact is taken everywhere";
    EXPECT_EQ(ui::qt::BlockPixels(2, 0.75, {800, 600}), 1);
}

} // namespace
