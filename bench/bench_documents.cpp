// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "Editor.h"
#include "animation/mdlAniScript.h"
#include "editing/mdlArray.h"

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

BENCHMARK(FormatAllNames);
BENCHMARK(EncodeScript);
BENCHMARK(DecodeScript);

} // namespace
