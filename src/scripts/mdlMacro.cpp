// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/mdlMacro.h"

#include "glyphs/RowText.h"
#include "scripts/Lines.h"
#include "scripts/ScriptFlow.h"
#include "scripts/Texts.h"

#include <algorithm>
#include <cassert>
#include <span>

namespace scripts {

namespace {

/// "say_team" holds "say", so one test serves both commands.
bool IsMessageLine(std::string_view line) {
    return Holds(line, "say");
}

ui::FileFilter MessageScriptFilter() {
    return {"VTM Macro Script (*.vtm;*.scr)", {"*.vtm", "*.scr"}};
}

} // namespace

std::string MessageText(const editing::MessageDocument& messages, int number) {
    assert(number >= 1 && number <= editing::MessageCount);
    constexpr std::size_t Length = editing::MessageLength;
    return glyphs::RowText(
        std::span(messages.cells).subspan(static_cast<std::size_t>(number - 1) * Length, Length));
}

ui::Bytes WriteMessageScript(const MessageChoice& choice, const editing::MessageDocument& messages) {
    ui::Bytes script = "// ";
    script += MessageScriptHeader;
    script += LineEnd;
    for (int number = 1; number <= editing::MessageCount; ++number) {
        if (!choice.selected[static_cast<std::size_t>(number - 1)]) {
            continue;
        }
        script += choice.command == SayCommand::SayTeam ? "say_team \"" : "say \"";
        script += MessageText(messages, number);
        script += '"';
        script += LineEnd;
    }
    return script;
}

int CountMessages(std::string_view script) {
    glyphs::ByteLines lines(script);
    if (!Holds(lines.next(), MessageScriptHeader)) {
        return 0;
    }
    int count = 0;
    while (count < editing::MessageCount && !lines.atEnd()) {
        if (!IsMessageLine(lines.next())) {
            return 0;
        }
        ++count;
    }
    return count;
}

ReadOutcome ReadMessageScript(std::string_view script, editing::MessageDocument& messages) {
    const int count = CountMessages(script);
    if (count == 0) {
        return ReadOutcome::NotRecognised;
    }
    glyphs::ByteLines lines(script);
    (void)lines.next();
    for (int number = 1; number <= count; ++number) {
        if (!glyphs::ParseQuotedLine(lines.next(), messages.rows().row(number))) {
            return ReadOutcome::TooLong;
        }
    }
    return ReadOutcome::Read;
}

ui::FileDialogRequest SaveMessageScriptRequest() {
    ui::FileDialogRequest request;
    request.title = "Save as a Script File";
    request.initialName = "*.vtm";
    request.filters = {MessageScriptFilter()};
    request.extension = ".vtm";
    return request;
}

ui::FileDialogRequest LoadMessageScriptRequest() {
    ui::FileDialogRequest request;
    request.title = "Select the Script file";
    request.initialName = "*.vtm";
    request.filters = {MessageScriptFilter()};
    return request;
}

SaveOutcome SaveMessageScript(
    ui::Dialogs& dialogs, ui::Files& files, const MessageChoice& choice,
    const editing::MessageDocument& messages) {
    if (std::find(choice.selected.begin(), choice.selected.end(), true) == choice.selected.end()) {
        dialogs.inform(texts::NoMessageSelected);
        return {};
    }
    return SaveScript(dialogs, files, SaveMessageScriptRequest(), MessageScriptHeader, [&] {
        return WriteMessageScript(choice, messages);
    });
}

std::optional<ui::Path> ChooseMessageScript(ui::Dialogs& dialogs) {
    return dialogs.chooseFileToOpen(LoadMessageScriptRequest());
}

LoadOutcome LoadMessageScript(
    ui::Dialogs& dialogs, const ui::Files& files, const ui::Path& path, bool quiet,
    editing::MessageDocument& messages, const Repaint& repaint) {
    const ScriptReader reader{
        [&](std::string_view script) { return ReadMessageScript(script, messages); }, texts::MessagesNotRead,
        texts::MessageTooLong};
    return LoadScript(dialogs, files, path, quiet, reader, repaint);
}

} // namespace scripts
