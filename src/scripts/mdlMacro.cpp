// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/mdlMacro.h"

#include "glyphs/RowText.h"
#include "scripts/Lines.h"
#include "scripts/Texts.h"

#include <algorithm>
#include <cassert>
#include <span>

namespace scripts {

namespace {

const editing::Kind& TheMessages = editing::KindOf(editing::Page::Messages);

/// "say_team" holds "say", so one test serves both commands.
bool IsMessageLine(std::string_view line) {
    return Holds(line, "say");
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
    script += TheMessages.header;
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
    if (!Holds(lines.next(), TheMessages.header)) {
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

ScriptEnd ReadMessageScript(std::string_view script, editing::MessageDocument& messages) {
    const int count = CountMessages(script);
    if (count == 0) {
        return ScriptEnd::NotRecognised;
    }
    glyphs::ByteLines lines(script);
    (void)lines.next();
    for (int number = 1; number <= count; ++number) {
        if (!glyphs::ParseQuotedLine(lines.next(), messages.rows().row(number))) {
            return ScriptEnd::TooLong;
        }
    }
    return ScriptEnd::Read;
}

editing::SaveOutcome SaveMessageScript(
    ui::Dialogs& dialogs, ui::Files& files, const MessageChoice& choice,
    const editing::MessageDocument& messages) {
    if (std::find(choice.selected.begin(), choice.selected.end(), true) == choice.selected.end()) {
        dialogs.inform(texts::NoMessageSelected);
        return {};
    }
    return editing::SaveScript(dialogs, files, {.kind = TheMessages, .encode = [&](auto /*command*/) {
                                                    return WriteMessageScript(choice, messages);
                                                }});
}

editing::ScriptReader MessageReader(editing::MessageDocument& messages, const ui::Path& path) {
    const auto decode = [&messages](std::string_view script) {
        const ScriptEnd end = ReadMessageScript(script, messages);
        return editing::ScriptRead{end, end == ScriptEnd::TooLong ? texts::MessageTooLong : ""};
    };
    return {.kind = TheMessages, .path = path, .decode = decode, .failureText = texts::MessagesNotRead};
}

} // namespace scripts
