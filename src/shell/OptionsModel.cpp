// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/OptionsModel.h"

#include <utility>

namespace shell {

void OptionsModel::setCaseChoice(bool value) {
    m_settings.caseChoice = value;
    markChanged(OptionsPage::Other);
}

void OptionsModel::setScreenshot(const std::string& path) {
    m_settings.screenshot = path;
    markChanged(OptionsPage::Other);
}

void OptionsModel::setSound(std::size_t index, bool value) {
    m_settings.sounds.at(index) = value;
    markChanged(OptionsPage::Other);
}

void OptionsModel::setSaveAtExit(bool value) {
    m_settings.saveAtExit = value;
    markChanged(OptionsPage::Other);
}

void OptionsModel::setLoadAtStartup(bool value) {
    m_settings.loadAtStartup = value;
    markChanged(OptionsPage::Other);
}

void OptionsModel::setColour(std::size_t index, ui::Pixel colour) {
    m_settings.colours.at(index) = colour;
    markChanged(OptionsPage::Colours);
}

void OptionsModel::setPromptNames(bool value) {
    m_settings.promptNames = value;
    markChanged(OptionsPage::Prompts);
}

void OptionsModel::setPromptMessages(bool value) {
    m_settings.promptMessages = value;
    markChanged(OptionsPage::Prompts);
}

void OptionsModel::setBindPrompt(bool value) {
    m_settings.bindPrompt = value;
    markChanged(OptionsPage::Prompts);
}

void OptionsModel::setCharSet(int listIndex, const glyphs::CharSetRecord& record) {
    m_charSet = record;
    m_charSet.listIndex = static_cast<std::int16_t>(listIndex);
    m_settings.charSet = m_charSet.listIndex;
    markChanged(OptionsPage::CharSets);
}

void OptionsModel::returnToCharSet(std::int16_t place, const glyphs::CharSetRecord& record) {
    m_charSet = record;
    m_settings.charSet = place;
    m_changed[static_cast<std::size_t>(OptionsPage::CharSets)] = false;
}

void OptionsModel::setCursor(std::size_t index, std::int16_t style) {
    m_settings.cursors.at(index) = style;
    markChanged(OptionsPage::Cursors);
}

void OptionsModel::setKeyGlyph(
    editing::KeyMap& map, std::size_t key, std::size_t column, glyphs::GlyphCode code) {
    auto& glyph = map.at(key).at(column);
    if (std::exchange(glyph, code) != code) {
        markChanged(OptionsPage::KeyMapping);
    }
}

AppliedOptions OptionsModel::applyTo(Settings& settings, glyphs::CharSetRecord& charSet) const {
    AppliedOptions applied;
    if (isChanged(OptionsPage::Other)) {
        settings.loadAtStartup = m_settings.loadAtStartup;
        settings.saveAtExit = m_settings.saveAtExit;
        settings.sounds = m_settings.sounds;
        settings.screenshot = m_settings.screenshot;
        settings.caseChoice = m_settings.caseChoice;
    }
    if (isChanged(OptionsPage::Colours)) {
        settings.colours = m_settings.colours;
        applied.colours = true;
        applied.glyphs = true;
    }
    if (isChanged(OptionsPage::Prompts)) {
        settings.promptNames = m_settings.promptNames;
        settings.promptMessages = m_settings.promptMessages;
        settings.bindPrompt = m_settings.bindPrompt;
    }
    if (isChanged(OptionsPage::CharSets)) {
        settings.charSet = m_settings.charSet;
        charSet = m_charSet;
        applied.glyphs = true;
    }
    if (isChanged(OptionsPage::Cursors)) {
        settings.cursors = m_settings.cursors;
        applied.cursors = true;
    }
    applied.keyMap = isChanged(OptionsPage::KeyMapping);
    return applied;
}

std::string CharSetStaysText(
    const std::string& chosen, const std::string& before, const char* stays, const ui::Failure& cause) {
    return ui::Consequence(
               "The character set \"" + glyphs::ShownText(chosen) + "\" cannot be read, so \"" +
                   glyphs::ShownText(before) + "\" stays " + stays + ".",
               cause)
        .message;
}

ui::FileDialogRequest ScreenshotRequest(const std::string& screenshot, const ui::Path& programFolder) {
    // An absolute path replaces the folder that it is joined to.
    const ui::Path current = programFolder / ui::PathFromText(screenshot);
    ui::FileDialogRequest request;
    request.title = "Select the Screen Shot";
    request.initialName = current.has_filename() ? ui::PathText(current.filename()) : "*.bmp";
    request.filters = {{"Quake Screen Shot (*.bmp)", {"*.bmp"}}};
    request.folder = current.parent_path();
    request.extension = ".bmp";
    return request;
}

} // namespace shell
