// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "animation/RankingsLayout.h"
#include "animation/mdlAniPreview.h"
#include "games/Engines.h"
#include "glyphs/mdlPaint.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QImage>

#include <memory>
#include <optional>
#include <string>

class QTimer;

namespace animation {

class StripMover;

namespace Ui {
class frmRankings;
}

/// What the preview shows beside the animation.
struct RankingsChoices {
    std::string screenShot; ///< a path, or empty
    glyphs::SoundOptions sounds;
    games::FamilyChoice games{};                  ///< whose paces can be chosen
    std::optional<BoardLine> line = std::nullopt; ///< where the name stands, if that was chosen
};

/// The full-window preview: the names of the animation follow one another over a screenshot of the game's
/// rankings, at the speed that the script gives them.
class frmRankings final : public QDialog {
    Q_OBJECT

public:
    /// Shows the animation as it is painted now. The animation and the platform are borrowed and outlive the
    /// dialog.
    frmRankings(
        const editing::AnimationDocument& animation, const ui::Picture& paintedNames, RankingsChoices choices,
        const ui::Platform& platform, QWidget* parent = nullptr);
    ~frmRankings() override;

    /// Where the name stands on the screenshot, if that was chosen.
    [[nodiscard]] std::optional<BoardLine> line() const;

    void done(int result) override;

protected:
    void showEvent(QShowEvent* event) override;
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void loadScreenShot();
    void connectControls();
    void connectKeys();
    void offerPaces();
    void keepPlaceWidth();
    [[nodiscard]] QSize playerSize();
    void Form_Resize();
    void scalePictures();
    void showName();
    [[nodiscard]] QString placeText(int name) const;
    void followPlaying();

    void cmdPlay_Click();
    void cmdStop_Click();
    void cmdToBegin_Click();
    void cmdRewind_Click();
    void cmdForward_Click();
    void cmdToEnd_Click();
    void cmdQuit_Click();
    void chkAgain_Click();
    void cmboPace_Click();
    void AniTimer_Timer();

    std::unique_ptr<Ui::frmRankings> m_form;
    const editing::AnimationDocument& m_animation;
    const ui::Platform& m_platform;
    RankingsChoices m_choices;
    AniPreview m_preview;
    ui::Picture m_names; ///< the rows in use as they were painted
    bool m_isDoubled;    ///< names and screenshot are, see IsDoubled
    QImage m_screenShot; ///< null: there is none
    ui::Picture m_shownScreenShot;
    RankingsLayout m_layout;
    StripMover* m_mover = nullptr;
    QTimer* AniTimer;
    QElapsedTimer m_clock;    ///< runs from the beginning of the playing or another pace
    std::int64_t m_ticks = 0; ///< ticks that have been stepped since then
    int m_tick = TickMilliseconds;
    std::string m_message; ///< to be shown once, when the window is seen
};

} // namespace animation
