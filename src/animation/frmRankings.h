// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "animation/mdlAniPreview.h"
#include "glyphs/mdlPaint.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QImage>

#include <memory>
#include <string>

class QTimer;

namespace animation {

namespace Ui {
class frmRankings;
}

/// The full-window preview: the names of the animation follow one another over a screenshot of the game's
/// rankings, at the speed that the script gives them.
class frmRankings final : public QDialog {
    Q_OBJECT

public:
    /// Shows the animation as it is painted now, over the screenshot of the settings (a path, or empty). The
    /// animation and the platform are borrowed and outlive the dialog.
    frmRankings(
        const editing::AnimationDocument& animation, const ui::Picture& paintedNames,
        const std::string& screenShot, const ui::Platform& platform, const glyphs::SoundOptions& soundOptions,
        QWidget* parent = nullptr);
    ~frmRankings() override;

    void done(int result) override;

protected:
    void showEvent(QShowEvent* event) override;
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void loadScreenShot(const std::string& setting);
    void connectControls();
    void Form_Resize();
    void scalePictures();
    [[nodiscard]] QImage strip(int name) const;
    void showName();
    void followPlaying();

    void cmdPlay_Click();
    void cmdStop_Click();
    void cmdToBegin_Click();
    void cmdRewind_Click();
    void cmdForward_Click();
    void cmdToEnd_Click();
    void cmdQuit_Click();
    void AniTimer_Timer();

    std::unique_ptr<Ui::frmRankings> m_form;
    const editing::AnimationDocument& m_animation;
    const ui::Platform& m_platform;
    glyphs::SoundOptions m_soundOptions;
    AniPreview m_preview;
    QImage m_names;      ///< the rows in use as they were painted
    QImage m_screenShot; ///< null: there is none
    ui::Picture m_shownNames;
    ui::Picture m_shownScreenShot;
    RankingsLayout m_layout;
    QTimer* AniTimer;
    QElapsedTimer m_clock;    ///< runs from the beginning of the playing
    std::int64_t m_ticks = 0; ///< ticks that have been stepped since then
    std::string m_message;    ///< to be shown once, when the window is seen
};

} // namespace animation
