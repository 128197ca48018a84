// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/GlyphCells.h"
#include "editing/mdlArray.h"
#include "shell/FileCommands.h"

#include <QObject>

class QWidget;

namespace shell {

class GlyphColumn;
class PageColumn;
struct AltKey;

/// What menus, buttons, mouse and keys do to the page in view, and the dialogs that they open.
class Commands final : public QObject, public ScriptWizards {
    Q_OBJECT

public:
    /// Listens to the columns. All are borrowed and outlive the object; `window` is what dialogs belong to.
    Commands(
        const ui::Platform& platform, Session& session, GlyphColumn& glyphColumn, PageColumn& pageColumn,
        QWidget& window);

    // Menus
    void mnuFileExit_Click();
    void mnuEditCut_Click();
    void mnuEditCopy_Click();
    void mnuEditPaste_Click();
    void mnuFormat_Click(editing::FormatOperation operation);
    void mnuFormatReverseNameOrder_Click();
    void mnuViewFindGlyph_Click();
    void mnuToolsAnimationWizard_Click();
    void mnuToolsAnimationViewer_Click();
    void mnuToolsBindingWizard_Click();
    void mnuToolsSettings_Click();
    void mnuHelp_Click();
    void mnuAboutVTM_Click();

    editing::SaveOutcome saveMessages() override;
    void bindKey() override;

    // Buttons of the glyph column (index from 0)
    void cmdFavorite_MouseDown(int index, Qt::MouseButton button);
    void cmdFrequent_MouseDown(int index);
    void cmdRightGlyph_MouseDown(Qt::MouseButton button);
    void cmdCalcFrequent_Click();

    /// A button of the list of names: 0 insert, 1 delete, 2 move up, 3 move down.
    void cmdName_Click(int index);

    /// Moves the cursor, or deletes a glyph, as a navigation key does.
    void navigate(int virtualKey);

    /// Does what a key does with Alt, but for what the status line offers.
    void runAltKey(const AltKey& key);

    /// Place a glyph at the cursor; the second shows it on the grid as well.
    void putGlyph(glyphs::GlyphCode code);
    void putGlyphWithMarker(glyphs::GlyphCode code);

    /// Let the user pick a glyph to place, or the one that the right mouse button places.
    void putPickedGlyph();
    void pickRightGlyph();

private:
    void ImgGrid_MouseDown(glyphs::GlyphCode code, Qt::MouseButton button);
    void putFoundGlyph(glyphs::GlyphCode code);
    void cmdKey_Click(int index, bool isOn);
    void PagePic_MouseDown(editing::Page page, int x, int y, Qt::MouseButton button);
    void cursor_Moved(editing::Page page, int column, int row);
    void total_Chosen(int count);
    void ticks_Chosen(int count, bool forAllNames);
    [[nodiscard]] glyphs::GlyphCode pickGlyph(glyphs::GlyphCode start);

    const ui::Platform& m_platform;
    Session& m_session;
    Workspace& m_workspace;
    GlyphColumn& m_glyphColumn;
    PageColumn& m_pageColumn;
    QWidget& m_window;
    editing::GlyphText m_glyphText;
};

} // namespace shell
