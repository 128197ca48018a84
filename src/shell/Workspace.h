// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/KeyMapFile.h"
#include "editing/PagePainter.h"
#include "editing/mdlArray.h"
#include "glyphs/mdlData.h"
#include "shell/Settings.h"
#include "shell/mdlFileMenu.h"

namespace shell {

/// Everything that a session holds for the whole run.
struct Workspace {
    editing::Documents documents;
    editing::PagePictures pictures;
    editing::KeyMaps keys;
    editing::EditClipboard editClipboard;
    Settings settings; ///< the page in view and the editing modes among them
    std::optional<Settings>
        loadedSettings; ///< as the store had them at the start; nothing: they were ignored
    RecentMenus recent;
    glyphs::CharSetRecord charSet;
    glyphs::GlyphAtlas atlas;
    glyphs::GlyphCode rightButtonGlyph = 5; ///< what a right press on a page's picture stamps
    ui::Path rememberedConfig;              ///< configuration file last chosen; offered by the binding wizard
    ui::Path rememberedScript;              ///< script last saved or chosen; likewise
    ui::Path lastFolder;                    ///< where a script was last saved

    [[nodiscard]] editing::Page page() const { return settings.page(); }
};

} // namespace shell
