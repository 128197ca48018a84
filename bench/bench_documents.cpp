// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "Editor.h"
#include "animation/mdlAniScript.h"
#include "animation/mdlAniServer.h"
#include "editing/mdlArray.h"
#include "games/RowVerdict.h"

#include <benchmark/benchmark.h>

namespace {

using bench::Editor;

/// All 90 names to the one side and to the other, each time repainted whole: what a user waits for.
void FormatAllNames(benchmark::State& state) {
    Editor editor;
    const editing::GlyphRows rows = editor.documents.animation.rows();
    for (int row = 1; row <= rows.count(); ++row) {
        for (int column = 1 + row % rows.width(); column <= rows.width(); ++column) {
            rows.cell(row, column) = glyphs::BlankGlyph;
        }
    }
    bool toTheLeft = false;
    for (auto _ : state) {
        editing::FormatRows(
            rows, editing::AllRows,
            toTheLeft ? editing::FormatOperation::AlignLeft : editing::FormatOperation::AlignRight,
            glyphs::CaseChoice::LettersOnly);
        toTheLeft = !toTheLeft;
        editing::PaintPage(editor.painter, editing::Page::Animation);
        benchmark::ClobberMemory();
    }
}

void EncodeScript(benchmark::State& state) {
    const Editor editor;
    std::size_t bytes = 0;
    for (auto _ : state) {
        const ui::Bytes script =
            animation::EncodeAnimationScript(editor.documents.animation, animation::NameCommand::Name);
        bytes += script.size();
        benchmark::DoNotOptimize(script.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes));
}

void DecodeScript(benchmark::State& state) {
    const Editor editor;
    const ui::Bytes script =
        animation::EncodeAnimationScript(editor.documents.animation, animation::NameCommand::Name);
    editing::AnimationDocument read;
    if (animation::DecodeAnimationScript(script, read).end != animation::ScriptEnd::Read ||
        read.nameGlyphs != editor.documents.animation.nameGlyphs) {
        state.SkipWithError("the script does not read back");
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(animation::DecodeAnimationScript(script, read));
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(script.size()) * state.iterations());
}

/// What all games make of a name, as it is judged at every key.
void JudgeNameForGames(benchmark::State& state) {
    const Editor editor;
    for (auto _ : state) {
        for (const games::Family family : games::Families) {
            benchmark::DoNotOptimize(
                games::JudgeName(family, games::Audience::Others, editor.documents.name.cells));
        }
    }
}

/// The same for an animation, with its times.
void JudgeAnimationForGames(benchmark::State& state) {
    const Editor editor;
    const games::TimedNames names = animation::TimedNamesOf(editor.documents.animation);
    for (auto _ : state) {
        for (const games::Family family : games::Families) {
            benchmark::DoNotOptimize(games::TimetableOf(family, names));
            for (std::size_t name = 0; name < names.count(); ++name) {
                benchmark::DoNotOptimize(games::JudgeName(family, games::Audience::Others, names.name(name)));
            }
        }
    }
}

BENCHMARK(FormatAllNames);
BENCHMARK(EncodeScript);
BENCHMARK(DecodeScript);
BENCHMARK(JudgeNameForGames);
BENCHMARK(JudgeAnimationForGames);

} // namespace
