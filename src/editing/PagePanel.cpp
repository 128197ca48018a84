// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/PagePanel.h"

#include "glyphs/GlyphWords.h"
#include "glyphs/RowText.h"
#include "ui/qt/CellMarks.h"
#include "ui/qt/MarkerShape.h"
#include "ui/qt/PictureWidget.h"

#include <QFrame>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStringList>
#include <QTimerEvent>
#include <QVBoxLayout>
#include <utility>

namespace editing {

namespace {

/// A scroll bar that also stops when a menu or a dialog, opened while it was held, gets the release.
class HeldScrollBar final : public QScrollBar {
public:
    using QScrollBar::QScrollBar;

protected:
    void timerEvent(QTimerEvent* event) override {
        if (repeatAction() != SliderNoAction && QGuiApplication::mouseButtons() == Qt::NoButton) {
            QMouseEvent release(
                QEvent::MouseButtonRelease, QPointF(), mapToGlobal(QPointF()), Qt::LeftButton, Qt::NoButton,
                Qt::NoModifier);
            mouseReleaseEvent(&release);
            return;
        }
        QScrollBar::timerEvent(event);
    }
};

} // namespace

PagePanel::PagePanel(
    glyphs::PagePicture& picture, const QString& pictureName, const QString& markerName, QWidget* parent)
    : QWidget(parent)
    , m_picture(picture)
    , m_widget(new ui::qt::PictureWidget(this))
    , m_marker(new ui::qt::MarkerShape(m_widget)) {
    m_widget->setObjectName(pictureName);
    m_widget->setBlock(glyphs::CellBlock);
    m_widget->setPicture(&picture.pixels());
    m_marker->show();
    m_marker->setObjectName(markerName);
    m_widget->setCurrentCell(1, 1);
    describeCells();
    m_widget->setHoverTracking(true);
    connect(m_widget, &ui::qt::PictureWidget::pointerMoved, this, &PagePanel::point);
    connect(m_widget, &ui::qt::PictureWidget::pointerLeft, this, [this] { Q_EMIT pointedAt({}); });
    connect(m_widget, &ui::qt::PictureWidget::pressed, this, [this](QPoint pixel, Qt::MouseButton button) {
        Q_EMIT picturePressed(pixel.x(), pixel.y(), button);
    });
    connect(m_widget, &ui::qt::PictureWidget::fitted, this, [this] {
        fitPicture();
        tellSize();
    });
}

void PagePanel::tellSize() {
    // The window is as large as its largest page, which need not be in view: layouts out of view wait for
    // that.
    QWidget* around = m_widget->parentWidget();
    for (; around != parentWidget(); around = around->parentWidget()) {
        if (around->layout() != nullptr) {
            around->layout()->activate();
        }
    }
    if (around != nullptr) {
        around->updateGeometry();
    }
}

void PagePanel::describeCells() {
    ui::qt::PictureCells cells;
    cells.columns = m_picture.pixels().width() / glyphs::CellSide;
    cells.side = glyphs::CellSide;
    cells.rows = [this] {
        return rowsInUse();
    };
    cells.cellText = [this](int row, int column) {
        return QString::fromStdString(glyphs::GlyphName(glyphAt(row, column)));
    };
    cells.cellNote = [this](int row, int column) {
        const GlyphCode code = glyphAt(row, column);
        return glyphs::BreaksScriptLine(code) ? tr("Glyph %1 breaks the line that it is saved in").arg(code)
                                              : QString();
    };
    cells.rowText = [this](int row) {
        return tr("%1: %2").arg(rowName(row), QString::fromStdString(glyphs::ReadableRow(rows().row(row))));
    };
    cells.toolTip = [this, note = cells.cellNote](int row, int column) {
        const GlyphCode code = glyphAt(row, column);
        // Most of a page is blank, and of blanks there is nothing to tell.
        const QString text =
            m_glyphText && code != glyphs::BlankGlyph ? m_glyphText(code) : note(row, column);
        return QStringList{m_widget->toolTip(), text}.join(QLatin1Char('\n')).trimmed();
    };
    m_widget->setCells(std::move(cells));
}

void PagePanel::point(QPoint pixel) {
    const int column = pixel.x() / glyphs::CellSide + 1;
    const int row = pixel.y() / glyphs::CellSide + 1;
    const bool isCell = m_widget->cellIndex(row, column) >= 0;
    Q_EMIT pointedAt(isCell ? std::optional(glyphAt(row, column)) : std::nullopt);
}

void PagePanel::showDamage() {
    m_widget->showDamage(m_picture.takeDamage());
}

void PagePanel::takeFocus() {
    m_widget->setFocus();
}

const QWidget& PagePanel::marker() const {
    return *m_marker;
}

void PagePanel::setZoom(int zoom) {
    if (zoom != m_widget->zoom()) {
        m_widget->setZoom(zoom);
        tellSize();
    }
}

QSize PagePanel::leastSizeAt(int zoom) const {
    return minimumSizeHint() + m_widget->growthTo(zoom);
}

void PagePanel::blink() {
    m_marker->toggleStyle();
}

void PagePanel::setMarkerColour(ui::Pixel colour) {
    m_marker->setColour(QColor::fromRgb(colour));
}

void PagePanel::mark(const std::vector<CellBlock>& cells) {
    if (m_marks == nullptr) {
        if (cells.empty()) {
            return;
        }
        m_marks = new ui::qt::CellMarks(m_widget);
    }
    std::vector<ui::Rect> parts;
    parts.reserve(cells.size());
    for (const CellBlock& cell : cells) {
        parts.push_back(m_widget->cellPart(cell.row, cell.column));
    }
    m_marks->mark(std::move(parts));
}

void PagePanel::setPointer(int cursorStyle) {
    m_widget->setPointer(cursorStyle);
}

void PagePanel::moveMarker(int column, int row) {
    m_marker->moveToCell(column, row);
    m_widget->setCurrentCell(row, column);
}

QScrollBar* PagePanel::makeScrollBar(
    Qt::Orientation orientation, const QString& name, const QString& accessibleName, int minimum,
    int maximum) {
    auto* bar = new HeldScrollBar(orientation, this);
    bar->setObjectName(name);
    bar->setAccessibleName(accessibleName);
    bar->setRange(minimum, maximum);
    bar->setPageStep(1);
    bar->setFocusPolicy(Qt::NoFocus);
    connect(bar, &QScrollBar::actionTriggered, this, &PagePanel::userActed);
    return bar;
}

void PagePanel::setBar(QScrollBar* bar, int value) {
    const QSignalBlocker silent(bar);
    bar->setValue(value);
}

QWidget* PagePanel::makeFrame() {
    auto* frame = new QFrame(this);
    frame->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    auto* layout = new QVBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_widget);
    frame->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    return frame;
}

} // namespace editing
