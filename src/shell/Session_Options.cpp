// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/KeyMapFile.h"
#include "shell/Session.h"

namespace shell {

void Session::setMode(std::size_t index, bool isOn) {
    const editing::ModeKey& mode = editing::ModeKeys.at(index);
    m_workspace.settings.modes.*mode.flag = isOn;
    m_view.showModes();
    editing::SetLockKey(m_platform.lockKeys, mode.virtualKey, isOn);
}

void Session::chooseGame(games::Family family, bool isPlayed) {
    m_workspace.settings.games.at(static_cast<std::size_t>(family)) = isPlayed;
    m_view.showGames();
}

void Session::chooseReadout(bool isShown) {
    m_workspace.settings.showsReadout = isShown;
    m_view.showViewChoices();
}

void Session::chooseZoom(int zoom) {
    m_workspace.settings.zoom = zoom;
    m_view.showViewChoices();
}

ui::Status Session::selectCharSet(int recordNumber) {
    const auto set = glyphs::LoadCharSet(m_platform.files, m_platform.directory, recordNumber);
    if (!set) {
        return set.failure();
    }
    useCharSet(set.value());
    return {};
}

void Session::useCharSet(const glyphs::CharSet& set) {
    m_workspace.charSet = set.record;
    buildAtlas(set.artwork);
}

void Session::buildAtlas(const ui::Picture& artwork) {
    m_workspace.atlas = glyphs::BuildAtlas(artwork, m_workspace.settings.colours[BackgroundColour]);
    m_view.showAtlas();
}

void Session::applyOptions(const OptionsModel& model) {
    const glyphs::CharSetRecord before = m_workspace.charSet;
    const std::int16_t placeBefore = m_workspace.settings.charSet;
    const AppliedOptions applied = model.applyTo(m_workspace.settings, m_workspace.charSet);
    if (applied.colours) {
        m_view.showColours();
    }
    if (applied.cursors) {
        m_view.showPointers();
    }
    const std::string chosen = m_workspace.charSet.name;
    ui::Status selected;
    if (model.isChanged(OptionsPage::CharSets)) {
        selected = selectCharSet(m_workspace.charSet.listIndex + 1);
        if (!selected) {
            m_workspace.charSet = before;
            m_workspace.settings.charSet = placeBefore;
        }
    }
    if (applied.colours || (applied.glyphs && selected.ok())) {
        buildAtlas(ui::Picture(m_workspace.atlas.artwork));
        for (const editing::Kind& kind : editing::Kinds) {
            repaint(kind.page);
        }
    }
    if (!selected) {
        m_platform.dialogs.warn(CharSetStaysText(chosen, before.name, "in use", selected.failure()));
    }
    if (applied.keyMap) {
        if (const ui::Status written =
                editing::WriteKeyMap(m_platform.files, m_platform.directory, m_workspace.keys);
            !written) {
            m_platform.dialogs.warn(ui::Consequence(
                                        "The keys type what you chose, but only until the program ends: "
                                        "the key map could not be stored.",
                                        written.failure())
                                        .message);
        }
    }
}

} // namespace shell
