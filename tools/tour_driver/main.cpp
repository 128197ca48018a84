// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
//
// tour_driver PROGRAM FOLDER [SCALE [CLASS]]
//
// Plays the tour on the display that WAYLAND_DISPLAY or DISPLAY names: drives the program with keys and
// mouse, takes pictures, and compares what it writes with what was typed. The exit status is 1 if anything is
// not as it should be. CLASS is the class name of the program's windows on an X display, unless it is the
// usual one.
#include "tour_driver/Scenes.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <utility>

int main(int argc, char** argv) {
    if (argc < 3 || argc > 5) {
        std::fprintf(stderr, "usage: tour_driver PROGRAM FOLDER [SCALE [CLASS]]\n");
        return 2;
    }
    constexpr std::array<std::pair<const char*, void (*)(tour::Tour&)>, 12> Scenes{{
        {"first start", tour::PlayFirstStart},
        {"name", tour::PlayName},
        {"configuration file", tour::PlayConfigurationFile},
        {"animation", tour::PlayAnimation},
        {"preview", tour::PlayPreview},
        {"messages", tour::PlayMessages},
        {"on-screen keyboard", tour::PlayOnScreenKeyboard},
        {"picker", tour::PlayPicker},
        {"options", tour::PlayOptions},
        {"help", tour::PlayHelp},
        {"exit", tour::PlayExit},
        {"second start", tour::PlaySecondStart},
    }};
    const std::unique_ptr<tour::Desktop> desktop = tour::Desktop::open(argc > 4 ? argv[4] : "VTM");
    if (!desktop) {
        std::fprintf(stderr, "tour_driver: no display that can be driven\n");
        return 2;
    }
    const char* playing = "";
    try {
        tour::Tour tour({argv[1], argv[2], argc > 3 ? std::atoi(argv[3]) : 1}, *desktop);
        try {
            for (const auto& [name, play] : Scenes) {
                playing = name;
                play(tour);
            }
        } catch (const tour::TourFailure&) {
            tour.snap("failure");
            throw;
        }
    } catch (const tour::TourFailure& failure) {
        std::fprintf(stderr, "tour_driver: in the scene \"%s\": %s\n", playing, failure.what());
        return 1;
    }
    return 0;
}
