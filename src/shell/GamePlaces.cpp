// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/GamePlaces.h"

#include "shell/Workspace.h"
#include "ui/System.h"

#include <algorithm>
#include <iterator>

namespace shell {

namespace {

/// The files that the user works with.
std::vector<ui::Path> KnownFiles(const Workspace& workspace) {
    std::vector<ui::Path> files{workspace.rememberedConfig, workspace.rememberedScript};
    for (const editing::Kind& kind : editing::Kinds) {
        std::ranges::transform(workspace.recent.of(kind.page), std::back_inserter(files), &ui::PathFromText);
    }
    return files;
}

} // namespace

games::GamesHere FindGames(const Workspace& workspace) {
    games::GamesHere here{.system = ui::ThisSystem()};
    here.places[games::Place::Home] = ui::HomeFolder();
    here.places[games::Place::Data] = ui::DataHome();
    here.places[games::Place::Fte] = ui::FolderVariable("FTEHOME");
    here.places[games::Place::Documents] = ui::DocumentsFolder();
    here.places[games::Place::SavedGames] = ui::SavedGamesFolder();
    here.places[games::Place::AppData] = ui::DataHome();
    here.places[games::Place::LocalAppData] = ui::StateHome();
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
