// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Documents.h"
#include "editing/PagePanel.h"

#include <QAbstractSlider>
#include <array>

class QComboBox;
class QLabel;
class QPushButton;

namespace animation {

class RowTimes;

/// The page of the name animation: all names painted, of which fifteen are in view, and the controls of the
/// name list and the ticks.
class AnimationPage : public editing::PagePanel {
    Q_OBJECT

public:
    AnimationPage(
        editing::AnimationDocument& document, glyphs::PagePicture& picture, QWidget* parent = nullptr);

    void refresh() override;

    /// Without what is shown only where there is room.
    [[nodiscard]] QSize minimumSizeHint() const override;

    /// Opens the list of the current name's ticks, or that of all names, as if it was clicked.
    void openTickList(bool ofAllNames);

    /// Moves the scroll bar of the number of names, or that of the view, as if it was clicked.
    void moveTotal(QAbstractSlider::SliderAction action);
    void moveView(QAbstractSlider::SliderAction action);

protected:
    [[nodiscard]] editing::GlyphRows rows() const override;
    [[nodiscard]] int rowsInUse() const override;
    [[nodiscard]] QString rowName(int row) const override;
    void fitPicture() override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

Q_SIGNALS:
    /// A button of the name list was pressed: 0 insert, 1 delete, 2 move up, 3 move down.
    void nameButtonClicked(int index);
    /// A number of names was chosen (15 to 90).
    void totalChosen(int count);
    /// A number of ticks was chosen, for the current name or for all in use.
    void ticksChosen(int count, bool forAllNames);
    /// More names came into use: the rows from `firstName` on are to be painted.
    void namesAdded(int firstName);

private:
    void buildControls();
    void layOut();
    void connectControls();
    void showTimes();
    [[nodiscard]] QSize timesSize() const;

    void AniTotalScroll_Change(int value);
    void AniScroll_Change(int value);
    void AniNameScroll_Change(int value);
    void VScroll1_Change(int value);
    void VScroll1_Scroll(int value);
    void ThisTickList_Click(int index);
    void TickList_Click(int index);

    /// The mouse on the text of a tick list, which unfolds it as its arrow does. Returns whether the event is
    /// used up.
    static bool useTickText(QComboBox* list, const QEvent& event);

    editing::AnimationDocument& m_document;
    int m_shownTotal;
    QWidget* AniPicBox = nullptr;
    RowTimes* m_times = nullptr; ///< shown where there is room
    QLabel* lblLength = nullptr; ///< likewise
    QScrollBar* AniTotalScroll = nullptr;
    QScrollBar* AniScroll = nullptr;
    QScrollBar* AniNameScroll = nullptr;
    QScrollBar* VScroll1 = nullptr;
    QLabel* lblAniTotalNum = nullptr;
    QLabel* lblAniNameNum = nullptr;
    std::array<QLabel*, 2> lblNum{};
    QComboBox* ThisTickList = nullptr;
    QComboBox* TickList = nullptr;
    std::array<QPushButton*, 4> cmdName{};
};

} // namespace animation
