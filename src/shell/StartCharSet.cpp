// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/StartCharSet.h"

#include <utility>

namespace shell {

namespace {

/// Where the set that was told to be unreadable is kept; apart from the options, whose keys are settings.
const std::string ToldSection = "characterset";
const std::string ToldKey = "unreadable";

ui::Status Remember(ui::SettingsStore& store, const std::string& told) {
    store.write(ToldSection, ToldKey, told);
    return store.save();
}

constexpr auto NoCharSet = "VTM cannot start, because no character set can be read.";

std::string Quoted(const glyphs::CharSetRecord& record) {
    return '"' + glyphs::ShownText(record.name) + '"';
}

} // namespace

ui::Result<StartCharSet> LoadStartCharSet(
    ui::Files& files, const ui::ProgramDirectory& directory, ui::SettingsStore& store, int place) {
    const auto record = glyphs::ReadCharSetRecord(files, directory, place + 1);
    if (!record) {
        return ui::Consequence(NoCharSet, record.failure());
    }
    const std::string asked = std::to_string(place);
    const bool wasTold = store.read(ToldSection, ToldKey) == asked;
    auto set = glyphs::LoadCharSet(files, directory, place + 1);
    if (set) {
        if (wasTold) {
            (void)Remember(store, "");
        }
        return StartCharSet{place, std::move(set).value(), {}};
    }
    const auto readable = glyphs::FirstReadableCharSet(files, directory);
    if (!readable) {
        return ui::Consequence(NoCharSet, set.failure());
    }
    auto other = glyphs::LoadCharSet(files, directory, *readable + 1);
    if (!other) {
        return ui::Consequence(NoCharSet, set.failure());
    }
    const std::string unreadable = "The character set " + Quoted(record.value()) + " cannot be read";
    const std::string standIn = Quoted(other.value().record);
    if (wasTold) {
        return StartCharSet{
            *readable, std::move(other).value(), unreadable + "; " + standIn + " is shown instead."};
    }
    std::string meaning = unreadable + ", so the program ends.";
    if (Remember(store, asked)) {
        meaning += "\nThe next start takes the first one that can be read, " + standIn + ".";
    }
    return ui::Consequence(std::move(meaning), set.failure());
}

} // namespace shell
