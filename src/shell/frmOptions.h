// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/KeyMapFile.h"
#include "shell/CharSetPage.h"
#include "shell/KeyMapPage.h"
#include "shell/OptionsModel.h"

#include <QDialog>

#include <array>
#include <memory>

class QCheckBox;
class QComboBox;

namespace Ui {
class frmOptions;
}

namespace shell {

class ColourBox;

/// The options dialog. It works on a copy of the settings; when it was accepted, `model()` tells what to
/// apply. Only the key map is edited in place, and character sets are added and removed at once.
class frmOptions final : public QDialog {
    Q_OBJECT

public:
    /// All but the functions outlive the dialog; `charSet` and `atlas` are those in use.
    frmOptions(
        const ui::Platform& platform, const Settings& settings, const glyphs::CharSetRecord& charSet,
        const glyphs::GlyphAtlas& atlas, editing::KeyMaps& keys, KeyMapPage::GlyphPicker pickGlyph,
        CharSetPage::SetRemoved charSetRemoved, QWidget* parent = nullptr);
    ~frmOptions() override;

    [[nodiscard]] const OptionsModel& model() const { return m_model; }

private:
    void connectControls();
    void turnPage(int step);
    void showSettings();
    void showScreenshot();

    void chkCaseChoice_Click();
    void txtbmpScreenShotFileName_Change(const QString& text);
    void cmdDefaultSS_Click();
    void cmdSetSS_Click();
    void optSounds_Click(std::size_t index);
    void SaveSettings_Click();
    void LoadSettings_Click();
    void picColor_Click(std::size_t index);
    void optFormatVal_Click(std::size_t index);
    void optPromptBinding_Click();
    void cmbMouse_Click(std::size_t index);
    void cmdOK_Click();
    void cmdCancel_Click();

    const ui::Platform& m_platform;
    OptionsModel m_model;

    std::unique_ptr<Ui::frmOptions> m_form;
    std::array<QCheckBox*, 4> m_sounds{};
    std::array<ColourBox*, ColourCount> m_colours{};
    std::array<QComboBox*, CursorCount> m_cursors{};
    CharSetPage* m_charSets;
    KeyMapPage* m_keyMap;
};

} // namespace shell
