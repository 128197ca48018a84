// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/Settings.h"

#include "shell/SettingText.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace shell {

namespace {

const std::string Section{OptionsSection};
const std::string CharSetKey = "grid";

/// A setting with a section of its own, which is not made as long as nobody chooses.
struct ChosenSetting {
    const char* section;
    const char* key;
    std::string (*text)(const Settings&);
    void (*read)(Settings&, const std::string& text);
};

/// Shows every setting to a visitor with its key, in the order in which they are saved.
template <class SettingsType, class Visitor>
void VisitSettings(SettingsType& settings, Visitor& visitor) {
    const auto numbered = [](std::string_view stem, std::size_t number) {
        return std::string(stem) + std::to_string(number);
    };

    visitor.truth("loadatstartup", settings.loadAtStartup);
    visitor.truth("saveatexit", settings.saveAtExit);
    visitor.truth("bindprompt", settings.bindPrompt);
    visitor.truth("casechoice", settings.caseChoice);
    for (std::size_t i = 0; i < settings.colours.size(); ++i) {
        visitor.colour(numbered("color", i + 1), settings.colours[i]);
    }
    for (std::size_t i = 0; i < settings.sounds.size(); ++i) {
        visitor.truth(numbered("sound", i), settings.sounds[i]);
    }
    visitor.text("screenshot", settings.screenshot);
    visitor.truth("prompt1", settings.promptNames);
    visitor.truth("prompt2", settings.promptMessages);
    visitor.number(CharSetKey, settings.charSet);
    for (std::size_t i = 0; i < settings.cursors.size(); ++i) {
        visitor.number(numbered("cursor", i + 1), settings.cursors[i]);
    }
    for (std::size_t i = 0; i < settings.frequent.size(); ++i) {
        visitor.glyph(numbered("freq", i + 1), settings.frequent[i]);
    }
    for (std::size_t i = 0; i < settings.favourites.size(); ++i) {
        visitor.glyph(numbered("fav", i + 1), settings.favourites[i]);
    }
    visitor.truth("colmode", settings.modes.typingColour);
    visitor.truth("insmode", settings.modes.insert);
    visitor.truth("capmode", settings.modes.upperCase);
    visitor.truth("nummode", settings.modes.numberPad);
    visitor.number("maketype", settings.makeType);
}

/// Overwrites the defaults that it is shown with what is stored.
class Reader {
public:
    Reader(const ui::SettingsStore& store, std::vector<UnreadableSetting>& unreadable)
        : m_store(store)
        , m_unreadable(unreadable) {}

    void truth(const std::string& key, bool& value) { read(key, value, BooleanOf); }

    void number(const std::string& key, std::int16_t& value) { read(key, value, ShortNumberOf); }

    void text(const std::string& key, std::string& value) {
        read(key, value, [](const std::string& stored) { return std::optional<std::string>(stored); });
    }

    void colour(const std::string& key, ui::Pixel& value) {
        read(key, value, [](std::string_view stored) -> std::optional<ui::Pixel> {
            const auto packed = NumberOf(stored);
            return packed ? std::optional<ui::Pixel>(UnpackedColour(*packed)) : std::nullopt;
        });
    }

    void glyph(const std::string& key, glyphs::GlyphCode& value) {
        read(key, value, [](std::string_view stored) {
            auto code = ShortNumberOf(stored);
            if (code && (*code < 0 || *code >= glyphs::GlyphCount)) {
                code.reset();
            }
            return code;
        });
    }

private:
    template <class Value, class Conversion>
    void read(const std::string& key, Value& value, Conversion&& convert) {
        const auto stored = m_store.read(Section, key);
        if (!stored) {
            return;
        }
        if (auto converted = convert(*stored)) {
            value = *std::move(converted);
        } else {
            m_unreadable.push_back({key, *stored});
        }
    }

    const ui::SettingsStore& m_store;
    std::vector<UnreadableSetting>& m_unreadable;
};

/// Every key with its value as it is stored.
using SettingTexts = std::vector<std::pair<std::string, std::string>>;

/// Takes down the settings that it is shown.
class Writer {
public:
    explicit Writer(SettingTexts& texts)
        : m_texts(texts) {}

    void truth(const std::string& key, bool value) { text(key, TextOf(value)); }

    void number(const std::string& key, std::int16_t value) { text(key, std::to_string(value)); }

    void text(const std::string& key, const std::string& value) { m_texts.emplace_back(key, value); }

    void colour(const std::string& key, ui::Pixel value) { text(key, std::to_string(PackedColour(value))); }

    void glyph(const std::string& key, glyphs::GlyphCode value) { number(key, value); }

private:
    SettingTexts& m_texts;
};

SettingTexts TextsOf(const Settings& settings) {
    SettingTexts texts;
    Writer writer(texts);
    VisitSettings(settings, writer);
    return texts;
}

/// Takes over what the store holds by now of the settings that have not changed since they were loaded.
void KeepUnchanged(SettingTexts& texts, const Settings& loaded, const ui::SettingsStore& store) {
    const SettingTexts before = TextsOf(loaded);
    const LoadedSettings now = Load(store, {});
    const SettingTexts stored = TextsOf(now.settings);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const std::string& key = texts[i].first;
        const bool isReadable =
            store.read(Section, key) && std::ranges::none_of(now.unreadable, [&key](const auto& unreadable) {
                return unreadable.key == key;
            });
        if (texts[i] == before[i] && isReadable) {
            texts[i] = stored[i];
        }
    }
}

/// The games as they are stored: their names, with blanks between them.
std::string PlayedText(const games::FamilyChoice& played) {
    std::string text;
    for (std::size_t i = 0; i < played.size(); ++i) {
        if (played.at(i)) {
            text += (text.empty() ? "" : " ") + std::string(games::FamilyNames.at(i));
        }
    }
    return text;
}

games::FamilyChoice PlayedOf(const std::string& text) {
    games::FamilyChoice played{};
    std::istringstream names(text);
    for (std::string name; names >> name;) {
        const auto found = std::ranges::find(games::FamilyNames, name);
        if (found != games::FamilyNames.end()) {
            played.at(static_cast<std::size_t>(found - games::FamilyNames.begin())) = true;
        }
    }
    return played;
}

constexpr std::array<ChosenSetting, 4> ChosenSettings{{
    {"games", "played", [](const Settings& settings) { return PlayedText(settings.games); },
     [](Settings& settings, const std::string& text) {
         settings.games = PlayedOf(text);
     }},
    {"view", "readout", [](const Settings& settings) { return TextOf(settings.showsReadout); },
     [](Settings& settings, const std::string& text) {
         settings.showsReadout = BooleanOf(text).value_or(settings.showsReadout);
     }},
    {"view", "zoom", [](const Settings& settings) { return std::to_string(settings.zoom); },
     [](Settings& settings, const std::string& text) {
         if (const auto zoom = ShortNumberOf(text); zoom && *zoom >= FitZoom && *zoom <= MaxZoom) {
             settings.zoom = *zoom;
         }
     }},
    {"preview", "lines",
     [](const Settings& settings) { return animation::PlacedLinesText(settings.previewLines); },
     [](Settings& settings, const std::string& text) {
         settings.previewLines = animation::PlacedLinesOf(text);
     }},
}};

} // namespace

std::string DefaultScreenshot(const ui::Path& programFolder) {
    return ui::PathText(programFolder / "quake00.bmp");
}

void Defaults(Settings& settings, const ui::Path& programFolder) {
    const auto frequent = settings.frequent;
    settings = Settings{};
    settings.frequent = frequent;
    settings.screenshot = DefaultScreenshot(programFolder);
}

bool LoadsAtStartup(const ui::SettingsStore& store) {
    const auto stored = store.read(Section, "loadatstartup");
    return !stored || BooleanOf(*stored).value_or(true);
}

LoadedSettings Load(const ui::SettingsStore& store, const ui::Path& programFolder) {
    LoadedSettings loaded;
    Defaults(loaded.settings, programFolder);
    loaded.settings.frequent.fill(glyphs::BlankGlyph);
    Reader reader(store, loaded.unreadable);
    VisitSettings(loaded.settings, reader);
    if (loaded.settings.makeType < 0 || loaded.settings.makeType > 2) {
        loaded.settings.makeType = Settings{}.makeType;
    }
    for (const ChosenSetting& chosen : ChosenSettings) {
        if (const auto text = store.read(chosen.section, chosen.key)) {
            chosen.read(loaded.settings, *text);
        }
    }
    return loaded;
}

ui::Status Save(ui::SettingsStore& store, const Settings& settings, const std::optional<Settings>& loaded) {
    SettingTexts texts = TextsOf(settings);
    if (loaded) {
        // Another instance may have saved its own meanwhile.
        store.refresh();
        KeepUnchanged(texts, *loaded, store);
    }
    for (const auto& [key, text] : texts) {
        store.write(Section, key, text);
    }
    for (const ChosenSetting& chosen : ChosenSettings) {
        const bool isStored = store.read(chosen.section, chosen.key).has_value();
        const std::string text = chosen.text(settings);
        if (text != chosen.text(loaded.value_or(Settings{})) || (!loaded && isStored)) {
            store.write(chosen.section, chosen.key, text);
        }
    }
    return store.save();
}

ui::Status StoreCharSetRemoved(ui::SettingsStore& store, int removed) {
    store.refresh();
    const auto stored = store.read(Section, CharSetKey);
    const auto place = stored ? ShortNumberOf(*stored) : std::nullopt;
    if (!place || PlaceWithout(*place, removed) == *place) {
        return {};
    }
    store.write(Section, CharSetKey, std::to_string(PlaceWithout(*place, removed)));
    return store.save();
}

std::string UnreadableSettingsText(const std::vector<UnreadableSetting>& unreadable) {
    if (unreadable.empty()) {
        return {};
    }
    std::string text = unreadable.size() == 1
                           ? "A stored setting could not be read, its default is used: "
                           : "Stored settings could not be read, their defaults are used: ";
    const char* separator = "";
    for (const auto& [key, value] : unreadable) {
        text += separator + key + " = \"" + value + "\"";
        separator = ", ";
    }
    return text + ".";
}

std::string UnreadableStoreText(const ui::Failure& cause) {
    return "Your settings cannot be read, so the defaults are used and the file is left as it is. " +
           cause.message;
}

std::int32_t PackedColour(ui::Pixel colour) {
    const ui::Pixel red = (colour >> 16U) & 0xFFU;
    const ui::Pixel green = (colour >> 8U) & 0xFFU;
    const ui::Pixel blue = colour & 0xFFU;
    return static_cast<std::int32_t>(red + 256U * green + 65536U * blue);
}

ui::Pixel UnpackedColour(std::int32_t packed) {
    const auto bits = static_cast<std::uint32_t>(packed);
    return ui::OpaquePixel(bits & 0xFFU, (bits >> 8U) & 0xFFU, (bits >> 16U) & 0xFFU);
}

} // namespace shell
