// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/GamePlaces.h"

#include "shell/Workspace.h"
#include "ui/System.h"

namespace shell {

namespace {

constexpr games::System ThisSystem = games::System::Linux;

/// The files that the user works with.
std::vector<ui::Path> KnownFiles(const Workspace& workspace) {
    std::vector<ui::Path> files{workspace.rememberedConfig, workspace.rememberedScript};
    for (const editing::Kind& kind : editing::Kinds) {
        const std::vector<std::string>& recent = workspace.recent.of(kind.page);
        files.insert(files.end(), recent.begin(), recent.end());
    }
    return files;
}

} // namespace

games::GamesHere FindGames(const Workspace& workspace) {
    games::GamesHere here{.system = ThisSystem};
    here.places[games::Place::Home] = ui::HomeFolder();
    here.places[games::Place::Data] = ui::DataHome();
    here.places[games::Place::Fte] = ui::FolderVariable("FTEHOME");
    here.places.games = games::FindGames(KnownFiles(workspace), here);
    return here;
}

std::vector<ui::NamedFolder> GameFolders(const Workspace& workspace) {
    std::vector<ui::NamedFolder> folders;
    for (const games::FoundFolder& found : games::FindFolders(FindGames(workspace))) {
        folders.push_back({found.path, std::string(games::FactsOf(found.engines.front()).name)});
    }
    return folders;
}

} // namespace shell
