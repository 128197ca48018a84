// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/frmGetChar.h"

#include "editing/mdlPick.h"
#include "glyphs/mdlPaint.h"
#include "ui/qt/DialogButtons.h"
#include "ui/qt/MarkerShape.h"
#include "ui_frmGetChar.h"

#include <QKeyEvent>
#include <QTimer>
#include <utility>

namespace editing {

namespace {

constexpr int BlinkInterval = 500; // milliseconds
constexpr int PreviewSide = 4 * glyphs::CellSide;

/// The glyph's code and, where it is a character, what it reads as.
QString ReadoutOf(GlyphCode code) {
    if (code == 0) {
        return frmGetChar::tr("No glyph chosen");
    }
    QString number = frmGetChar::tr("Glyph %1").arg(code);
    const int character = code % 128;
    if (character < 33 || character > 126) {
        return number;
    }
    const QString reading = code < 128 ? frmGetChar::tr("%1\n%2") : frmGetChar::tr("%1\n%2 in color 2");
    return reading.arg(number, QString(QLatin1Char(static_cast<char>(character))));
}

} // namespace

frmGetChar::frmGetChar(
    GlyphCode start, const ui::Picture& grid, ui::Pixel markerColour, QWidget* parent, GlyphText glyphText)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::frmGetChar>())
    , m_grid(grid)
    , m_preview(PreviewSide, PreviewSide)
    , m_start(start)
    , m_chosen(start)
    , m_glyph(start) {
    m_ui->setupUi(this);
    m_ui->ImgGrid->setBlock(glyphs::CellBlock);
    m_ui->ImgGrid->setPicture(&m_grid);
    m_ui->ImgGrid->setCells(GlyphGridCells(true, std::move(glyphText)));
    m_ui->ImgGrid->setFocusPolicy(Qt::StrongFocus);
    m_ui->picChosen->setBlock(PreviewSide / glyphs::ArtworkCell);
    m_ui->picChosen->setPicture(&m_preview);

    ui::qt::NameOkAndCancel(*m_ui->buttons);
    QPushButton* const cmdReset =
        ui::qt::NameButton(*m_ui->buttons, QDialogButtonBox::Reset, QStringLiteral("cmdReset"), tr("&Reset"));
    // Enter confirms, whichever of the buttons has the focus.
    QPushButton* const cmdOK = m_ui->buttons->button(QDialogButtonBox::Ok);
    QPushButton* const cmdCancel = m_ui->buttons->button(QDialogButtonBox::Cancel);
    cmdOK->setDefault(true);
    cmdCancel->setAutoDefault(false);
    cmdReset->setAutoDefault(false);
    // A box of three leaves some out of the toolkit's own order.
    setTabOrder(cmdReset, cmdOK);
    setTabOrder(cmdOK, cmdCancel);

    m_marker = new ui::qt::MarkerShape(m_ui->ImgGrid, ui::qt::MarkerShape::Style::Solid);
    m_marker->setObjectName(QStringLiteral("GridPosShape"));
    m_marker->setColour(QColor::fromRgb(markerColour));
    m_blink = new QTimer(this);
    m_blink->setObjectName(QStringLiteral("tmrCursor"));
    m_blink->start(BlinkInterval);

    connectControls();
    choose(start);
    m_ui->ImgGrid->setFocus();
}

frmGetChar::~frmGetChar() = default;

void frmGetChar::connectControls() {
    connect(m_ui->ImgGrid, &ui::qt::PictureWidget::pressed, this, &frmGetChar::ImgGrid_MouseDown);
    connect(m_ui->ImgGrid, &ui::qt::PictureWidget::pressedTwice, this, &frmGetChar::ImgGrid_DblClick);
    connect(m_ui->ImgGrid, &ui::qt::PictureWidget::pointerMoved, this, &frmGetChar::ImgGrid_MouseMove);
    connect(m_blink, &QTimer::timeout, this, &frmGetChar::tmrCursor_Timer);
    connect(m_ui->buttons, &QDialogButtonBox::accepted, this, &frmGetChar::cmdOK_Click);
    connect(m_ui->buttons, &QDialogButtonBox::rejected, this, &frmGetChar::cmdCancel_Click);
    connect(
        m_ui->buttons->button(QDialogButtonBox::Reset), &QPushButton::clicked, this,
        &frmGetChar::cmdReset_Click);
}

void frmGetChar::choose(GlyphCode code) {
    m_chosen = code;
    const int column = code % 16;
    const int row = code / 16;
    m_marker->moveToCell(column + 1, row + 1);
    m_marker->setVisible(code != 0);
    SetCurrentGlyph(*m_ui->ImgGrid, code);
    glyphs::StretchCells(
        m_preview, m_preview.bounds(), m_grid,
        {column * glyphs::CellSide, row * glyphs::CellSide, glyphs::CellSide, glyphs::CellSide});
    m_ui->picChosen->showDamage(m_preview.bounds());
    m_ui->picChosen->setVisible(code != 0);
    m_ui->lblChosen->setText(ReadoutOf(code));
    m_ui->ImgGrid->setAccessibleDescription(m_ui->lblChosen->text());
}

void frmGetChar::ImgGrid_MouseDown(QPoint pixel) {
    choose(PickedAt(m_chosen, pixel.x(), pixel.y()));
}

void frmGetChar::ImgGrid_DblClick(QPoint pixel, Qt::MouseButton button) {
    // On a glyph that may not be picked the choice is another one than that under the pointer.
    if (button == Qt::LeftButton && PickedAt(0, pixel.x(), pixel.y()) != 0) {
        cmdOK_Click();
    }
}

void frmGetChar::ImgGrid_MouseMove(QPoint pixel, Qt::MouseButtons buttons) {
    if (buttons != Qt::NoButton) {
        choose(PickedAt(m_chosen, pixel.x(), pixel.y()));
    }
}

void frmGetChar::tmrCursor_Timer() {
    m_marker->toggleStyle();
}

void frmGetChar::cmdOK_Click() {
    m_glyph = m_chosen;
    accept();
}

void frmGetChar::cmdCancel_Click() {
    reject();
}

void frmGetChar::cmdReset_Click() {
    if (m_start != 0) {
        choose(m_start);
    }
    m_ui->ImgGrid->setFocus();
}

void frmGetChar::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Left:
        choose(PickedTowards(m_chosen, -1, 0));
        break;
    case Qt::Key_Right:
        choose(PickedTowards(m_chosen, 1, 0));
        break;
    case Qt::Key_Up:
        choose(PickedTowards(m_chosen, 0, -1));
        break;
    case Qt::Key_Down:
        choose(PickedTowards(m_chosen, 0, 1));
        break;
    case Qt::Key_Home:
        choose(PickedAtEnd(m_chosen, -1, 0));
        break;
    case Qt::Key_End:
        choose(PickedAtEnd(m_chosen, 1, 0));
        break;
    case Qt::Key_PageUp:
        choose(PickedAtEnd(m_chosen, 0, -1));
        break;
    case Qt::Key_PageDown:
        choose(PickedAtEnd(m_chosen, 0, 1));
        break;
    default:
        if (const QString text = event->text(); text.size() == 1 && text[0].isPrint()) {
            choose(PickedByCharacter(m_chosen, text[0].toLatin1()));
        } else {
            QDialog::keyPressEvent(event);
        }
    }
}

GlyphCode PickGlyph(
    GlyphCode start, const ui::Picture& grid, ui::Pixel markerColour, QWidget* parent, GlyphText glyphText) {
    frmGetChar picker(start, grid, markerColour, parent, std::move(glyphText));
    picker.exec();
    return picker.glyph();
}

} // namespace editing
