// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/AnimationPage.h"
#include "shell/AltKeys.h"
#include "shell/Commands.h"
#include "shell/GlyphColumn.h"
#include "shell/PageColumn.h"

namespace shell {

void Commands::runAltKey(const AltKey& key) {
    animation::AnimationPage& animation = m_pageColumn.animationPage();
    switch (key.command) {
    case AltCommand::PlaceFavourite:
        return cmdFavorite_MouseDown(key.index, Qt::LeftButton);
    case AltCommand::ChangeFavourite:
        return cmdFavorite_MouseDown(key.index, Qt::RightButton);
    case AltCommand::PlaceFrequent:
        return cmdFrequent_MouseDown(key.index);
    case AltCommand::CountFrequent:
        return cmdCalcFrequent_Click();
    case AltCommand::PickGlyph:
        return putPickedGlyph();
    case AltCommand::PlaceRightGlyph:
        return putGlyph(m_workspace.rightButtonGlyph);
    case AltCommand::ChangeRightGlyph:
        return pickRightGlyph();
    case AltCommand::FindGlyph:
        return m_glyphColumn.find();
    case AltCommand::OpenNameTicks:
        return animation.openTickList(false);
    case AltCommand::OpenAllTicks:
        return animation.openTickList(true);
    case AltCommand::MoreNames:
        return animation.moveTotal(QAbstractSlider::SliderSingleStepAdd);
    case AltCommand::FewerNames:
        return animation.moveTotal(QAbstractSlider::SliderSingleStepSub);
    case AltCommand::GoToLoss:
        return m_pageColumn.goToLoss();
    case AltCommand::ViewLineUp:
        return animation.moveView(QAbstractSlider::SliderSingleStepSub);
    case AltCommand::ViewLineDown:
        return animation.moveView(QAbstractSlider::SliderSingleStepAdd);
    case AltCommand::ViewPageUp:
        return animation.moveView(QAbstractSlider::SliderPageStepSub);
    case AltCommand::ViewPageDown:
        return animation.moveView(QAbstractSlider::SliderPageStepAdd);
    case AltCommand::ShowReadNames:
    case AltCommand::RestoreWork:
    case AltCommand::DiscardWork:
        return; // the status line offers these, and it is the window's
    }
}

} // namespace shell
