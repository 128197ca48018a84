// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace games {

/// Games whose players see each other's names by the same rules.
enum class Family : std::uint8_t { Quake, QuakeWorld, Quake2 };

inline constexpr std::array Families{Family::Quake, Family::QuakeWorld, Family::Quake2};
inline constexpr std::array<std::string_view, Families.size()> FamilyNames{"Quake", "QuakeWorld", "Quake2"};

/// Which of the families are meant, in their order.
using FamilyChoice = std::array<bool, Families.size()>;

[[nodiscard]] constexpr std::string_view NameOf(Family family) {
    return FamilyNames.at(static_cast<std::size_t>(family));
}

/// The programs that a family is played with.
enum class Engine : std::uint8_t {
    FirstQuake,
    QuakeSpasm,
    VkQuake,
    Ironwail,
    DarkPlaces,
    EzQuake,
    Fte,
    Mvdsv,
    FirstQuake2,
    Yamagi,
    Q2Pro
};

/// What is known of an engine as such.
struct EngineFacts {
    Engine engine;
    Family family;
    std::string_view name;
    std::string_view versionRun;  ///< the one that was run; empty: none
    std::string_view versionRead; ///< the one whose source was read; empty: none
};

/// One row an engine, in the order of Engine.
inline constexpr std::array Engines{
    EngineFacts{Engine::FirstQuake, Family::Quake, "original Quake", "1.09", ""},
    EngineFacts{Engine::QuakeSpasm, Family::Quake, "QuakeSpasm", "0.95.1", "0.95.1"},
    EngineFacts{Engine::VkQuake, Family::Quake, "vkQuake", "", "2025/26"},
    EngineFacts{Engine::Ironwail, Family::Quake, "Ironwail", "", "2025/26"},
    EngineFacts{Engine::DarkPlaces, Family::Quake, "DarkPlaces", "2018-09-08", "2025/26"},
    EngineFacts{Engine::EzQuake, Family::QuakeWorld, "ezQuake", "3.6.1", "2025/26"},
    EngineFacts{Engine::Fte, Family::QuakeWorld, "FTE", "", "2025/26"},
    EngineFacts{Engine::Mvdsv, Family::QuakeWorld, "MVDSV", "0.35", "2025/26"},
    EngineFacts{Engine::FirstQuake2, Family::Quake2, "original Quake II", "3.19", ""},
    EngineFacts{Engine::Yamagi, Family::Quake2, "Yamagi Quake II", "8.20", "8.71pre"},
    EngineFacts{Engine::Q2Pro, Family::Quake2, "Q2PRO", "", "2025/26"},
};

[[nodiscard]] constexpr const EngineFacts& FactsOf(Engine engine) {
    return Engines.at(static_cast<std::size_t>(engine));
}

/// How a rule came to be known.
enum class Evidence : std::uint8_t {
    Run, ///< the engine was run and what it did was read back
    Read ///< its source was read
};

/// Where a rule was seen.
struct Sighting {
    Engine engine;
    Evidence evidence;
};

/// The version of the engine that a rule was seen in.
[[nodiscard]] constexpr std::string_view VersionOf(Sighting seen) {
    const EngineFacts& facts = FactsOf(seen.engine);
    return seen.evidence == Evidence::Run ? facts.versionRun : facts.versionRead;
}

/// A sighting in words: "ezQuake 3.6.1, run".
[[nodiscard]] inline std::string SightingText(Sighting seen) {
    return std::string(FactsOf(seen.engine).name) + " " + std::string(VersionOf(seen)) +
           (seen.evidence == Evidence::Run ? ", run" : ", read");
}

} // namespace games
