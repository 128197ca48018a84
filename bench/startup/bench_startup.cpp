// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
//
// bench_startup [--rounds N] [--keys N] VTM FLOOR_CONTROLS FLOOR_EMPTY
//
// Measures from outside, on the display that DISPLAY names and that nobody else uses, how long each program
// takes from its start to its first paint, what memory it has needed by then, and how soon a key press is on
// the screen, N keys in each round. The programs take turns, and ratios are taken round by round, so a
// machine that is busy now and then slows both sides. Prints a table in Markdown; the exit status is 1 when a
// ratio is over its limit.
#include "startup/Watcher.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

namespace {

using bench::KeyEcho;
using bench::Start;
using bench::Watcher;

constexpr double PaintLimitToControls = 1.2;
constexpr double PaintLimitToEmpty = 2.7;
constexpr double MemoryLimitToControls = 1.2;
constexpr double KeyLimitToControls = 1.25;
/// A cell of the page: what is typed repaints no more. The other areas are the marker's on the glyph grid.
/// The median key is judged: a cursor that blinks just then adds an area of its own to some.
constexpr double KeyLimitPixels = 16 * 16;

double median(std::vector<double> values) {
    if (values.empty()) {
        return 0;
    }
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

template <typename Measured>
double medianOfAll(const std::vector<Measured>& all, double Measured::*field) {
    std::vector<double> values(all.size());
    std::transform(all.begin(), all.end(), values.begin(), std::mem_fn(field));
    return median(values);
}

struct Subject {
    const char* name;
    std::string path;
    std::vector<Start> starts = {};
    std::vector<KeyEcho> echoes = {}; ///< of each round, the medians of its keys

    [[nodiscard]] double medianOf(double Start::*field) const { return medianOfAll(starts, field); }

    [[nodiscard]] double medianOf(double KeyEcho::*field) const { return medianOfAll(echoes, field); }
};

/// The median of the ratios of two programs, taken round by round.
template <typename Measured>
double ratioOfAll(
    const std::vector<Measured>& subject, const std::vector<Measured>& floor, double Measured::*field) {
    std::vector<double> ratios;
    for (std::size_t round = 0; round < subject.size(); ++round) {
        ratios.push_back(subject[round].*field / floor[round].*field);
    }
    return median(ratios);
}

double ratio(const Subject& subject, const Subject& floor, double Start::*field) {
    return ratioOfAll(subject.starts, floor.starts, field);
}

double ratio(const Subject& subject, const Subject& floor, double KeyEcho::*field) {
    return ratioOfAll(subject.echoes, floor.echoes, field);
}

bool judge(const char* what, double value, double limit) {
    const bool kept = value <= limit;
    std::printf("%s %s: %.2f, limit %.2f\n", kept ? "kept:" : "OVER:", what, value, limit);
    return kept;
}

int number(const char* text) {
    return std::max(1, std::atoi(text));
}

} // namespace

int main(int argc, char** argv) {
    int rounds = 25;
    int keys = 8;
    std::vector<std::string> paths;
    for (int index = 1; index < argc; ++index) {
        if (std::strcmp(argv[index], "--rounds") == 0 && index + 1 < argc) {
            rounds = number(argv[++index]);
        } else if (std::strcmp(argv[index], "--keys") == 0 && index + 1 < argc) {
            keys = number(argv[++index]);
        } else {
            paths.emplace_back(argv[index]);
        }
    }
    if (paths.size() != 3) {
        std::fprintf(stderr, "usage: bench_startup [--rounds N] [--keys N] VTM FLOOR_CONTROLS FLOOR_EMPTY\n");
        return 2;
    }

    Watcher watcher;
    if (!watcher.connected()) {
        std::fprintf(stderr, "bench_startup: no display with the extensions DAMAGE and XTEST\n");
        return 2;
    }
    std::array<Subject, 3> subjects{
        {{"VTM", paths[0]}, {"the same controls", paths[1]}, {"an empty window", paths[2]}}};

    // The first round warms the file cache and lets the program write what it writes once.
    for (int round = -1; round < rounds; ++round) {
        for (std::size_t turn = 0; turn < subjects.size(); ++turn) {
            Subject& subject = subjects[(turn + static_cast<std::size_t>(round + 1)) % subjects.size()];
            const auto start = watcher.start(subject.path);
            if (!start) {
                std::fprintf(stderr, "bench_startup: %s does not paint\n", subject.path.c_str());
                return 2;
            }
            if (round >= 0) {
                subject.starts.push_back(*start);
            }
        }
    }
    // An empty window answers no keys.
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t turn = 0; turn < 2; ++turn) {
            Subject& subject = subjects[(turn + static_cast<std::size_t>(round)) % 2];
            const std::vector<KeyEcho> echoes = watcher.pressKeys(subject.path, keys);
            if (echoes.empty()) {
                std::fprintf(stderr, "bench_startup: %s does not answer keys\n", subject.path.c_str());
                return 2;
            }
            subject.echoes.push_back(
                {medianOfAll(echoes, &KeyEcho::milliseconds), medianOfAll(echoes, &KeyEcho::areas),
                 medianOfAll(echoes, &KeyEcho::largest)});
        }
    }

    const auto& [program, controls, empty] = subjects;
    std::printf("In brackets: the ratio to a window with the same controls.\n\n");
    std::printf("| program | start to first paint | computing | peak memory | key to screen |\n");
    std::printf("| --- | --- | --- | --- | --- |\n");
    for (const Subject& subject : subjects) {
        std::printf(
            "| %s | %.1f ms (%.2f) | %.1f ms (%.2f) | %.1f MiB (%.2f) |", subject.name,
            subject.medianOf(&Start::paintMilliseconds), ratio(subject, controls, &Start::paintMilliseconds),
            subject.medianOf(&Start::cpuMilliseconds), ratio(subject, controls, &Start::cpuMilliseconds),
            subject.medianOf(&Start::peakMebibytes), ratio(subject, controls, &Start::peakMebibytes));
        if (subject.echoes.empty()) {
            std::printf(" |\n");
        } else {
            std::printf(
                " %.2f ms (%.2f), %.0f areas of %.0f pixels at most |\n",
                subject.medianOf(&KeyEcho::milliseconds), ratio(subject, controls, &KeyEcho::milliseconds),
                subject.medianOf(&KeyEcho::areas), subject.medianOf(&KeyEcho::largest));
        }
    }
    std::printf("\n");

    bool kept = judge(
        "first paint, against the same controls", ratio(program, controls, &Start::paintMilliseconds),
        PaintLimitToControls);
    kept &= judge(
        "first paint, against an empty window", ratio(program, empty, &Start::paintMilliseconds),
        PaintLimitToEmpty);
    kept &= judge(
        "peak memory, against the same controls", ratio(program, controls, &Start::peakMebibytes),
        MemoryLimitToControls);
    kept &= judge(
        "key to screen, against the same controls", ratio(program, controls, &KeyEcho::milliseconds),
        KeyLimitToControls);
    kept &= judge(
        "largest area of a key, median of all keys, in pixels", program.medianOf(&KeyEcho::largest),
        KeyLimitPixels);
    return kept ? 0 : 1;
}
