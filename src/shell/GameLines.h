// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/mdlPaint.h"
#include "shell/GameReport.h"

#include <QTimer>
#include <QWidget>
#include <array>

class QToolButton;

namespace shell {

class GameLineRow;

/// A calm line for each game that the user plays: what it makes of the page in view. The lines follow a
/// change when everything else that waits is done, so that no key waits for them.
class GameLines final : public QWidget {
    Q_OBJECT

public:
    /// All are borrowed and outlive the lines.
    GameLines(
        editing::Documents& documents, const games::FamilyChoice& chosen, const glyphs::GlyphAtlas& atlas,
        QWidget* parent);

    /// Something on a page, which is in view, or in the choice has changed.
    void follow(editing::Page page);

    /// The atlas is another one.
    void showAtlas();

    /// Asks for the next marked cell behind the cursor, or else the first.
    void goToLoss();

    [[nodiscard]] const GameReport& report() const { return m_report; }

Q_SIGNALS:
    /// The lines are up to date: these cells of a page are to be marked.
    void reported(editing::Page page, const std::vector<editing::CellBlock>& marks);
    /// A line was pressed that is about a cell.
    void cellWanted(editing::Page page, int column, int row);
    /// The games are to be chosen, from a menu at a point of the screen.
    void choiceWanted(QPoint at);

private:
    void tmrReport_Timer();

    editing::Documents& m_documents;
    const games::FamilyChoice& m_chosen;
    editing::Page m_page = editing::Page::Name;
    GameReport m_report;
    std::array<GameLineRow*, games::Families.size()> m_rows{};
    QToolButton* cmdGames;
    QTimer tmrReport;
};

} // namespace shell
