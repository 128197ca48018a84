// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Dialogs.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace support {

/// What a file dialog must be opened with. What is absent is not compared.
struct ExpectedFileDialog {
    std::string title;
    std::string initialName;
    std::vector<ui::FileFilter> filters;
    std::optional<ui::Path> folder = {};
    std::optional<std::string> extension = {};
    std::optional<bool> asksToOverwrite = {};
    bool needsExtension = false;
};

/// Dialogs that follow a script: every question must be expected beforehand, in order, and carries its
/// answer. A question that was not expected, that differs from what was expected, or that never came
/// fails the test.
class FakeDialogs final : public ui::Dialogs {
public:
    enum class Kind { Box, Open, Save, Colour };

    /// One question as it was asked.
    struct Call {
        Kind kind = Kind::Box;
        ui::Message message = {};
        ui::FileDialogRequest request = {};
        ui::Pixel colour = 0;
    };

    /// Runs while the question stands on the screen, before it is answered.
    using Action = std::function<void()>;

    FakeDialogs() = default;
    FakeDialogs(const FakeDialogs&) = delete;
    FakeDialogs& operator=(const FakeDialogs&) = delete;
    FakeDialogs(FakeDialogs&&) = delete;
    FakeDialogs& operator=(FakeDialogs&&) = delete;
    ~FakeDialogs() override;

    /// Expects a message with one OK button and no icon.
    void expectInform(const std::string& text, Action whileShown = {});

    /// Expects a message with one OK button and an exclamation icon.
    void expectWarning(const std::string& text, Action whileShown = {});

    /// Expects a question with Yes and No and no icon.
    void expectYesNo(const std::string& text, ui::Answer answer, Action whileShown = {});

    /// Expects the question about the game that a script is for, with what each answer writes.
    void expectGameQuestion(const std::string& text, ui::Answer answer, Action whileShown = {});

    /// Expects a question with Yes, No and Cancel and no icon.
    void expectYesNoCancel(const std::string& text, ui::Answer answer, Action whileShown = {});

    /// Expects a message with all that it shows. The others expect no detail and the first button as default.
    void expectBox(const ui::Message& message, ui::Answer answer, Action whileShown = {});

    /// Expects a file dialog; an empty answer cancels it.
    void expectOpen(const ExpectedFileDialog& dialog, std::optional<ui::Path> answer, Action whileShown = {});
    void expectSave(const ExpectedFileDialog& dialog, std::optional<ui::Path> answer, Action whileShown = {});

    /// Expects the colour chooser; an empty answer cancels it.
    void expectColour(ui::Pixel initial, std::optional<ui::Pixel> answer, Action whileShown = {});

    /// Fails the test if an expected question has not been asked yet, and forgets what was expected.
    void expectAllAsked();

    /// How many expected questions have not been asked yet.
    [[nodiscard]] std::size_t left() const { return m_script.size(); }

    /// Every question that was asked, the expected ones and the others.
    [[nodiscard]] const std::vector<Call>& calls() const { return m_calls; }

    ui::Answer box(const ui::Message& message) override;
    std::optional<ui::Path> chooseFileToOpen(const ui::FileDialogRequest& request) override;
    std::optional<ui::Path> chooseFileToSave(const ui::FileDialogRequest& request) override;
    std::optional<ui::Pixel> chooseColour(ui::Pixel initial) override;

    /// Work is never asked about: it runs to its end, unless the test says otherwise.
    void
    follow(const std::string& text, int steps, const std::function<void(const ui::GoesOn&)>& work) override;

    std::optional<int> cancelAfter; ///< steps of the next work
    int stepsDone = 0;              ///< of the last work
    int steps = 0;                  ///< that it was said to have

private:
    struct Step {
        Call call = {};
        ExpectedFileDialog dialog = {};
        ui::Answer answer = ui::Answer::Ok;
        std::optional<ui::Path> path = {};
        std::optional<ui::Pixel> colour = {};
        Action whileShown = {};
    };

    std::optional<Step> next(const Call& call);
    std::optional<ui::Path> chooseFile(Kind kind, const ui::FileDialogRequest& request);

    std::deque<Step> m_script;
    std::vector<Call> m_calls;
};

} // namespace support
