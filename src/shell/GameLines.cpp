// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/GameLines.h"

#include "editing/mdlCommon.h"
#include "shell/GameLineRow.h"

#include <QHBoxLayout>
#include <QToolButton>
#include <algorithm>
#include <utility>

namespace shell {

using editing::Page;

namespace {

constexpr int ButtonRoom = 8; ///< beside the dots

} // namespace

GameLines::GameLines(
    editing::Documents& documents, const games::FamilyChoice& chosen, const glyphs::GlyphAtlas& atlas,
    QWidget* parent)
    : QWidget(parent)
    , m_documents(documents)
    , m_chosen(chosen)
    , cmdGames(new QToolButton(this)) {
    setObjectName(QStringLiteral("GameLines"));
    setAccessibleName(tr("What your games keep"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    auto* lines = new QVBoxLayout;
    lines->setSpacing(1);
    int nameWidth = 0;
    for (const games::Family family : games::Families) {
        nameWidth = std::max(nameWidth, GameLineRow::nameWidth(family, *this));
    }
    lines->addStretch(1);
    for (const games::Family family : games::Families) {
        auto* row = new GameLineRow(family, nameWidth, atlas, this);
        m_rows.at(static_cast<std::size_t>(family)) = row;
        lines->addWidget(row);
        connect(row, &GameLineRow::pressed, this, [this, row] {
            Q_EMIT cellWanted(m_page, row->line().column, row->line().row);
        });
    }
    lines->addStretch(1);
    layout->addLayout(lines, 1);
    cmdGames->setObjectName(QStringLiteral("cmdGames"));
    cmdGames->setText(QStringLiteral("\u2026"));
    cmdGames->setAccessibleName(tr("Games"));
    cmdGames->setToolTip(tr("Click here to choose the games that you play"));
    cmdGames->setAutoRaise(true);
    cmdGames->setFixedWidth(fontMetrics().horizontalAdvance(cmdGames->text()) + ButtonRoom);
    cmdGames->setFocusPolicy(Qt::NoFocus);
    layout->addWidget(cmdGames, 0, Qt::AlignTop);
    connect(cmdGames, &QToolButton::clicked, this, [this] {
        Q_EMIT choiceWanted(cmdGames->mapToGlobal(QPoint(0, cmdGames->height())));
    });
    tmrReport.setParent(this);
    tmrReport.setSingleShot(true);
    tmrReport.setInterval(0);
    connect(&tmrReport, &QTimer::timeout, this, &GameLines::tmrReport_Timer);
}

void GameLines::follow(Page page) {
    m_page = page;
    tmrReport.start();
}

void GameLines::showAtlas() {
    std::ranges::for_each(m_rows, &GameLineRow::showAtlas);
}

void GameLines::goToLoss() {
    if (m_report.marks.empty()) {
        return;
    }
    const editing::PageCursor cursor = editing::CursorOf(m_documents, m_page);
    const auto next = std::ranges::find_if(m_report.marks, [&cursor](const editing::CellBlock& mark) {
        return std::pair(mark.row, mark.column) > std::pair(cursor.row, cursor.column);
    });
    const editing::CellBlock& mark = next == m_report.marks.end() ? m_report.marks.front() : *next;
    Q_EMIT cellWanted(m_page, mark.column, mark.row);
}

void GameLines::tmrReport_Timer() {
    m_report = ReportOf(m_documents, m_page, m_chosen);
    for (GameLineRow* const row : m_rows) {
        const auto line = std::ranges::find(m_report.lines, row->family(), &GameLine::family);
        row->setVisible(line != m_report.lines.end());
        if (line != m_report.lines.end()) {
            row->show(*line);
        }
    }
    setVisible(!m_report.lines.empty());
    Q_EMIT reported(m_page, m_report.marks);
}

} // namespace shell
