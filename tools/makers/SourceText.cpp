// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "makers/SourceText.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iostream>
#include <sstream>

namespace makers {

namespace {

template <class Number>
bool parseWhole(const std::string& word, Number& value) {
    const char* end = word.data() + word.size();
    const auto [next, error] = std::from_chars(word.data(), end, value);
    return error == std::errc() && next == end;
}

template <class Number>
Number numberIn(const std::string& file, int line, const std::string& word, Number low, Number high) {
    Number value = 0;
    if (!parseWhole(word, value) || !(value >= low && value <= high)) {
        std::ostringstream range;
        range << low << " to " << high;
        Refuse(file, line, "\"" + word + "\" is not a number from " + range.str());
    }
    return value;
}

} // namespace

void Refuse(const std::string& file, int line, const std::string& message) {
    throw SourceError{file + ":" + std::to_string(line) + ": " + message};
}

std::vector<SourceLine> ReadSource(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        throw SourceError{file + ": cannot be read"};
    }
    std::vector<SourceLine> lines;
    std::string text;
    for (int number = 1; std::getline(stream, text); ++number) {
        text.erase(text.find_last_not_of(" \t\r") + 1);
        if (!text.empty() && text != "#" && !text.starts_with("# ")) {
            lines.push_back({number, text});
        }
    }
    if (stream.bad()) {
        throw SourceError{file + ": cannot be read"};
    }
    return lines;
}

std::vector<std::string> SplitWords(std::string_view text) {
    std::vector<std::string> words;
    for (std::size_t at = text.find_first_not_of(' '); at != std::string_view::npos;
         at = text.find_first_not_of(' ', at)) {
        const std::size_t end = std::min(text.find(' ', at), text.size());
        words.emplace_back(text.substr(at, end - at));
        at = end;
    }
    return words;
}

double NumberIn(const std::string& file, int line, const std::string& word, double low, double high) {
    return numberIn(file, line, word, low, high);
}

int IntegerIn(const std::string& file, int line, const std::string& word, int low, int high) {
    return numberIn(file, line, word, low, high);
}

void AppendNumber(std::string& bytes, std::uint32_t value, int width) {
    for (int byte = 0; byte < width; ++byte) {
        bytes += static_cast<char>((value >> (8 * byte)) & 0xFFU);
    }
}

void WriteOutput(const std::string& file, std::string_view bytes) {
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    stream.close();
    if (!stream) {
        throw SourceError{file + ": cannot be written"};
    }
}

void PrintError(const SourceError& error) {
    std::cerr << error.message << '\n';
}

} // namespace makers
