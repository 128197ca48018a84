// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Platform.h"

namespace shell {

class Session;

/// The character set at a place (0-based) of the list has gone, and those after it have moved up: the one in
/// use stays in use, here and in the stored options. If that is the one that has gone, the first one is taken
/// into use.
void FollowRemovedCharSet(Session& session, const ui::Platform& platform, int place);

} // namespace shell
