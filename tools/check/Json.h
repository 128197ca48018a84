// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

namespace check {

/// A text as JSON writes it, with its quotes. Bytes that are not UTF-8 become U+FFFD.
[[nodiscard]] std::string JsonText(std::string_view text);

/// Writes JSON, indented, piece by piece. Objects and arrays are opened and closed in pairs.
class JsonWriter {
public:
    explicit JsonWriter(std::ostream& output)
        : m_output(output) {}

    void open(char bracket);
    void close(char bracket);
    void key(std::string_view name);
    void value(std::string_view text);
    void value(std::int64_t number);
    void value(bool truth);

    void value(const char* text) { value(std::string_view(text)); }

    /// A member of an object.
    template <class T>
    void member(std::string_view name, const T& content) {
        key(name);
        value(content);
    }

    /// An array of numbers, on one line.
    template <class Range>
    void numbers(std::string_view name, const Range& range) {
        key(name);
        std::string text;
        for (const auto number : range) {
            text += (text.empty() ? "" : ", ") + std::to_string(number);
        }
        raw("[" + text + "]");
    }

private:
    void separate();
    void raw(std::string_view text);

    std::ostream& m_output;
    std::vector<bool> m_isFirst; ///< for every open bracket whether nothing stands in it yet
    bool m_afterKey = false;
};

} // namespace check
