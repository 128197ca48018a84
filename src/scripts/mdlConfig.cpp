// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/mdlConfig.h"

#include "glyphs/RowText.h"
#include "scripts/ConfigRewrite.h"
#include "scripts/Lines.h"
#include "scripts/Texts.h"
#include "scripts/mdlName.h"

#include <algorithm>

namespace scripts {

namespace {

ui::FileDialogRequest ConfigRequest(const char* title) {
    ui::FileDialogRequest request;
    request.title = title;
    request.initialName = "*.cfg";
    request.filters = {{"Config File (*.cfg)", {"*.cfg"}}};
    return request;
}

/// The file and its name line. A file that is not there is one without a name.
struct SearchedConfig {
    ui::Bytes bytes;
    ConfigNameLine found;
};

ui::Status Search(const ui::Files& files, const ui::Path& path, SearchedConfig& config) {
    auto bytes = files.read(path);
    if (!bytes) {
        return bytes.failure();
    }
    config.bytes = std::move(bytes).value();
    const auto found = FindNameLine(config.bytes);
    if (!found) {
        return ui::Failure{texts::TooManyLines(path)};
    }
    config.found = *found;
    return {};
}

/// Whether a line sets the player's name in some game: it may be another setting that mentions a name.
bool SetsName(std::string_view line) {
    constexpr std::string_view Blanks = " \t";
    const auto nextWord = [&line, Blanks] {
        line = line.substr(std::min(line.find_first_not_of(Blanks), line.size()));
        std::string_view word = line.substr(0, line.find_first_of(Blanks));
        line = line.substr(word.size());
        if (word.size() > 2 && word.front() == '"' && word.back() == '"') {
            word = word.substr(1, word.size() - 2);
        }
        return word;
    };
    const auto is = [](std::string_view word, std::string_view wanted) {
        return word.size() == wanted.size() && HoldsAnyCase(word, wanted);
    };
    std::string_view word = nextWord();
    if (is(word, "set") || is(word, "seta")) {
        word = nextWord();
    }
    return is(word, "name") || is(word, "_cl_name");
}

} // namespace

std::optional<ConfigNameLine> FindNameLine(std::string_view config) {
    ConfigNameLine found;
    glyphs::ByteLines lines(config);
    for (int number = 1; !lines.atEnd(); ++number) {
        if (number > MaxConfigLines) {
            return {};
        }
        const std::string_view line = lines.next();
        // Any line that mentions a name counts, a host's too, and the last one wins: the looseness is meant.
        if (HoldsAnyCase(line, "name") && !Holds(line, "//")) {
            found = {number, HoldsAnyCase(line, "set name"), ui::Bytes(line)};
        }
    }
    return found;
}

std::string NameForecast(std::string_view config) {
    const auto found = FindNameLine(config);
    if (!found) {
        return texts::TooManyLinesToChange;
    }
    if (found->number > 0) {
        return LineToBeReplacedText(found->number, found->text, SetsName(found->text) ? "" : texts::IsNoName);
    }
    if (config.empty() || config.back() == '\n' || config.back() == '\r') {
        return texts::LineIsAdded;
    }
    glyphs::ByteLines lines(config);
    int last = 0;
    for (; !lines.atEnd(); ++last) {
        lines.next();
    }
    return "Line " + std::to_string(last) + " has no line end: your name will be joined to it";
}

std::string NameForecast(const ui::Files& files, const ui::Path& path) {
    if (files.kindOf(path) == ui::PathKind::Folder) {
        return {};
    }
    if (!MayBeChanged(files, path)) {
        return texts::ConfigNotToBeChanged;
    }
    if (files.kindOf(path) == ui::PathKind::Nothing) {
        return texts::FileIsMade;
    }
    const auto config = files.read(path);
    return config ? NameForecast(config.value()) : std::string();
}

ui::FileDialogRequest LoadConfigRequest() {
    return ConfigRequest("Select the Config file");
}

ui::FileDialogRequest SaveConfigRequest(const ui::Files& files, const GamesHere& games) {
    auto request = ConfigRequest("Select The CFG File To Alter");
    request.extension = ".cfg";
    // The file is altered, not replaced.
    request.asksToOverwrite = false;
    request.forecast = [&files](const ui::Path& path) {
        return NameForecast(files, path);
    };
    request.advice = [games](const ui::Path& path) {
        return ConfigAdvice(path, games);
    };
    return request;
}

std::optional<ui::Path> ChooseConfigToLoad(ui::Dialogs& dialogs) {
    return dialogs.chooseFileToOpen(LoadConfigRequest());
}

std::optional<ui::Path>
ChooseConfigToAlter(ui::Dialogs& dialogs, const ui::Files& files, const GamesHere& games) {
    return dialogs.chooseFileToSave(SaveConfigRequest(files, games));
}

LoadOutcome LoadNameFromConfig(
    ui::Dialogs& dialogs, const ui::Files& files, const ui::Path& path, editing::NameDocument& name,
    const Repaint& repaint) {
    SearchedConfig config;
    if (const auto searched = Search(files, path, config); !searched) {
        dialogs.warn(searched.failure().message);
        return {false, searched.failure().message};
    }
    if (config.found.number == 0) {
        dialogs.inform(texts::NoNameInConfig);
        return {};
    }
    const bool fits = glyphs::ParseQuotedLine(config.found.text, name.cells);
    repaint();
    if (!fits) {
        dialogs.inform(texts::NameNotRead(path));
        return {false, texts::NameTooLong};
    }
    dialogs.inform(texts::NameReadFromConfig);
    return {
        true,
        "Line " + std::to_string(config.found.number) + " was read: " + ReadableLine(config.found.text)};
}

ConfigOutcome SaveNameToConfig(
    ui::Dialogs& dialogs, ui::Files& files, const ui::ProgramDirectory& directory, const ui::Path& path,
    const editing::NameDocument& name) {
    SearchedConfig config;
    const bool isThere = files.exists(path);
    if (isThere) {
        if (const auto searched = Search(files, path, config); !searched) {
            dialogs.warn(searched.failure().message);
            return {};
        }
    }
    const ConfigNameLine& found = config.found;
    if (found.number == 0) {
        if (const auto refused = RefuseIncomplete(files, path); !refused) {
            dialogs.warn(refused.failure().message);
            return {};
        }
        if (!dialogs.askYesNo(texts::AddNameToConfig)) {
            return {};
        }
        // The line goes right behind the last byte, even if that does not end a line.
        const ui::Bytes line = NameLine(NameCommand::Name, name) + ui::Bytes(LineEnd);
        if (const auto added = AppendToConfig(
                files, directory, path, isThere ? std::optional(config.bytes) : std::nullopt, line);
            !added) {
            dialogs.warn(added.failure().message);
            return {};
        }
        dialogs.inform(texts::NameAddedToConfig(path));
        return {true};
    }
    const NameCommand command = found.isSetName ? NameCommand::SetName : NameCommand::Name;
    const auto rewritten = RewriteConfig(
        files, directory, path, config.bytes,
        ReplaceLine(config.bytes, found.number, NameLine(command, name)));
    if (!rewritten) {
        dialogs.warn(rewritten.failure().message);
        return {};
    }
    dialogs.inform(texts::NameUpdatedInConfig(path));
    return {true, ReplacedLineText(found.number, found.text, rewritten.value().leftover)};
}

} // namespace scripts
