// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/GameLineRow.h"

#include "glyphs/GlyphWords.h"
#include "ui/qt/LineLabel.h"
#include "ui/qt/PictureWidget.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>

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
    m_line = line;
    const QString text = QString::fromStdString(line.text);
    lblGame->tell(text, QString::fromStdString(line.more));
    lblGame->updateGeometry();
    const QString shown = line.shown.empty()
                              ? QString()
                              : QLatin1Char(' ') + QString::fromStdString(glyphs::ReadableRow(line.shown));
    lblGame->setAccessibleName(lblFamily->text() + QLatin1String(": ") + text + shown);
    setCursor(line.row > 0 ? Qt::PointingHandCursor : Qt::ArrowCursor);
    showAtlas();
}

void GameLineRow::showAtlas() {
    const std::vector<glyphs::GlyphCode>& shown = m_line.shown;
    if (picShown == nullptr && !shown.empty()) {
        makePicture();
    }
    if (picShown == nullptr) {
        return;
    }
    picShown->setVisible(!shown.empty());
    if (!shown.empty()) {
        m_picture = ui::Picture(static_cast<int>(shown.size()) * glyphs::CellSide, glyphs::CellSide);
        for (std::size_t i = 0; i < shown.size(); ++i) {
            glyphs::PaintGlyph(m_picture, m_atlas, shown[i], static_cast<int>(i) + 1, 1);
        }
        picShown->setPicture(&m_picture);
        picShown->fitPicture();
        picShown->update();
    }
}

void GameLineRow::makePicture() {
    picShown = new ui::qt::PictureWidget(this);
    picShown->setObjectName(QStringLiteral("picShown_%1").arg(static_cast<int>(m_family)));
    picShown->setBlock(glyphs::CellBlock);
    picShown->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* const row = static_cast<QHBoxLayout*>(layout());
    const int place = row->indexOf(lblGame) + 1;
    row->insertSpacing(place, Gap);
    row->insertWidget(place + 1, picShown);
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
