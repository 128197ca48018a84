// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace makers {

/// A line of a data source, without its line end.
struct SourceLine {
    int number = 0; ///< 1-based
    std::string text;
};

/// What is wrong with a data source: ends the tool.
struct SourceError {
    std::string message;
};

/// Ends the tool with "file:line: message".
[[noreturn]] void Refuse(const std::string& file, int line, const std::string& message);

/// The lines of a source that hold something: no empty lines and none that start with '#' and a blank (or
/// are a bare '#'). Trailing blanks are cut. Refuses a file that cannot be read.
[[nodiscard]] std::vector<SourceLine> ReadSource(const std::string& file);

/// The words of a line, separated by blanks.
[[nodiscard]] std::vector<std::string> SplitWords(std::string_view text);

/// The whole word as a number. Refuses anything else, and numbers outside low to high.
[[nodiscard]] double
NumberIn(const std::string& file, int line, const std::string& word, double low, double high);

/// As NumberIn, for whole numbers.
[[nodiscard]] int IntegerIn(const std::string& file, int line, const std::string& word, int low, int high);

/// Appends a number of `width` bytes, low byte first.
void AppendNumber(std::string& bytes, std::uint32_t value, int width);

/// Writes the file whole; refuses when that fails.
void WriteOutput(const std::string& file, std::string_view bytes);

/// Prints the message to the standard error output.
void PrintError(const SourceError& error);

/// Runs a tool's work, prints its SourceError if there is one and returns the exit code.
template <class Work>
int RunTool(Work&& work) {
    try {
        work();
        return 0;
    } catch (const SourceError& error) {
        PrintError(error);
        return 1;
    }
}

} // namespace makers
