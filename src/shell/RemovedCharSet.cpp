// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/RemovedCharSet.h"

#include "shell/Session.h"

#include <utility>

namespace shell {

void FollowRemovedCharSet(Session& session, const ui::Platform& platform, int place) {
    Workspace& workspace = session.workspace();
    std::int16_t& inUse = workspace.settings.charSet;
    const bool wasInUse = inUse == place;
    inUse = PlaceWithout(inUse, place);
    workspace.charSet.listIndex = inUse;
    if (workspace.loadedSettings) {
        std::int16_t& loaded = workspace.loadedSettings->charSet;
        loaded = PlaceWithout(loaded, place);
    }
    if (const ui::Status stored = StoreCharSetRemoved(platform.settings, place); !stored) {
        platform.dialogs.warn(
            ui::Consequence(
                "The character set was removed, but which one is in use could not be stored.",
                stored.failure())
                .message);
    }
    if (wasInUse) {
        const auto first = glyphs::ReadCharSetRecord(platform.files, platform.directory, 1);
        OptionsModel model(workspace.settings, workspace.charSet);
        model.setCharSet(0, first ? first.value() : workspace.charSet);
        session.applyOptions(model);
    }
}

} // namespace shell
