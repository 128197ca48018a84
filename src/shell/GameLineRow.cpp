// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/GameLineRow.h"

#include "games/RowVerdict.h"
#include "ui/qt/LineLabel.h"
#include "ui/qt/PictureWidget.h"
#include "ui/qt/WholePixels.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QScreen>
#include <algorithm>
#include <cmath>
#include <utility>

namespace shell {

namespace {

constexpr int Gap = 8;
constexpr int Border = 1; ///< around the row that others see
constexpr int Rise = 4;   ///< by which that row may be higher than the text
constexpr float PaleAlpha = 0.7F;

/// The glyph in a cell of a row, or behind its end.
glyphs::GlyphCode CodeIn(const std::vector<glyphs::GlyphCode>& row, std::size_t cell) {
    return cell < row.size() ? row[cell] : glyphs::BlankGlyph;
}

QString FamilyName(games::Family family) {
    const std::string_view name = games::NameOf(family);
    return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

} // namespace

int GameLineRow::nameWidth(games::Family family, const QWidget& widget) {
    return widget.fontMetrics().horizontalAdvance(FamilyName(family)) + Gap;
}

GameLineRow::GameLineRow(
    games::Family family, int nameWidth, const glyphs::GlyphAtlas& atlas, QWidget* parent)
    : QWidget(parent)
    , m_family(family)
    , m_atlas(atlas)
    , m_picture(static_cast<int>(games::RowVerdict::MaxCells) * glyphs::CellSide, glyphs::CellSide)
    , lblFamily(new QLabel(FamilyName(family), this))
    , lblGame(new ui::qt::LineLabel(this)) {
    const QString number = QString::number(static_cast<int>(family));
    lblGame->setObjectName(QStringLiteral("lblGame_") + number);
    lblGame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    lblFamily->setFixedWidth(nameWidth);
    paleName();
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(lblFamily);
    layout->addWidget(lblGame);
    layout->addStretch(1);
}

void GameLineRow::show(const GameLine& line) {
    if (line == m_line) {
        return;
    }
    const std::vector<glyphs::GlyphCode> before = std::move(m_line.shown);
    m_line = line;
    const QString text = QString::fromStdString(line.text);
    const QString more = QString::fromStdString(line.more);
    lblGame->tell(text, more);
    const QString shown = QString::fromStdString(line.shown.empty() ? "" : " " + line.shownText);
    lblGame->setAccessibleName(lblFamily->text() + QLatin1String(": ") + text + shown);
    lblGame->setAccessibleDescription(more);
    setCursor(line.row > 0 ? Qt::PointingHandCursor : Qt::ArrowCursor);
    showGlyphs(before);
}

QSize GameLineRow::minimumSizeHint() const {
    // A row that is drawn becomes smaller with the window.
    return {0, QWidget::minimumSizeHint().height()};
}

void GameLineRow::showAtlas() {
    if (picShown == nullptr) {
        return;
    }
    paintCells(nullptr);
    // The border is of the colour of what lies behind the glyphs.
    constexpr int BlankTop = glyphs::BlankGlyph / 16 * glyphs::CellSide;
    QPalette palette = m_frame->palette();
    palette.setColor(QPalette::Window, QColor::fromRgb(m_atlas.cells.pixel(0, BlankTop)));
    m_frame->setPalette(palette);
}

void GameLineRow::showGlyphs(const std::vector<glyphs::GlyphCode>& before) {
    if (picShown != nullptr) {
        paintCells(&before);
    } else if (!m_line.shown.empty()) {
        makePicture();
        showAtlas();
    } else {
        return;
    }
    fitPicture();
    m_frame->setVisible(!m_line.shown.empty());
}

void GameLineRow::paintCells(const std::vector<glyphs::GlyphCode>* before) {
    ui::Rect damage;
    for (std::size_t cell = 0; cell < games::RowVerdict::MaxCells; ++cell) {
        const glyphs::GlyphCode code = CodeIn(m_line.shown, cell);
        if (before == nullptr || CodeIn(*before, cell) != code) {
            const int column = static_cast<int>(cell);
            glyphs::PaintGlyph(m_picture, m_atlas, code, column + 1, 1);
            damage = damage.united({column * glyphs::CellSide, 0, glyphs::CellSide, glyphs::CellSide});
        }
    }
    picShown->showDamage(damage);
}

void GameLineRow::makePicture() {
    // A frame that grows over a picture repaints only what comes into view, as a picture that grows does not.
    m_frame = new QWidget(this);
    m_frame->setAttribute(Qt::WA_StaticContents);
    m_frame->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_frame->setAutoFillBackground(true);
    picShown = new ui::qt::PictureWidget(m_frame);
    picShown->setObjectName(QStringLiteral("picShown_%1").arg(static_cast<int>(m_family)));
    picShown->setBlock(glyphs::CellBlock);
    picShown->setPicture(&m_picture);
    picShown->move(Border, Border);
    connect(picShown, &ui::qt::PictureWidget::fitted, this, &GameLineRow::fitPicture);
    auto* const row = static_cast<QHBoxLayout*>(layout());
    const int place = row->indexOf(lblGame) + 1;
    row->insertSpacing(place, Gap);
    row->insertWidget(place + 1, m_frame);
}

int GameLineRow::framed(int pixels) const {
    return static_cast<int>(std::ceil(pixels / devicePixelRatioF())) + 2 * Border;
}

int GameLineRow::blockPixels() const {
    const int cells = static_cast<int>(m_line.shown.size());
    const int width = this->width() - lblFamily->width() - lblGame->sizeHint().width() - Gap;
    const int height = lblGame->sizeHint().height() + Rise;
    const qreal scale = devicePixelRatioF();
    int pixels = ui::qt::BlockPixels(glyphs::CellBlock, scale, screen()->size());
    // Smaller than that nobody reads it.
    while (pixels - 1 >= scale && (framed(pixels * glyphs::ArtworkCell * cells) > width ||
                                   framed(pixels * glyphs::ArtworkCell) > height)) {
        --pixels;
    }
    return pixels;
}

void GameLineRow::fitPicture() {
    const int pixels = blockPixels();
    picShown->setBlock(glyphs::CellBlock, pixels);
    const int cells = static_cast<int>(m_line.shown.size());
    m_frame->setFixedSize(framed(pixels * glyphs::ArtworkCell * cells), framed(pixels * glyphs::ArtworkCell));
}

void GameLineRow::paleName() {
    // Of the text's own colour, so that it is read on dark windows as well.
    QPalette pale = palette();
    QColor colour = pale.color(QPalette::WindowText);
    colour.setAlphaF(PaleAlpha);
    pale.setColor(QPalette::WindowText, colour);
    lblFamily->setPalette(pale);
}

void GameLineRow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        paleName();
    }
}

void GameLineRow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (picShown != nullptr) {
        fitPicture();
    }
}

bool GameLineRow::event(QEvent* event) {
    // What more there is to know stands over the whole row.
    return event->type() == QEvent::ToolTip ? QCoreApplication::sendEvent(lblGame, event)
                                            : QWidget::event(event);
}

void GameLineRow::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && m_line.row > 0) {
        Q_EMIT pressed();
    }
}

} // namespace shell
