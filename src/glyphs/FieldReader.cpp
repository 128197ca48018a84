// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/FieldReader.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace glyphs {

namespace {

constexpr std::string_view Blanks = " \t";
constexpr std::string_view FieldEnds = ",\r\n";

} // namespace

std::optional<std::int16_t> ParseNumber(std::string_view text) {
    const std::size_t first = text.find_first_not_of(Blanks);
    if (first == std::string_view::npos) {
        return std::nullopt;
    }
    text = text.substr(first, text.find_last_not_of(Blanks) + 1 - first);
    if (text.front() == '+') {
        text.remove_prefix(1);
        if (text.starts_with('-')) {
            return std::nullopt;
        }
    }
    std::int16_t value = 0;
    const char* const begin = text.data();
    const char* const end = begin + text.size();
    const auto [stopped, error] = std::from_chars(begin, end, value);
    if (error != std::errc() || stopped != end) {
        return std::nullopt;
    }
    return value;
}

bool FieldReader::atEnd() {
    skipBlanksAndLineEnds();
    return m_at == m_bytes.size();
}

std::optional<std::string_view> FieldReader::text() {
    const bool isMissing = atEnd();
    m_fieldLine = m_line;
    m_endedAtComma = false;
    if (isMissing) {
        return std::nullopt;
    }
    if (m_bytes[m_at] != '"') {
        const std::string_view field = restOfField();
        passFieldEnd();
        return field;
    }
    ++m_at;
    const std::size_t first = m_at;
    const std::size_t end = m_bytes.find_first_of("\"\r\n", first);
    if (end == std::string_view::npos || m_bytes[end] != '"') {
        m_at = std::min(end, m_bytes.size());
        passFieldEnd();
        return std::nullopt;
    }
    m_at = end + 1;
    const bool isClean = restOfField().find_first_not_of(Blanks) == std::string_view::npos;
    passFieldEnd();
    return isClean ? std::optional(m_bytes.substr(first, end - first)) : std::nullopt;
}

std::optional<std::int16_t> FieldReader::number() {
    const bool isMissing = atEnd();
    m_fieldLine = m_line;
    m_endedAtComma = false;
    if (isMissing) {
        return std::nullopt;
    }
    const std::string_view field = restOfField();
    passFieldEnd();
    return ParseNumber(field);
}

void FieldReader::skipBlanks() {
    m_at = std::min(m_bytes.find_first_not_of(Blanks, m_at), m_bytes.size());
}

bool FieldReader::skipLineEnd() {
    if (m_at == m_bytes.size() || (m_bytes[m_at] != '\r' && m_bytes[m_at] != '\n')) {
        return false;
    }
    const bool isPair = m_bytes.substr(m_at, 2) == "\r\n";
    m_at += isPair ? 2U : 1U;
    ++m_line;
    return true;
}

void FieldReader::skipBlanksAndLineEnds() {
    do {
        skipBlanks();
    } while (skipLineEnd());
}

std::string_view FieldReader::restOfField() {
    const std::size_t first = m_at;
    m_at = std::min(m_bytes.find_first_of(FieldEnds, first), m_bytes.size());
    return m_bytes.substr(first, m_at - first);
}

void FieldReader::passFieldEnd() {
    if (m_at < m_bytes.size() && m_bytes[m_at] == ',') {
        ++m_at;
        m_endedAtComma = true;
        return;
    }
    skipLineEnd();
}

} // namespace glyphs
