// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/PageColumn.h"

#include "animation/AnimationPage.h"
#include "editing/DirectionPad.h"
#include "editing/NamePage.h"
#include "editing/PagePanel.h"
#include "editing/mdlCommon.h"
#include "scripts/MessagesPage.h"
#include "shell/ControlAccess.h"
#include "shell/GameLines.h"
#include "shell/TabPicture.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace shell {

using editing::Page;

namespace {

constexpr int TabSpacing = 2;
constexpr int PartSpacing = 8;

} // namespace

PageColumn::PageColumn(
    editing::Documents& documents, editing::PagePictures& pictures, const glyphs::GlyphAtlas& atlas,
    const Settings& settings, QWidget* parent)
    : QWidget(parent)
    , m_documents(documents)
    , m_atlas(atlas)
    , m_settings(settings) {
    setAccessibleName(tr("Pages"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(makeTabs());

    m_pages = new QStackedWidget(this);
    m_pages->setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    m_animationPage = new animation::AnimationPage(documents.animation, pictures.animation, m_pages);
    addPanel(Page::Name, new editing::NamePage(documents.name, pictures.name, m_pages));
    addPanel(Page::Animation, m_animationPage);
    addPanel(Page::Messages, new scripts::MessagesPage(documents.messages, pictures.messages, m_pages));
    for (const char* name : {"AniTotalScroll", "ThisTickList", "TickList", "VScroll1"}) {
        auto& control = *m_animationPage->findChild<QWidget*>(QLatin1String(name));
        DescribeKeys(control);
        AddToToolTip(control);
    }
    layout->addWidget(m_pages, 1);

    layout->addSpacing(PartSpacing);
    m_cursorRow = makeCursorRow();
    layout->addLayout(m_cursorRow);
}

QLayout* PageColumn::makeTabs() {
    auto* tabs = new QHBoxLayout;
    tabs->setSpacing(TabSpacing);
    for (std::size_t i = 0; i < picTab.size(); ++i) {
        const editing::Kind& kind = editing::Kinds.at(i);
        picTab[i] = new TabPicture(tr(kind.caption), this);
        picTab[i]->setObjectName(QStringLiteral("picTab_%1").arg(i));
        connect(picTab[i], &TabPicture::pressed, this, [this, page = kind.page] { Q_EMIT pageWanted(page); });
        tabs->addWidget(picTab[i]);
    }
    return tabs;
}

void PageColumn::addPanel(Page page, editing::PagePanel* panel) {
    m_pages->insertWidget(static_cast<int>(page), panel);
    connect(panel, &editing::PagePanel::userActed, this, [this, page] { Q_EMIT pageWanted(page); });
    connect(panel, &editing::PagePanel::cursorMoved, this, [this, page](int column, int row) {
        Q_EMIT cursorMoved(page, column, row);
    });
    connect(panel, &editing::PagePanel::pointedAt, this, &PageColumn::pointedAt);
    connect(
        panel, &editing::PagePanel::picturePressed, this,
        [this, page](int x, int y, Qt::MouseButton button) { Q_EMIT picturePressed(page, x, y, button); });
}

QBoxLayout* PageColumn::makeCursorRow() {
    auto* row = new QHBoxLayout;
    imgDir = new editing::DirectionPad(this);
    imgDir->setObjectName(QStringLiteral("imgDir"));
    connect(imgDir, &editing::DirectionPad::arrow, this, &PageColumn::arrow);
    lblCurPos = new QLabel(this);
    lblCurPos->setObjectName(QStringLiteral("lblCurPos"));
    lblCurPos->setAccessibleDescription(tr("Cursor position"));
    lblCurPos->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("15,90")));
    row->addWidget(imgDir);
    row->addSpacing(PartSpacing);
    row->addWidget(new QLabel(tr("Cursor"), this));
    row->addSpacing(PartSpacing);
    row->addWidget(lblCurPos);
    row->addStretch();
    return row;
}

editing::PagePanel& PageColumn::panel(Page page) const {
    return *static_cast<editing::PagePanel*>(m_pages->widget(static_cast<int>(page)));
}

Page PageColumn::inView() const {
    return static_cast<Page>(m_pages->currentIndex());
}

void PageColumn::view(Page page) {
    for (std::size_t i = 0; i < picTab.size(); ++i) {
        picTab[i]->setActive(i == static_cast<std::size_t>(page));
    }
    m_pages->setCurrentIndex(static_cast<int>(page));
    settleRoom();
}

void PageColumn::setZoom(Page page, int zoom) {
    panel(page).setZoom(zoom);
}

QSize PageColumn::leastSizeAt(Page page, int zoom) const {
    const QSize column = minimumSizeHint();
    const QSize pages = m_pages->minimumSizeHint();
    const int frame = 2 * m_pages->frameWidth();
    const QSize paged = panel(page).leastSizeAt(zoom) + QSize(frame, frame);
    // What stands above and below the pages may be what makes the column wide.
    const int width =
        column.width() > pages.width() ? std::max(column.width(), paged.width()) : paged.width();
    return {width, column.height() - pages.height() + paged.height()};
}

void PageColumn::makeRoomForAll(bool isForAll) {
    m_isForAll = isForAll;
    settleRoom();
}

void PageColumn::settleRoom() {
    for (const editing::Kind& kind : editing::Kinds) {
        const bool hasRoom = m_isForAll || kind.page == inView();
        const QSizePolicy::Policy policy = hasRoom ? QSizePolicy::Preferred : QSizePolicy::Ignored;
        panel(kind.page).setSizePolicy(policy, policy);
    }
}

void PageColumn::showDocument(Page page) {
    panel(page).refresh();
    showDamage();
    const editing::PageCursor cursor = editing::CursorOf(m_documents, inView());
    QString position = QString::number(cursor.column);
    if (inView() == Page::Animation) {
        position += QLatin1Char(',') + QString::number(cursor.row);
    }
    lblCurPos->setText(position);
    if (m_gameLines != nullptr) {
        m_gameLines->follow(inView());
    }
}

void PageColumn::showDamage() {
    for (const editing::Kind& kind : editing::Kinds) {
        panel(kind.page).showDamage();
    }
}

void PageColumn::showGames() {
    if (m_gameLines == nullptr) {
        m_gameLines = new GameLines(m_documents, m_settings.games, m_atlas, this);
        connect(m_gameLines, &GameLines::cellWanted, this, &PageColumn::cursorMoved);
        connect(m_gameLines, &GameLines::choiceWanted, this, &PageColumn::gamesWanted);
        connect(m_gameLines, &GameLines::reported, this, [this](Page page, const auto& marks) {
            panel(page).mark(marks);
        });
        m_cursorRow->addSpacing(2 * PartSpacing);
        m_cursorRow->addWidget(m_gameLines, 1);
    }
    m_gameLines->follow(inView());
}

void PageColumn::setGlyphText(const editing::GlyphText& text) {
    for (const editing::Kind& kind : editing::Kinds) {
        panel(kind.page).setGlyphText(text);
    }
}

void PageColumn::goToLoss() {
    if (m_gameLines != nullptr) {
        m_gameLines->goToLoss();
    }
}

void PageColumn::showAtlas() {
    if (m_gameLines != nullptr) {
        m_gameLines->showAtlas();
    }
}

void PageColumn::showColours() {
    for (const editing::Kind& kind : editing::Kinds) {
        panel(kind.page).setMarkerColour(m_settings.colours.at(kind.markerColour));
    }
}

void PageColumn::showPointers() {
    for (const editing::Kind& kind : editing::Kinds) {
        panel(kind.page).setPointer(m_settings.cursors.at(kind.pointer));
    }
}

void PageColumn::showKey(int virtualKey) {
    imgDir->showKey(virtualKey);
}

void PageColumn::blink() {
    panel(inView()).blink();
}

} // namespace shell
