// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "check/Json.h"

#include "cli/Utf8.h"

#include <array>
#include <ostream>

namespace check {

std::string JsonText(std::string_view text) {
    constexpr std::string_view Digits = "0123456789abcdef";
    std::string json = "\"";
    while (!text.empty()) {
        const cli::Character character = cli::FirstOf(text);
        if (character.size == 0) {
            json += "\\ufffd";
        } else if (character.code < 0x20 || character.code == 0x7F) {
            json += "\\u00";
            json += Digits[character.code / 16];
            json += Digits[character.code % 16];
        } else {
            json += character.code == '"' || character.code == '\\' ? "\\" : "";
            json += text.substr(0, character.size);
        }
        text.remove_prefix(character.size == 0 ? 1 : character.size);
    }
    return json + "\"";
}

void JsonWriter::separate() {
    if (m_afterKey) {
        m_afterKey = false;
        return;
    }
    if (m_isFirst.empty()) {
        return;
    }
    m_output << (m_isFirst.back() ? "\n" : ",\n") << std::string(2 * m_isFirst.size(), ' ');
    m_isFirst.back() = false;
}

void JsonWriter::raw(std::string_view text) {
    separate();
    m_output << text;
}

void JsonWriter::open(char bracket) {
    raw(std::string_view(&bracket, 1));
    m_isFirst.push_back(true);
}

void JsonWriter::close(char bracket) {
    const bool isEmpty = m_isFirst.back();
    m_isFirst.pop_back();
    if (!isEmpty) {
        m_output << '\n' << std::string(2 * m_isFirst.size(), ' ');
    }
    m_output << bracket;
}

void JsonWriter::key(std::string_view name) {
    raw(JsonText(name) + ": ");
    m_afterKey = true;
}

void JsonWriter::value(std::string_view text) {
    raw(JsonText(text));
}

void JsonWriter::value(std::int64_t number) {
    raw(std::to_string(number));
}

void JsonWriter::value(bool truth) {
    raw(truth ? "true" : "false");
}

} // namespace check
