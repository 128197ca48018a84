// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/GameLineRow.h"

#include "games/RowVerdict.h"
#include "glyphs/GlyphWords.h"
#include "ui/qt/LineLabel.h"
#include "ui/qt/PictureWidget.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <utility>

namespace shell {

namespace {

constexpr int Gap = 8;
constexpr float PaleAlpha = 0.7F;

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
    lblGame->tell(text, QString::fromStdString(line.more));
    const QString shown = line.shown.empty()
                              ? QString()
                              : QLatin1Char(' ') + QString::fromStdString(glyphs::ReadableRow(line.shown));
    lblGame->setAccessibleName(lblFamily->text() + QLatin1String(": ") + text + shown);
    setCursor(line.row > 0 ? Qt::PointingHandCursor : Qt::ArrowCursor);
    showGlyphs(before);
}

void GameLineRow::showAtlas() {
    showGlyphs({});
}

void GameLineRow::showGlyphs(const std::vector<glyphs::GlyphCode>& before) {
    const std::vector<glyphs::GlyphCode>& shown = m_line.shown;
    if (picShown == nullptr && !shown.empty()) {
        makePicture();
    }
    if (picShown == nullptr) {
        return;
    }
    ui::Rect damage;
    for (std::size_t i = 0; i < shown.size(); ++i) {
        if (i >= before.size() || before[i] != shown[i]) {
            const int column = static_cast<int>(i);
            glyphs::PaintGlyph(m_picture, m_atlas, shown[i], column + 1, 1);
            damage = damage.united({column * glyphs::CellSide, 0, glyphs::CellSide, glyphs::CellSide});
        }
    }
    picShown->showDamage(damage);
    fitFrame();
    m_frame->setVisible(!shown.empty());
}

void GameLineRow::makePicture() {
    // A frame that grows over a picture repaints only what comes into view, as a picture that grows does not.
    m_frame = new QWidget(this);
    m_frame->setAttribute(Qt::WA_StaticContents);
    m_frame->setAttribute(Qt::WA_TransparentForMouseEvents);
    picShown = new ui::qt::PictureWidget(m_frame);
    picShown->setObjectName(QStringLiteral("picShown_%1").arg(static_cast<int>(m_family)));
    picShown->setBlock(glyphs::CellBlock);
    picShown->setPicture(&m_picture);
    picShown->fitPicture();
    connect(picShown, &ui::qt::PictureWidget::fitted, this, &GameLineRow::fitFrame);
    auto* const row = static_cast<QHBoxLayout*>(layout());
    const int place = row->indexOf(lblGame) + 1;
    row->insertSpacing(place, Gap);
    row->insertWidget(place + 1, m_frame);
}

void GameLineRow::fitFrame() {
    const int width = static_cast<int>(m_line.shown.size()) * glyphs::CellSide;
    m_frame->setFixedSize(picShown->areaOf({0, 0, width, glyphs::CellSide}).size());
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

void GameLineRow::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && m_line.row > 0) {
        Q_EMIT pressed();
    }
}

} // namespace shell
