// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/mdlName.h"

#include "games/Script.h"
#include "glyphs/RowText.h"
#include "scripts/Lines.h"
#include "scripts/Texts.h"

namespace scripts {

namespace {

const editing::Kind& TheName = editing::KindOf(editing::Page::Name);

} // namespace

std::string NameText(const editing::NameDocument& name) {
    return glyphs::RowText(name.cells);
}

std::string NameLine(NameCommand command, const editing::NameDocument& name) {
    return glyphs::NameLine(command, name.cells);
}

ui::Bytes WriteNameScript(NameCommand command, const editing::NameDocument& name) {
    ui::Bytes script = "// ";
    script += TheName.header;
    script += LineEnd;
    script += NameLine(command, name);
    script += LineEnd;
    return script;
}

ScriptEnd ReadNameScript(std::string_view script, editing::NameDocument& name) {
    glyphs::ByteLines lines(script);
    if (!Holds(lines.next(), TheName.header)) {
        return ScriptEnd::NotRecognised;
    }
    const std::string_view line = lines.next();
    if (!Holds(line, "name")) {
        return ScriptEnd::NotRecognised;
    }
    return glyphs::ParseQuotedLine(line, name.cells) ? ScriptEnd::Read : ScriptEnd::TooLong;
}

editing::ScriptWriter NameWriter(const editing::NameDocument& name) {
    return {
        .kind = TheName,
        .encode = [&name](NameCommand command) { return WriteNameScript(command, name); },
        .gameQuestion = texts::IsQuake2Name,
        .commandText = games::CommandText};
}

editing::ScriptReader NameReader(editing::NameDocument& name, const ui::Path& path) {
    const auto decode = [&name](std::string_view script) {
        const ScriptEnd end = ReadNameScript(script, name);
        return editing::ScriptRead{end, end == ScriptEnd::TooLong ? texts::NameTooLong : ""};
    };
    return {.kind = TheName, .path = path, .decode = decode, .failureText = texts::NameNotRead(path)};
}

void CopyNameToClipboard(ui::Clipboard& clipboard, ui::Dialogs& dialogs, const editing::NameDocument& name) {
    clipboard.setText(NameText(name));
    dialogs.inform(texts::NameCopied);
}

bool OffersBinding(const editing::SaveOutcome& outcome) {
    return outcome.kind != editing::SaveOutcome::Kind::Failed;
}

bool AskToBind(ui::Dialogs& dialogs) {
    return dialogs.askYesNo(texts::BindNow);
}

} // namespace scripts
