// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "shell/Session.h"

#include <optional>
#include <string>

namespace shell {

/// The commands that hand what is on the pages to other programs, and take it from them.
class Exchange {
public:
    /// Both are borrowed and outlive the object.
    Exchange(const ui::Platform& platform, Session& session);

    /// Whether the row of the cursor holds a glyph.
    [[nodiscard]] bool hasRow() const;

    /// Puts the row of the cursor on the clipboard as text that looks like it.
    void copyAsText();

    /// Puts the row of the cursor on the clipboard as a picture, so many times as large as on its page.
    void copyAsPicture(int times);

    /// Places the text on the clipboard as glyphs, from the cursor on.
    void pasteText();

    /// Whether the name, and any name of the animation in use, holds a glyph.
    [[nodiscard]] bool hasName() const;
    [[nodiscard]] bool hasAnimation() const;

    /// Ask for a file, and write the name into it as a PNG picture, the animation as a GIF that plays.
    void exportName();
    void exportAnimation();

private:
    [[nodiscard]] std::optional<ui::Path>
    chooseExport(const std::string& title, const std::string& name, const std::string& type);
    /// `what` tells of a picture that was written.
    void write(const ui::Path& path, const ui::Result<ui::Bytes>& bytes, const std::string& what);

    const ui::Platform& m_platform;
    Session& m_session;
    Workspace& m_workspace;
};

} // namespace shell
