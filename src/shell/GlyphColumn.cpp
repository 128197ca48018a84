// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/GlyphColumn.h"

#include "editing/GlyphCells.h"
#include "editing/GlyphFacts.h"
#include "editing/mdlKey.h"
#include "glyphs/mdlSwitches.h"
#include "shell/ControlAccess.h"
#include "shell/GlyphButton.h"
#include "shell/GlyphFinder.h"
#include "shell/ModeButton.h"
#include "shell/Workspace.h"
#include "ui/qt/CellMarks.h"
#include "ui/qt/LineLabel.h"
#include "ui/qt/MarkerShape.h"
#include "ui/qt/PictureWidget.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

namespace shell {

using glyphs::GlyphCode;

namespace {

struct ModeText {
    const char* caption;
    const char* tooltip;
};

constexpr std::array<ModeText, 4> ModeTexts{{
    {"Color 2", "Type glyphs in color 2 (Scroll Lock)"},
    {"Insert", "Insert glyphs before the cursor instead of overwriting (Insert)"},
    {"Caps", "Type the shifted glyph of every key (Caps Lock)"},
    {"Num Pad", "The number pad types digits instead of moving the cursor (Num Lock)"},
}};

/// The glyph under a pixel of the glyph grid; -1 outside it.
int GlyphAt(QPoint pixel) {
    return glyphs::GridHitTest(pixel.x() * glyphs::TwipsPerPixel, pixel.y() * glyphs::TwipsPerPixel);
}

} // namespace

GlyphColumn::GlyphColumn(const Workspace& workspace, QWidget* parent)
    : QWidget(parent)
    , m_workspace(workspace)
    , ImgGrid(new ui::qt::PictureWidget(this))
    , GridPosShape(new ui::qt::MarkerShape(ImgGrid))
    , m_readout(new GlyphReadout(workspace, this))
    , lblFrequent(new ui::qt::LineLabel(this))
    , cmdCalcFrequent(new QToolButton(this)) {
    setObjectName(QStringLiteral("glyphColumn"));
    setAccessibleName(tr("Glyphs"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(makeGrid());
    layout->addWidget(m_readout);
    layout->addLayout(makeGlyphButtons());
    layout->addWidget(new QLabel(tr("Typing"), this));
    layout->addLayout(makeModeButtons());
    layout->addStretch(1);
    describeKeys();
}

QWidget* GlyphColumn::makeGrid() {
    auto* frame = new QFrame(this);
    frame->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    auto* layout = new QVBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    ImgGrid->setObjectName(QStringLiteral("ImgGrid"));
    ImgGrid->setAccessibleName(tr("Glyph grid"));
    ImgGrid->setBlock(glyphs::CellBlock);
    ImgGrid->setHoverTracking(true);
    ImgGrid->setCells(editing::GlyphGridCells(true, [this](GlyphCode code) { return glyphText(code); }));
    GridPosShape->setObjectName(QStringLiteral("GridPosShape"));
    layout->addWidget(ImgGrid);
    frame->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(ImgGrid, &ui::qt::PictureWidget::pressed, this, &GlyphColumn::ImgGrid_MouseDown);
    connect(ImgGrid, &ui::qt::PictureWidget::pointerMoved, this, &GlyphColumn::ImgGrid_MouseMove);
    connect(ImgGrid, &ui::qt::PictureWidget::pointerLeft, this, [this] { pointAt({}); });
    return frame;
}

GlyphButton* GlyphColumn::makeGlyphButton(const QString& title, const QString& name, const QString& toolTip) {
    auto* button = new GlyphButton(title, this);
    button->setObjectName(name);
    button->setToolTip(toolTip);
    AddToToolTip(*button, [this, button] { return glyphText(button->glyph()); });
    connect(button, &GlyphButton::pointedAt, this, [this, button](bool isOver) {
        pointAt(isOver ? std::optional(button->glyph()) : std::nullopt);
    });
    return button;
}

QLayout* GlyphColumn::makeFavouritesCaption() {
    auto* row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(new QLabel(tr("Favorites"), this));
    row->addSpacing(8);
    row->addStretch(1);
    row->addWidget(new QLabel(tr("Right click"), this));
    cmdRightGlyph = makeGlyphButton(
        tr("Glyph of the right mouse button"), QStringLiteral("cmdRightGlyph"),
        tr("A right click on a page places this character, a right click here changes it"));
    cmdRightGlyph->setBare();
    connect(cmdRightGlyph, &GlyphButton::mouseDown, this, &GlyphColumn::rightGlyphPressed);
    row->addWidget(cmdRightGlyph);
    return row;
}

QLayout* GlyphColumn::makeGlyphButtons() {
    const auto makeGroup = [](QLayout* caption, QLayout* row) {
        auto* group = new QVBoxLayout;
        group->setSpacing(3);
        group->addLayout(caption);
        group->addLayout(row);
        return group;
    };
    auto* favourites = new QHBoxLayout;
    favourites->setSpacing(2);
    for (std::size_t i = 0; i < cmdFavorite.size(); ++i) {
        GlyphButton* const button = makeGlyphButton(
            tr("Favorite glyph %1").arg(i + 1), QStringLiteral("cmdFavorite_%1").arg(i),
            tr("Click to place this character, Right click to change"));
        connect(button, &GlyphButton::mouseDown, this, [this, button, i](Qt::MouseButton pressed) {
            if (pressed == Qt::RightButton) {
                // The picker gets the release that would let the button up.
                button->setDown(false);
            }
            Q_EMIT favouritePressed(static_cast<int>(i), pressed);
        });
        favourites->addWidget(button);
        cmdFavorite[i] = button;
    }
    auto* frequents = new QHBoxLayout;
    frequents->setSpacing(2);
    for (std::size_t i = 0; i < cmdFrequent.size(); ++i) {
        GlyphButton* const button = makeGlyphButton(
            tr("Frequent glyph %1").arg(i + 1), QStringLiteral("cmdFrequent_%1").arg(i),
            tr("Click to place this character"));
        connect(button, &GlyphButton::mouseDown, this, [this, i] {
            Q_EMIT frequentPressed(static_cast<int>(i));
        });
        frequents->addWidget(button);
        cmdFrequent[i] = button;
    }
    lblFrequent->setObjectName(QStringLiteral("lblFrequent"));
    // The sign is a letter of every font: no theme has to be asked for an icon.
    cmdCalcFrequent->setObjectName(QStringLiteral("cmdCalcFrequent"));
    cmdCalcFrequent->setAccessibleName(tr("Calculate frequent glyphs"));
    cmdCalcFrequent->setToolTip(tr("Click here to calculate your most frequent characters"));
    cmdCalcFrequent->setText(QStringLiteral("\u03A3"));
    cmdCalcFrequent->setFocusPolicy(Qt::NoFocus);
    const QSize size = cmdFrequent[0]->sizeHint();
    cmdCalcFrequent->setFixedSize(size.width() - 4, size.height());
    connect(cmdCalcFrequent, &QToolButton::clicked, this, &GlyphColumn::countPressed);
    frequents->addWidget(cmdCalcFrequent);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(2);
    buttons->addLayout(makeGroup(makeFavouritesCaption(), favourites));
    buttons->addStretch(1);
    auto* frequentCaption = new QHBoxLayout;
    frequentCaption->addWidget(lblFrequent);
    frequentCaption->addStrut(cmdRightGlyph->height());
    buttons->addLayout(makeGroup(frequentCaption, frequents));
    return buttons;
}

QLayout* GlyphColumn::makeModeButtons() {
    auto* row = new QHBoxLayout;
    row->setSpacing(2);
    for (std::size_t i = 0; i < cmdKey.size(); ++i) {
        cmdKey[i] = new ModeButton(this);
        cmdKey[i]->setObjectName(QStringLiteral("cmdKey_%1").arg(i));
        cmdKey[i]->setText(tr(ModeTexts[i].caption));
        cmdKey[i]->setToolTip(tr(ModeTexts[i].tooltip));
        // clicked, not toggled: a lock key sets the button too, and must not be set by it in turn.
        connect(cmdKey[i], &QToolButton::clicked, this, [this, i](bool isOn) {
            Q_EMIT modeSwitched(static_cast<int>(i), isOn);
        });
        row->addWidget(cmdKey[i]);
    }
    return row;
}

void GlyphColumn::describeKeys() {
    DescribeKeys(*ImgGrid);
    DescribeKeys(*cmdCalcFrequent);
    AddToToolTip(*cmdCalcFrequent);
    DescribeKeys(*cmdRightGlyph);
    for (GlyphButton* const button : cmdFavorite) {
        DescribeKeys(*button);
    }
    for (GlyphButton* const button : cmdFrequent) {
        DescribeKeys(*button);
    }
}

void GlyphColumn::makeFinder() {
    m_finder = m_readout->makeFinder();
    connect(m_finder, &GlyphFinder::found, this, &GlyphColumn::light);
    connect(m_finder, &GlyphFinder::reached, this, [this](GlyphCode code) {
        mark(code);
        m_readout->tell(code);
    });
    connect(m_finder, &GlyphFinder::chosen, this, &GlyphColumn::glyphFound);
    connect(m_finder, &GlyphFinder::closed, this, [this] {
        light({});
        m_readout->showLines(true);
        showReadout();
        tellGlyph(GlyphReadout::When::AtOnce);
        Q_EMIT findingEnded();
    });
}

void GlyphColumn::find() {
    if (m_finder == nullptr) {
        makeFinder();
    }
    m_readout->show();
    m_readout->showLines(false);
    m_finder->open();
}

bool GlyphColumn::takesKeysOf(const QWidget* widget) const {
    return m_finder != nullptr && m_finder->takesKeysOf(widget);
}

void GlyphColumn::light(const std::vector<GlyphCode>& fitting) {
    if (m_shade == nullptr && !fitting.empty()) {
        m_shade = new ui::qt::CellMarks(ImgGrid, ui::qt::CellMarks::Look::Shade);
    }
    if (m_shade != nullptr) {
        std::vector<ui::Rect> cells(fitting.size());
        std::ranges::transform(fitting, cells.begin(), editing::GridCell);
        m_shade->mark(std::move(cells));
    }
}

QString GlyphColumn::glyphText(GlyphCode code) const {
    return QString::fromStdString(
        editing::FactsText(editing::FactsOf(code, m_workspace.keys.used, m_workspace.settings.modes)));
}

void GlyphColumn::showCursor(GlyphCode code) {
    m_underCursor = code;
    tellGlyph(GlyphReadout::When::AtRest);
}

void GlyphColumn::pointAt(std::optional<GlyphCode> code) {
    m_underPointer = code;
    tellGlyph(code ? GlyphReadout::When::AtOnce : GlyphReadout::When::AtRest);
}

void GlyphColumn::tellGlyph(GlyphReadout::When when) {
    if (m_finder == nullptr || m_finder->isHidden()) {
        m_readout->tell(m_underPointer.value_or(m_underCursor), when);
    }
}

void GlyphColumn::showReadout() {
    m_readout->setVisible(m_workspace.settings.showsReadout);
}

void GlyphColumn::setZoom(int zoom) {
    ImgGrid->setZoom(zoom);
}

QSize GlyphColumn::leastSizeAt(int zoom) const {
    const QSize column = minimumSizeHint();
    const QSize growth = ImgGrid->growthTo(zoom);
    const int grid = ImgGrid->parentWidget()->minimumSizeHint().width();
    // What stands below the grid may be what makes the column wide.
    const int width = std::max(grid + growth.width(), column.width() > grid ? column.width() : 0);
    return {width, column.height() + growth.height()};
}

void GlyphColumn::showGrid() {
    ImgGrid->setPicture(&m_workspace.atlas.cells);
    m_readout->tellAgain();
}

void GlyphColumn::showGlyphs() {
    const bool isCounted = std::ranges::any_of(m_workspace.settings.frequent, [](GlyphCode code) {
        return code != 0 && code != glyphs::BlankGlyph;
    });
    lblFrequent->tell(
        isCounted ? tr("Frequent") : tr("Frequent: use \u03A3"),
        tr("The glyphs that your name, animation and messages hold most often, once \u03A3 has counted "
           "them"));
    for (std::size_t i = 0; i < cmdFrequent.size(); ++i) {
        cmdFrequent[i]->setGlyph(m_workspace.atlas, m_workspace.settings.frequent[i]);
    }
    for (std::size_t i = 0; i < cmdFavorite.size(); ++i) {
        cmdFavorite[i]->setGlyph(m_workspace.atlas, m_workspace.settings.favourites[i]);
    }
    cmdRightGlyph->setGlyph(m_workspace.atlas, m_workspace.rightButtonGlyph);
}

const ui::Picture& GlyphColumn::favouritePicture(int index) const {
    return cmdFavorite[static_cast<std::size_t>(index)]->picture();
}

void GlyphColumn::showColours() {
    GridPosShape->setColour(QColor::fromRgb(m_workspace.settings.colours[GridMarkerColour]));
}

void GlyphColumn::showPointer() {
    ImgGrid->setPointer(m_workspace.settings.cursors[GridCursor]);
}

void GlyphColumn::showModes() {
    for (std::size_t i = 0; i < cmdKey.size(); ++i) {
        cmdKey[i]->setChecked(m_workspace.settings.modes.*editing::ModeKeys[i].flag);
    }
    m_readout->tellAgain();
}

void GlyphColumn::mark(GlyphCode code) {
    const glyphs::GridMarker marker = glyphs::ShowGridMarker(code);
    m_markedGlyph = marker.visible ? code : GlyphCode{0};
    GridPosShape->setVisible(marker.visible);
    if (marker.visible) {
        GridPosShape->moveToCell(
            marker.left / glyphs::TwipsPerCell + 1, marker.top / glyphs::TwipsPerCell + 1);
    }
    editing::SetCurrentGlyph(*ImgGrid, m_markedGlyph);
}

void GlyphColumn::blink() {
    GridPosShape->toggleStyle();
}

void GlyphColumn::ImgGrid_MouseMove(QPoint pixel) {
    const int code = GlyphAt(pixel);
    if (code >= 0) {
        mark(static_cast<GlyphCode>(code));
        pointAt(static_cast<GlyphCode>(code));
    }
}

void GlyphColumn::ImgGrid_MouseDown(QPoint pixel, Qt::MouseButton button) {
    const int hit = GlyphAt(pixel);
    const GlyphCode code = hit < 0 ? GlyphCode{0} : glyphs::FilterPickedGlyph(static_cast<GlyphCode>(hit));
    if (code != 0) {
        Q_EMIT glyphPressed(code, button);
    }
}

} // namespace shell
