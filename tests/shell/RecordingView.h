// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Kinds.h"
#include "shell/SessionView.h"

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

/// Remembers what a session shows, in order.
class RecordingView final : public shell::SessionView {
public:
    void viewPage(editing::Page page) override { note("view", page); }

    void showDocument(editing::Page page) override {
        note("show", page);
        if (documentShown) {
            documentShown(page);
        }
    }

    void followCursor() override { shown.emplace_back("follow"); }

    void showProgress(int percentage) override { furthest = std::max(furthest, percentage); }

    void showStatus(const std::string& text) override {
        if (!text.empty()) {
            status = text;
        }
    }

    void offerReadNames() override { offersReadNames = true; }

    void withdrawReadNames() override { offersReadNames = false; }

    void showRecentFiles() override { shown.emplace_back("recent"); }

    void showAtlas() override { shown.emplace_back("atlas"); }

    void showColours() override { shown.emplace_back("colours"); }

    void showPointers() override { shown.emplace_back("pointers"); }

    void showModes() override { shown.emplace_back("modes"); }

    void showGames() override { shown.emplace_back("games"); }

    void showViewChoices() override { shown.emplace_back("choices"); }

    std::vector<std::string> shown;
    std::string status;
    int furthest = -1; ///< the highest percentage of progress
    bool offersReadNames = false;
    std::function<void(editing::Page)> documentShown; ///< what else the test does then; may be empty

private:
    void note(const std::string& what, editing::Page page) {
        shown.push_back(what + " " + editing::KindOf(page).caption);
    }
};
