// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "Editor.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <vector>

namespace {

using bench::Editor;

double median(std::vector<double>& values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Repaints all 90 names, and copies the same bytes at once in the same breath: no painting can be quicker
/// than that copy, so their ratio says how good the painting is on any machine.
template <typename Repaint>
void repaintAgainstCopy(benchmark::State& state, Repaint repaint) {
    using Clock = std::chrono::steady_clock;
    Editor editor;
    const ui::Picture& page = editor.pictures.animation.pixels();
    ui::Picture copy(page.width(), page.height());
    const std::size_t bytes =
        static_cast<std::size_t>(page.width()) * static_cast<std::size_t>(page.height()) * sizeof(ui::Pixel);
    std::vector<double> painting;
    // Of each round by itself: what else the machine does slows both of a round.
    std::vector<double> ratios;
    for (auto _ : state) {
        const auto start = Clock::now();
        repaint(editor);
        benchmark::ClobberMemory();
        const auto painted = Clock::now();
        std::memcpy(copy.row(0), page.row(0), bytes);
        benchmark::ClobberMemory();
        const auto copied = Clock::now();
        painting.push_back(std::chrono::duration<double>(painted - start).count());
        ratios.push_back(painting.back() / std::chrono::duration<double>(copied - painted).count());
        state.SetIterationTime(painting.back());
    }
    const double cells = editing::MaxNames * editing::NameLength;
    const double paintTime = median(painting);
    state.counters["ratio"] = median(ratios);
    state.counters["cells/s"] = cells / paintTime;
}

void RepaintRowsInUse(benchmark::State& state) {
    repaintAgainstCopy(
        state, [](Editor& editor) { editing::PaintRowsFrom(editor.painter, editing::Page::Animation, 1); });
}

void RepaintAnimationPage(benchmark::State& state) {
    repaintAgainstCopy(state, [](Editor& editor) {
        editing::PaintPage(editor.painter, editing::Page::Animation);
        benchmark::DoNotOptimize(editor.progress.percentage());
    });
}

/// The argument is the page: 0 has 15 cells in a row, 2 has 31.
void PutGlyphOverwriting(benchmark::State& state) {
    Editor editor;
    const auto page = static_cast<editing::Page>(state.range(0));
    for (auto _ : state) {
        const editing::PageCursor cursor = editing::CursorOf(editor.documents, page);
        cursor.column = 1;
        editing::ShowChange(editor.painter, editing::PutGlyph(cursor, editor.modes, 'a'));
        benchmark::ClobberMemory();
    }
}

void PutGlyphInserting(benchmark::State& state) {
    Editor editor;
    editor.modes.insert = true;
    const auto page = static_cast<editing::Page>(state.range(0));
    for (auto _ : state) {
        const editing::PageCursor cursor = editing::CursorOf(editor.documents, page);
        editing::ShowChange(editor.painter, editing::PutGlyph(cursor, editor.modes, 'a'));
        benchmark::ClobberMemory();
    }
}

void DeleteGlyph(benchmark::State& state) {
    Editor editor;
    const auto page = static_cast<editing::Page>(state.range(0));
    for (auto _ : state) {
        editing::ShowChange(editor.painter, editing::DeleteGlyph(editing::CursorOf(editor.documents, page)));
        benchmark::ClobberMemory();
    }
}

BENCHMARK(RepaintRowsInUse)->UseManualTime();
BENCHMARK(RepaintAnimationPage)->UseManualTime();
BENCHMARK(PutGlyphOverwriting)->Arg(0)->Arg(2);
BENCHMARK(PutGlyphInserting)->Arg(0)->Arg(2);
BENCHMARK(DeleteGlyph)->Arg(0)->Arg(2);

} // namespace
