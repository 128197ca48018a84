// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "support/FakeDialogs.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <utility>

namespace support {

namespace {

const char* KindText(FakeDialogs::Kind kind) {
    switch (kind) {
    case FakeDialogs::Kind::Box:
        return "a message box";
    case FakeDialogs::Kind::Open:
        return "a dialog to open a file";
    case FakeDialogs::Kind::Save:
        return "a dialog to save a file";
    case FakeDialogs::Kind::Colour:
        return "the colour chooser";
    }
    return "";
}

std::string CallText(const FakeDialogs::Call& call) {
    std::string text = KindText(call.kind);
    switch (call.kind) {
    case FakeDialogs::Kind::Box:
        return text + " \"" + call.message.text + "\"";
    case FakeDialogs::Kind::Open:
    case FakeDialogs::Kind::Save:
        return text + " titled \"" + call.request.title + "\" with \"" + call.request.initialName + "\"";
    case FakeDialogs::Kind::Colour:
        break;
    }
    return text;
}

void CompareRequest(const ExpectedFileDialog& expected, const ui::FileDialogRequest& request) {
    EXPECT_EQ(request.title, expected.title);
    EXPECT_EQ(request.initialName, expected.initialName);
    EXPECT_EQ(request.filters.size(), expected.filters.size());
    for (std::size_t i = 0; i < std::min(request.filters.size(), expected.filters.size()); ++i) {
        EXPECT_EQ(request.filters[i].text, expected.filters[i].text);
        EXPECT_EQ(request.filters[i].patterns, expected.filters[i].patterns);
    }
    if (expected.folder) {
        EXPECT_EQ(request.folder, *expected.folder);
    }
    if (expected.extension) {
        EXPECT_EQ(request.extension, *expected.extension);
    }
    EXPECT_EQ(request.needsExtension, expected.needsExtension);
    if (expected.asksToOverwrite) {
        EXPECT_EQ(request.asksToOverwrite, *expected.asksToOverwrite);
    }
}

bool Offers(ui::Buttons buttons, ui::Answer answer) {
    switch (buttons) {
    case ui::Buttons::Ok:
        return answer == ui::Answer::Ok;
    case ui::Buttons::YesNo:
        return answer == ui::Answer::Yes || answer == ui::Answer::No;
    case ui::Buttons::YesNoCancel:
        return answer != ui::Answer::Ok;
    }
    return false;
}

/// What Escape answers.
ui::Answer EscapeAnswer(ui::Buttons buttons) {
    switch (buttons) {
    case ui::Buttons::Ok:
        return ui::Answer::Ok;
    case ui::Buttons::YesNo:
        return ui::Answer::No;
    case ui::Buttons::YesNoCancel:
        return ui::Answer::Cancel;
    }
    return ui::Answer::Ok;
}

} // namespace

FakeDialogs::~FakeDialogs() {
    expectAllAsked();
}

void FakeDialogs::expectInform(const std::string& text, Action whileShown) {
    expectBox({text}, ui::Answer::Ok, std::move(whileShown));
}

void FakeDialogs::expectWarning(const std::string& text, Action whileShown) {
    expectBox({text, ui::Buttons::Ok, ui::Icon::Exclamation}, ui::Answer::Ok, std::move(whileShown));
}

void FakeDialogs::expectYesNo(const std::string& text, ui::Answer answer, Action whileShown) {
    expectBox({text, ui::Buttons::YesNo}, answer, std::move(whileShown));
}

void FakeDialogs::expectGameQuestion(const std::string& text, ui::Answer answer, Action whileShown) {
    ui::Message message{text, ui::Buttons::YesNo};
    message.detail = "Yes writes \"name\": runs in Quake, QuakeWorld and Quake2.\nQuake2 runs no \"name\" in "
                     "an autoexec.cfg "
                     "before its first start.\nNo writes \"set name\": runs in QuakeWorld and Quake2 only.";
    expectBox(message, answer, std::move(whileShown));
}

void FakeDialogs::expectYesNoCancel(const std::string& text, ui::Answer answer, Action whileShown) {
    expectBox({text, ui::Buttons::YesNoCancel}, answer, std::move(whileShown));
}

void FakeDialogs::expectBox(const ui::Message& message, ui::Answer answer, Action whileShown) {
    EXPECT_TRUE(Offers(message.buttons, answer)) << "\"" << message.text << "\" has no such button";
    Step step;
    step.call.kind = Kind::Box;
    step.call.message = message;
    step.answer = answer;
    step.whileShown = std::move(whileShown);
    m_script.push_back(std::move(step));
}

void FakeDialogs::expectOpen(
    const ExpectedFileDialog& dialog, std::optional<ui::Path> answer, Action whileShown) {
    Step step;
    step.call.kind = Kind::Open;
    step.dialog = dialog;
    step.path = std::move(answer);
    step.whileShown = std::move(whileShown);
    m_script.push_back(std::move(step));
}

void FakeDialogs::expectSave(
    const ExpectedFileDialog& dialog, std::optional<ui::Path> answer, Action whileShown) {
    expectOpen(dialog, std::move(answer), std::move(whileShown));
    m_script.back().call.kind = Kind::Save;
}

void FakeDialogs::expectColour(ui::Pixel initial, std::optional<ui::Pixel> answer, Action whileShown) {
    Step step;
    step.call.kind = Kind::Colour;
    step.call.colour = initial;
    step.colour = answer;
    step.whileShown = std::move(whileShown);
    m_script.push_back(std::move(step));
}

void FakeDialogs::expectAllAsked() {
    for (const Step& step : m_script) {
        Call call = step.call;
        call.request.title = step.dialog.title;
        call.request.initialName = step.dialog.initialName;
        ADD_FAILURE() << "This was expected and never came: " << CallText(call);
    }
    m_script.clear();
}

std::optional<FakeDialogs::Step> FakeDialogs::next(const Call& call) {
    m_calls.push_back(call);
    if (m_script.empty()) {
        ADD_FAILURE() << "This was not expected: " << CallText(call);
        return {};
    }
    if (m_script.front().call.kind != call.kind) {
        ADD_FAILURE() << "This was not expected: " << CallText(call) << "; expected was "
                      << KindText(m_script.front().call.kind) << " " << m_script.front().call.message.text;
        return {};
    }
    Step step = std::move(m_script.front());
    m_script.pop_front();
    return step;
}

ui::Answer FakeDialogs::box(const ui::Message& message) {
    Call call;
    call.kind = Kind::Box;
    call.message = message;
    const auto step = next(call);
    if (!step) {
        return EscapeAnswer(message.buttons);
    }
    const ui::Message& expected = step->call.message;
    EXPECT_EQ(message.text, expected.text);
    EXPECT_EQ(message.buttons, expected.buttons) << message.text;
    EXPECT_EQ(message.icon, expected.icon) << message.text;
    EXPECT_EQ(message.detail, expected.detail) << message.text;
    EXPECT_EQ(message.prefersNo, expected.prefersNo) << message.text;
    if (step->whileShown) {
        step->whileShown();
    }
    return Offers(message.buttons, step->answer) ? step->answer : EscapeAnswer(message.buttons);
}

std::optional<ui::Path> FakeDialogs::chooseFile(Kind kind, const ui::FileDialogRequest& request) {
    Call call;
    call.kind = kind;
    call.request = request;
    const auto step = next(call);
    if (!step) {
        return {};
    }
    CompareRequest(step->dialog, request);
    if (step->whileShown) {
        step->whileShown();
    }
    return step->path;
}

std::optional<ui::Path> FakeDialogs::chooseFileToOpen(const ui::FileDialogRequest& request) {
    return chooseFile(Kind::Open, request);
}

std::optional<ui::Path> FakeDialogs::chooseFileToSave(const ui::FileDialogRequest& request) {
    return chooseFile(Kind::Save, request);
}

std::optional<ui::Pixel> FakeDialogs::chooseColour(ui::Pixel initial) {
    Call call;
    call.kind = Kind::Colour;
    call.colour = initial;
    const auto step = next(call);
    if (!step) {
        return {};
    }
    EXPECT_EQ(initial, step->call.colour);
    if (step->whileShown) {
        step->whileShown();
    }
    return step->colour;
}

void FakeDialogs::follow(
    const std::string& /*text*/, int count, const std::function<void(const ui::GoesOn&)>& work) {
    steps = count;
    work([this](int done) {
        stepsDone = done;
        return !cancelAfter || done < *cancelAfter;
    });
}

} // namespace support
