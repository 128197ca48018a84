// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/ScriptFlow.h"

#include "editing/ScriptFile.h"
#include "scripts/Texts.h"
#include "ui/FileWriter.h"

namespace scripts {

SaveOutcome SaveScript(
    ui::Dialogs& dialogs, ui::Files& files, const ui::FileDialogRequest& request, std::string_view header,
    const std::function<ui::Bytes()>& content) {
    const auto path = dialogs.chooseFileToSave(request);
    if (!path || !editing::MayReplaceFile(dialogs, files, *path, header)) {
        return {};
    }
    if (const auto written = ui::WriteFile(files, *path, content()); !written) {
        dialogs.warn(written.failure().message);
        return {SaveOutcome::Kind::Failed};
    }
    dialogs.inform(texts::ScriptWritten(*path));
    return {SaveOutcome::Kind::Written, *path};
}

LoadOutcome LoadScript(
    ui::Dialogs& dialogs, const ui::Files& files, const ui::Path& path, bool quiet,
    const ScriptReader& reader, const Repaint& repaint) {
    LoadOutcome outcome;
    ReadOutcome read = ReadOutcome::NotRecognised;
    if (const auto script = files.read(path)) {
        read = reader.read(script.value());
        if (read == ReadOutcome::TooLong) {
            outcome.statusText = reader.tooLongText;
        }
    } else {
        outcome.statusText = script.failure().message;
    }
    outcome.loaded = read == ReadOutcome::Read;
    // A line that was too long has filled cells all the same: the page must not show others.
    if (read != ReadOutcome::NotRecognised) {
        repaint();
    }
    if (!outcome.loaded) {
        dialogs.inform(reader.failureText);
    } else if (!quiet) {
        dialogs.inform(texts::ScriptRead(path));
    }
    return outcome;
}

} // namespace scripts
