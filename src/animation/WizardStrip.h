// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "animation/mdlAniTrial.h"
#include "glyphs/mdlPaint.h"

#include <QElapsedTimer>
#include <QWidget>

class QFrame;
class QToolButton;
class QTimer;

namespace ui::qt {
class LineLabel;
class PictureWidget;
} // namespace ui::qt

namespace animation {

/// The strip over the wizard's lists: plays what they would build, again and again while it is seen, at the
/// pace of the preview. It can be paused, and is at first where the desktop wants nothing to move.
class WizardStrip final : public QWidget {
    Q_OBJECT

public:
    explicit WizardStrip(QWidget* parent = nullptr);

    /// What glyphs are drawn from; outlives the strip.
    void setAtlas(const glyphs::GlyphAtlas& atlas);

    /// Plays other names from the first on, or shows one of them while it is paused. The same ones play on.
    void show(const Trial& trial);

    /// Where it is on the screen.
    [[nodiscard]] QRect globalArea() const;

    /// The button that pauses it, for the order of the keyboard.
    [[nodiscard]] QWidget* button() const;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void follow();
    void showName();
    void cmdPause_Click();
    void StripTimer_Timer();

    const glyphs::GlyphAtlas* m_atlas = nullptr;
    Trial m_trial;
    TrialPreview m_preview{m_trial.names};
    bool m_paused;
    int m_paintedName = 0; ///< 0: none
    glyphs::PagePicture m_picture{editing::NameLength, 1};
    QFrame* m_band;
    ui::qt::PictureWidget* m_strip;
    ui::qt::LineLabel* m_note;
    QToolButton* m_pauseButton;
    QTimer* m_timer;
    QElapsedTimer m_clock;    ///< runs from the last start of the timer
    std::int64_t m_ticks = 0; ///< ticks that have been stepped since then
};

} // namespace animation
