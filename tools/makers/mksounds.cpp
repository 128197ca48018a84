// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT

// mksounds SOURCE OUTPUT: synthesises the program's sounds and writes them as a C++ source file.
#include "makers/SourceText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <iostream>
#include <numbers>
#include <string>
#include <vector>

namespace {

constexpr int SampleRate = 44100;
constexpr double FadeOutMs = 8;

enum class Wave { Sine, Triangle, Noise };

struct Tone {
    Wave wave = Wave::Sine;
    double start = 0;  // milliseconds
    double from = 0;   // hertz
    double to = 0;     // hertz
    double attack = 0; // milliseconds
    double fall = 0;   // milliseconds
    double level = 0;
};

struct Sound {
    int number = 0;
    double length = 0; // milliseconds
    double peak = 0;
    std::vector<Tone> tones;
};

std::vector<Sound> parseSounds(const std::string& file) {
    std::vector<Sound> sounds;
    for (const auto& [line, text] : makers::ReadSource(file)) {
        const std::vector<std::string> words = makers::SplitWords(text);
        const auto number = [&, at = line](std::size_t index, double low, double high) {
            return makers::NumberIn(file, at, words[index], low, high);
        };
        if (words[0] == "sound") {
            if (words.size() != 4) {
                makers::Refuse(file, line, "expected: sound NUMBER LENGTH PEAK");
            }
            const int soundNumber = makers::IntegerIn(file, line, words[1], 101, 104);
            if (std::any_of(sounds.begin(), sounds.end(), [&](const Sound& sound) {
                    return sound.number == soundNumber;
                })) {
                makers::Refuse(file, line, "sound " + words[1] + " is there twice");
            }
            sounds.push_back({soundNumber, number(2, 20, 500), number(3, 0.01, 1), {}});
            continue;
        }
        constexpr std::array<std::string_view, 3> Waves = {"sine", "triangle", "noise"};
        const auto wave = std::find(Waves.begin(), Waves.end(), words[0]);
        if (wave == Waves.end() || words.size() != 7) {
            makers::Refuse(file, line, "expected: sine, triangle or noise START FROM TO ATTACK FALL LEVEL");
        }
        if (sounds.empty()) {
            makers::Refuse(file, line, "a tone before the first sound");
        }
        sounds.back().tones.push_back(
            {static_cast<Wave>(wave - Waves.begin()), number(1, 0, sounds.back().length - FadeOutMs),
             number(2, 20, 20000), number(3, 20, 20000), number(4, 0, 500), number(5, 0.1, 500),
             number(6, 0.01, 10)});
    }
    if (sounds.size() != 4) {
        throw makers::SourceError{file + ": expected the sounds 101 to 104"};
    }
    for (const Sound& sound : sounds) {
        if (sound.tones.empty()) {
            throw makers::SourceError{file + ": sound " + std::to_string(sound.number) + " has no tones"};
        }
    }
    return sounds;
}

// From 0 to 1 as `part` goes from 0 to 1, without a kink at either end.
double smoothRise(double part) {
    return 0.5 - 0.5 * std::cos(std::numbers::pi * std::clamp(part, 0.0, 1.0));
}

void addTone(std::vector<double>& mix, const Tone& tone) {
    const double length = static_cast<double>(mix.size());
    const double samplesPerMs = SampleRate / 1000.0;
    double phase = 0;
    double smoothed = 0;
    std::uint32_t random = 0x2545F491U;
    for (std::size_t at = static_cast<std::size_t>(tone.start * samplesPerMs); at < mix.size(); ++at) {
        const double time = static_cast<double>(at) / samplesPerMs - tone.start;
        const double frequency = tone.from + (tone.to - tone.from) * static_cast<double>(at) / length;
        const double turn = phase - std::floor(phase);
        double value = 0;
        switch (tone.wave) {
        case Wave::Sine:
            value = std::sin(2 * std::numbers::pi * turn);
            break;
        case Wave::Triangle:
            value = turn < 0.25 ? 4 * turn : turn < 0.75 ? 2 - 4 * turn : 4 * turn - 4;
            break;
        case Wave::Noise:
            random = random * 1664525U + 1013904223U;
            smoothed += (static_cast<double>(random >> 8U) / 8388608.0 - 1 - smoothed) *
                        std::min(1.0, 2 * std::numbers::pi * frequency / SampleRate);
            value = smoothed;
            break;
        }
        phase += frequency / SampleRate;
        const double rise = tone.attack > 0 ? smoothRise(time / tone.attack) : 1;
        const double fall = std::pow(1.0 / 3, std::max(0.0, time - tone.attack) / tone.fall);
        mix[at] += value * rise * fall * tone.level;
    }
}

std::vector<std::int16_t> synthesise(const Sound& sound) {
    std::vector<double> mix(static_cast<std::size_t>(sound.length * SampleRate / 1000));
    for (const Tone& tone : sound.tones) {
        addTone(mix, tone);
    }
    const double fadeSamples = FadeOutMs * SampleRate / 1000;
    for (std::size_t at = 0; at < mix.size(); ++at) {
        mix[at] *= smoothRise(static_cast<double>(mix.size() - 1 - at) / fadeSamples);
    }
    double loudest = 0;
    for (const double value : mix) {
        loudest = std::max(loudest, std::abs(value));
    }
    std::vector<std::int16_t> samples;
    samples.reserve(mix.size());
    for (const double value : mix) {
        samples.push_back(static_cast<std::int16_t>(std::lround(value / loudest * sound.peak * 32767)));
    }
    return samples;
}

std::string riffWave(const std::vector<std::int16_t>& samples) {
    const auto dataSize = static_cast<std::uint32_t>(samples.size() * 2);
    std::string bytes = "RIFF";
    makers::AppendNumber(bytes, 36 + dataSize, 4);
    bytes += "WAVEfmt ";
    makers::AppendNumber(bytes, 16, 4);
    makers::AppendNumber(bytes, 1, 2); // PCM
    makers::AppendNumber(bytes, 1, 2); // one channel
    makers::AppendNumber(bytes, SampleRate, 4);
    makers::AppendNumber(bytes, SampleRate * 2, 4);
    makers::AppendNumber(bytes, 2, 2);
    makers::AppendNumber(bytes, 16, 2);
    bytes += "data";
    makers::AppendNumber(bytes, dataSize, 4);
    for (const std::int16_t sample : samples) {
        makers::AppendNumber(bytes, static_cast<std::uint16_t>(sample), 2);
    }
    return bytes;
}

// The bytes as string literals: three octal digits each, so that no digit after them is swallowed.
void appendLiteral(std::string& code, std::string_view bytes) {
    constexpr std::size_t BytesPerLine = 25;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        if (at % BytesPerLine == 0) {
            code += at == 0 ? "    \"" : "\"\n    \"";
        }
        const auto byte = static_cast<unsigned char>(bytes[at]);
        code += '\\';
        for (int shift = 6; shift >= 0; shift -= 3) {
            code += static_cast<char>('0' + ((byte >> shift) & 7));
        }
    }
    code += '"';
}

std::string sourceCode(const std::vector<Sound>& sounds) {
    std::string code = "// Generated by mksounds.\n"
                       "#include \"glyphs/mdlPaint.h\"\n\n"
                       "namespace glyphs {\n\n"
                       "namespace {\n";
    std::string cases;
    for (const Sound& sound : sounds) {
        const std::string number = std::to_string(sound.number);
        const std::string bytes = riffWave(synthesise(sound));
        code += "\nconstexpr char Wave" + number + "[] =\n";
        appendLiteral(code, bytes);
        code += ";\n";
        cases += "    case " + number + ":\n        return {Wave" + number + ", " +
                 std::to_string(bytes.size()) + "};\n";
    }
    code += "\n} // namespace\n\n"
            "std::string_view SoundWave(int number) {\n"
            "    switch (number) {\n" +
            cases +
            "    default:\n"
            "        return {};\n"
            "    }\n"
            "}\n\n"
            "} // namespace glyphs\n";
    return code;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: mksounds SOURCE OUTPUT\n";
        return 2;
    }
    return makers::RunTool([&] { makers::WriteOutput(argv[2], sourceCode(parseSounds(argv[1]))); });
}
