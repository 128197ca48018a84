// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "editing/ScriptFlow.h"

#include "ui/FileWriter.h"

#include <algorithm>
#include <utility>

namespace editing {

using glyphs::NameCommand;

namespace {

/// Whether a script may be written to `path`. Asks when a file lies there that is not a script of the same
/// kind; No is the default then. An empty file is nobody's.
bool MayReplaceFile(
    ui::Dialogs& dialogs, const ui::Files& files, const ui::Path& path, std::string_view header) {
    if (!files.exists(path)) {
        return true;
    }
    if (const auto bytes = files.read(path)) {
        const std::string_view old = bytes.value();
        if (old.empty() || glyphs::ByteLines(old).next().find(header) != std::string_view::npos) {
            return true;
        }
    }
    return dialogs.box(
               {.text = "The file \"" + ui::PathText(path) +
                        "\" is not a script of this kind.\nDo you wish to replace it?",
                .buttons = ui::Buttons::YesNo,
                .prefersNo = true}) == ui::Answer::Yes;
}

/// Asks what settles the command of a script, if it has one. Yes gives the plain command and No the other
/// one, on purpose.
std::optional<NameCommand> AskCommand(ui::Dialogs& dialogs, const ScriptWriter& writer) {
    if (writer.gameQuestion.empty()) {
        return {};
    }
    const std::string detail = "Yes " + writer.commandText(NameCommand::Name) + ".\nNo " +
                               writer.commandText(NameCommand::SetName) + ".";
    const ui::Answer answer = dialogs.box(
        {.text = std::string(writer.gameQuestion), .buttons = ui::Buttons::YesNo, .detail = detail});
    return answer == ui::Answer::Yes ? NameCommand::Name : NameCommand::SetName;
}

ui::FileDialogRequest ScriptRequest(const Kind& kind) {
    const std::string pattern = "*" + std::string(kind.extension);
    ui::FileDialogRequest request;
    request.initialName = pattern;
    request.filters = {{std::string(kind.filter) + " (" + pattern + ";*.scr)", {pattern, "*.scr"}}};
    request.extension = kind.extension;
    return request;
}

} // namespace

ui::FileDialogRequest OpenScriptRequest(const Kind& kind, const ui::Path& folder) {
    ui::FileDialogRequest request = ScriptRequest(kind);
    request.title = "Select the Script file";
    if (kind.opensInFolder) {
        request.folder = folder;
    }
    return request;
}

ui::FileDialogRequest SaveScriptRequest(const Kind& kind, const ui::Path& folder) {
    ui::FileDialogRequest request = ScriptRequest(kind);
    request.title = kind.saveTitle;
    if (kind.savesInFolder) {
        request.folder = folder;
    }
    return request;
}

SaveOutcome
WriteScript(ui::Dialogs& dialogs, ui::Files& files, const ScriptWriter& writer, const ui::Path& path) {
    const std::optional<NameCommand> command = AskCommand(dialogs, writer);
    ui::Bytes script = writer.encode(command.value_or(NameCommand::Name));
    if (const ui::Status written = ui::WriteFile(files, path, script); !written) {
        std::string reason = written.failure().message;
        if (writer.kind.tellsFailuresInStatusLine) {
            std::ranges::replace(reason, '\n', ' ');
            return {SaveOutcome::Kind::Failed, {}, std::move(reason)};
        }
        dialogs.warn(reason);
        return {SaveOutcome::Kind::Failed};
    }
    dialogs.inform("Done! The script file, " + ui::PathText(path) + ", was written.");
    return {SaveOutcome::Kind::Written, path, writer.lossText, std::move(script), command};
}

SaveOutcome SaveScript(
    ui::Dialogs& dialogs, ui::Files& files, const ScriptWriter& writer, const ui::Path& folder,
    const std::function<void()>& accepted) {
    const auto path = dialogs.chooseFileToSave(SaveScriptRequest(writer.kind, folder));
    if (!path) {
        return {};
    }
    accepted();
    if (!MayReplaceFile(dialogs, files, *path, writer.kind.header)) {
        return {};
    }
    return WriteScript(dialogs, files, writer, *path);
}

ScriptRead LoadScript(
    ui::Dialogs& dialogs, const ui::Files& files, const ScriptReader& reader, bool quiet,
    OpenFailure openFailure, const std::function<void()>& repaint) {
    const ui::Result<ui::Bytes> script = files.read(reader.path);
    if (!script) {
        if (!reader.kind.tellsFailuresInStatusLine || openFailure == OpenFailure::MessageBox) {
            dialogs.inform(reader.failureText);
        }
        return {.statusText = script.failure().message};
    }
    ScriptRead read = reader.decode(script.value());
    // A row that was too long has filled cells all the same: the page must not show others.
    if (read.loaded() || read.end == ScriptEnd::TooLong) {
        repaint();
    }
    if (read.loaded() && !quiet) {
        dialogs.inform("Done! " + ui::PathText(reader.path) + " was read succesfully.");
    } else if (!read.loaded() && read.end != ScriptEnd::Abandoned) {
        dialogs.inform(reader.failureText);
    }
    return read;
}

} // namespace editing
