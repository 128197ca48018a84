// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/GamePlaces.h"

#include "ui/System.h"

namespace shell {

games::Places PlacesHere() {
    games::Places places;
    places[games::Place::Home] = ui::HomeFolder();
    places[games::Place::Data] = ui::DataHome();
    places[games::Place::Fte] = ui::FolderVariable("FTEHOME");
    return places;
}

std::vector<ui::NamedFolder> GameFolders() {
    std::vector<ui::NamedFolder> folders;
    for (const games::FoundFolder& found :
         games::FindFolders(HereSystem, PlacesHere(), games::LookAtDisk())) {
        folders.push_back({found.path, std::string(games::FactsOf(found.engines.front()).name)});
    }
    return folders;
}

} // namespace shell
