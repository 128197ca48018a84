// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "tour_driver/Tour.h"

namespace tour {

/// The scenes of the tour, in this order: each goes on where the one before has ended.
void PlayFirstStart(Tour& tour);
void PlayName(Tour& tour);
void PlayConfigurationFile(Tour& tour);
void PlayAnimation(Tour& tour);
void PlayPreview(Tour& tour);
void PlayMessages(Tour& tour);
void PlayOnScreenKeyboard(Tour& tour);
void PlayPicker(Tour& tour);
void PlayOptions(Tour& tour);
void PlayAddedSet(Tour& tour); ///< within the options, on their list of character sets
void PlayHelp(Tour& tour);
void PlayExit(Tour& tour);
void PlaySecondStart(Tour& tour);

} // namespace tour
