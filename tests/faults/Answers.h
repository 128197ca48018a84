// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "faults/Operations.h"
#include "ui/Dialogs.h"

#include <utility>

namespace faults {

/// Says yes to everything and remembers what it was told.
class Answers final : public ui::Dialogs {
public:
    explicit Answers(ui::Path path = {})
        : m_path(std::move(path)) {}

    ui::Answer box(const ui::Message& message) override {
        m_messages += message.text + '\n';
        m_isDone |= message.text.starts_with("Done!");
        return ui::Answer::Yes;
    }

    std::optional<ui::Path> chooseFileToOpen(const ui::FileDialogRequest& /*request*/) override {
        return m_path;
    }

    std::optional<ui::Path> chooseFileToSave(const ui::FileDialogRequest& /*request*/) override {
        return m_path;
    }

    std::optional<ui::Pixel> chooseColour(ui::Pixel initial) override { return initial; }

    void follow(
        const std::string& /*text*/, int /*steps*/,
        const std::function<void(const ui::GoesOn&)>& work) override {
        work([](int /*done*/) { return true; });
    }

    [[nodiscard]] Report report(const std::string& more = {}) const { return {m_isDone, m_messages + more}; }

private:
    ui::Path m_path;
    std::string m_messages;
    bool m_isDone = false;
};

} // namespace faults
