// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/ScriptFile.h"

#include "glyphs/RowText.h"

namespace editing {

bool MayReplaceFile(
    ui::Dialogs& dialogs, const ui::Files& files, const ui::Path& path, std::string_view header) {
    if (!files.exists(path)) {
        return true;
    }
    if (const auto bytes = files.read(path)) {
        const std::string_view old = bytes.value();
        if (old.empty() || glyphs::ByteLines(old).next().find(header) != std::string_view::npos) {
            return true;
        }
    }
    return dialogs.box(
               {.text = "The file \"" + ui::PathText(path) +
                        "\" is not a script of this kind.\nDo you wish to replace it?",
                .buttons = ui::Buttons::YesNo,
                .prefersNo = true}) == ui::Answer::Yes;
}

} // namespace editing
