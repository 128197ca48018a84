// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/mdlName.h"

#include "glyphs/RowText.h"
#include "scripts/Lines.h"
#include "scripts/ScriptFlow.h"
#include "scripts/Texts.h"

namespace scripts {

namespace {

ui::FileFilter NameScriptFilter() {
    return {"VTM Name Script (*.vtn;*.scr)", {"*.vtn", "*.scr"}};
}

} // namespace

std::string NameText(const editing::NameDocument& name) {
    return glyphs::RowText(name.cells);
}

std::string NameLine(NameCommand command, const editing::NameDocument& name) {
    return glyphs::NameLine(command, name.cells);
}

ui::Bytes WriteNameScript(NameCommand command, const editing::NameDocument& name) {
    ui::Bytes script = "// ";
    script += NameScriptHeader;
    script += LineEnd;
    script += NameLine(command, name);
    script += LineEnd;
    return script;
}

ReadOutcome ReadNameScript(std::string_view script, editing::NameDocument& name) {
    glyphs::ByteLines lines(script);
    if (!Holds(lines.next(), NameScriptHeader)) {
        return ReadOutcome::NotRecognised;
    }
    const std::string_view line = lines.next();
    if (!Holds(line, "name")) {
        return ReadOutcome::NotRecognised;
    }
    return glyphs::ParseQuotedLine(line, name.cells) ? ReadOutcome::Read : ReadOutcome::TooLong;
}

ui::FileDialogRequest SaveNameScriptRequest(const ui::Path& folder) {
    ui::FileDialogRequest request;
    request.title = "Save as a Script File";
    request.initialName = "*.vtn";
    request.filters = {NameScriptFilter()};
    request.folder = folder;
    request.extension = ".vtn";
    return request;
}

ui::FileDialogRequest LoadNameScriptRequest() {
    ui::FileDialogRequest request;
    request.title = "Select the Script file";
    request.initialName = "*.vtn";
    request.filters = {NameScriptFilter()};
    return request;
}

SaveOutcome SaveNameScript(
    ui::Dialogs& dialogs, ui::Files& files, const ui::Path& folder, const editing::NameDocument& name) {
    const auto script = [&] {
        // Yes gives the plain command and No the other one. It reads like a slip, but it is meant.
        const bool isPlain = dialogs.askYesNo(texts::IsQuake2Name);
        return WriteNameScript(isPlain ? NameCommand::Name : NameCommand::SetName, name);
    };
    return SaveScript(dialogs, files, SaveNameScriptRequest(folder), NameScriptHeader, script);
}

std::optional<ui::Path> ChooseNameScript(ui::Dialogs& dialogs) {
    return dialogs.chooseFileToOpen(LoadNameScriptRequest());
}

LoadOutcome LoadNameScript(
    ui::Dialogs& dialogs, const ui::Files& files, const ui::Path& path, bool quiet,
    editing::NameDocument& name, const Repaint& repaint) {
    const ScriptReader reader{
        [&](std::string_view script) { return ReadNameScript(script, name); }, texts::NameNotRead(path),
        texts::NameTooLong};
    return LoadScript(dialogs, files, path, quiet, reader, repaint);
}

void CopyNameToClipboard(ui::Clipboard& clipboard, ui::Dialogs& dialogs, const editing::NameDocument& name) {
    clipboard.setText(NameText(name));
    dialogs.inform(texts::NameCopied);
}

bool OffersBinding(const SaveOutcome& outcome) {
    return outcome.kind != SaveOutcome::Kind::Failed;
}

bool AskToBind(ui::Dialogs& dialogs) {
    return dialogs.askYesNo(texts::BindNow);
}

} // namespace scripts
