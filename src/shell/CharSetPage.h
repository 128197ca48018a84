// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "glyphs/mdlPaint.h"
#include "shell/OptionsModel.h"
#include "ui/Picture.h"
#include "ui/Platform.h"

#include <QObject>

#include <functional>
#include <string>

namespace Ui {
class frmOptions;
}

class QWidget;

namespace shell {

/// The page of the options dialog that lists the character sets and previews the one that is chosen. Sets are
/// added and removed at once; only the choice waits for OK.
class CharSetPage final : public QObject {
    Q_OBJECT

public:
    /// Told the place (0-based) of a set after it was removed; has the settings follow.
    using SetRemoved = std::function<void(int place)>;

    /// What is in use, as it is by now.
    struct InUse {
        const Settings& settings;
        const glyphs::CharSetRecord& charSet;
        const glyphs::GlyphAtlas& atlas;
    };

    /// All of them outlive the page; `form` is that of `dialog`.
    CharSetPage(
        Ui::frmOptions& form, QWidget& dialog, const ui::Platform& platform, const InUse& inUse,
        OptionsModel& model, SetRemoved setRemoved);

    /// Shows the glyphs over the background colour that is chosen by now.
    void paintCharSet();

Q_SIGNALS:
    /// The glyphs in use are others: their set was removed.
    void atlasChanged();

private:
    void connectControls();
    void listCharSets(int row);
    void showSetInUse();
    void showCharSet(int row, glyphs::CharSet set);
    void keepCharSet(const std::string& reason);
    [[nodiscard]] std::string nameAt(int row) const;

    void GridList_Click(int row);
    void cmdGotoTc_Click();
    void cmdAddSet_Click();
    void cmdRemoveSet_Click();

    Ui::frmOptions& m_form;
    QWidget& m_dialog;
    const ui::Platform& m_platform;
    InUse m_inUse;
    OptionsModel& m_model;
    SetRemoved m_setRemoved;

    int m_shownCharSet = -1; // row of the list; none when the list is empty
    ui::Picture m_shownArtwork;
    ui::Picture m_shownGlyphs;
    bool m_keepsCharSet = false; // that a set cannot be read is still to be said
};

} // namespace shell
