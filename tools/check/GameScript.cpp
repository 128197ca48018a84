// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "check/GameScript.h"

#include <algorithm>
#include <limits>
#include <string>

namespace check {

namespace {

using editing::Page;
using games::NameCommand;

constexpr int MostTicks = std::numeric_limits<std::int16_t>::max();

/// The blanks of a line. A carriage return is one at its end alone: some games end a command there.
constexpr std::string_view Blanks = " \t";
constexpr std::string_view EndBlanks = " \t\r";

std::string_view WithoutBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(Blanks), text.size()));
    return text.substr(0, text.find_last_not_of(EndBlanks) + 1);
}

/// Whether a command is a comment and hides nothing: some games end it at a carriage return and run the rest,
/// and all end the script at a byte 0. That the first games run what stands behind a ; in it, its line tells.
bool IsComment(std::string_view command) {
    constexpr std::string_view Hiding("\r\0", 2);
    return command.starts_with("//") && command.find_first_of(Hiding) == std::string_view::npos;
}

/// The commands of a line, without comments. Quotes end with the line.
std::vector<std::string_view> CommandsOf(std::string_view line) {
    std::vector<std::string_view> commands;
    const auto add = [&commands](std::string_view command) {
        const std::string_view plain = WithoutBlanks(command);
        if (!plain.empty() && !IsComment(plain)) {
            commands.push_back(plain);
        }
    };
    bool isQuoted = false;
    std::size_t start = 0;
    for (std::size_t at = 0; at < line.size(); ++at) {
        isQuoted = isQuoted != (line[at] == '"');
        if (!isQuoted && line[at] == ';') {
            add(line.substr(start, at - start));
            start = at + 1;
        }
    }
    add(line.substr(start));
    return commands;
}

/// Takes a word and what parts it from the next one off a command; false when the command begins otherwise.
bool TakeWord(std::string_view& command, std::string_view word) {
    if (!command.starts_with(word) || command.substr(word.size()).find_first_of(Blanks) != 0) {
        return false;
    }
    command = WithoutBlanks(command.substr(word.size()));
    return true;
}

class Reader {
public:
    explicit Reader(Page kind) { m_script.kind = kind; }

    /// Reads a line; what is wrong with it, if that ends the reading.
    std::string read(int number, std::string_view line) {
        const std::vector<std::string_view> commands = CommandsOf(line);
        if (commands.empty()) {
            return {};
        }
        if (std::ranges::all_of(commands, [](std::string_view command) { return command == "wait"; })) {
            return wait(commands.size());
        }
        std::string_view text = commands.front();
        const bool isRow = takeCommand(text);
        const bool isAlone = isRow && commands.size() == 1;
        if (!isAlone) {
            m_script.others.add(number);
        }
        return isRow ? addRow(number, text, isAlone) : "";
    }

    ui::Result<GameScript> script() && {
        if (m_script.rows.empty()) {
            return ui::Failure{isMessages() ? "it holds no message" : "it holds no name"};
        }
        return std::move(m_script);
    }

private:
    [[nodiscard]] bool isMessages() const { return m_script.kind == Page::Messages; }

    [[nodiscard]] std::size_t mostGlyphs() const {
        return static_cast<std::size_t>(isMessages() ? editing::MessageLength : editing::NameLength);
    }

    /// Takes the command that a row of the kind belongs to off a text.
    bool takeCommand(std::string_view& text) {
        if (isMessages()) {
            return TakeWord(text, "say") || TakeWord(text, "say_team");
        }
        const bool isSet = TakeWord(text, "set");
        if (!TakeWord(text, "name")) {
            return false;
        }
        m_script.command = isSet ? NameCommand::SetName : m_script.command.value_or(NameCommand::Name);
        return true;
    }

    std::string addRow(int number, std::string_view text, bool isAlone) {
        ScriptRow row;
        const bool isQuoted = text.size() > 1 && text.front() == '"' && text.back() == '"';
        if (isAlone && !isQuoted) {
            m_script.unquoted.add(number);
        }
        row.isKnown = isAlone && isQuoted;
        if (row.isKnown) {
            const std::string_view glyphs = text.substr(1, text.size() - 2);
            if (glyphs.size() > mostGlyphs()) {
                return (isMessages() ? "its message has more than " : "its name has more than ") +
                       std::to_string(mostGlyphs()) + " glyphs";
            }
            std::ranges::transform(glyphs, std::back_inserter(row.glyphs), [](char byte) {
                return static_cast<games::GlyphCode>(static_cast<unsigned char>(byte));
            });
        }
        return keep(number, std::move(row));
    }

    /// Keeps as many rows as a script of the kind has.
    std::string keep(int number, ScriptRow row) {
        std::vector<ScriptRow>& rows = m_script.rows;
        const auto most = static_cast<std::size_t>(
            m_script.kind == Page::Name ? 1
            : isMessages()              ? editing::MessageCount
                                        : editing::MaxNames);
        if (rows.size() < most) {
            rows.push_back(std::move(row));
            return {};
        }
        if (m_script.kind == Page::Animation) {
            return "it holds a name after the 90th";
        }
        m_script.surplus.add(number);
        if (m_script.kind == Page::Name) {
            rows.back() = std::move(row);
        }
        return {};
    }

    std::string wait(std::size_t count) {
        if (m_script.kind != Page::Animation) {
            return {};
        }
        if (m_script.rows.empty()) {
            return "it waits before the first name";
        }
        int& ticks = m_script.rows.back().ticks;
        if (count > static_cast<std::size_t>(MostTicks - ticks)) {
            return "it waits too long";
        }
        ticks += static_cast<int>(count);
        return {};
    }

    GameScript m_script;
};

} // namespace

ui::Result<GameScript> ReadGameScript(std::string_view bytes) {
    const std::string_view head = bytes.substr(0, bytes.find('\n'));
    const auto kind = std::ranges::find_if(editing::Kinds, [head](const editing::Kind& candidate) {
        return head.find(candidate.header) != std::string_view::npos;
    });
    if (kind == editing::Kinds.end()) {
        return ui::Failure{"it is not a name, animation or message script"};
    }
    Reader reader(kind->page);
    for (int line = 1; !bytes.empty(); ++line) {
        const std::size_t end = std::min(bytes.find('\n'), bytes.size());
        if (const std::string cause = reader.read(line, bytes.substr(0, end)); !cause.empty()) {
            return ui::Failure{"line " + std::to_string(line) + ": " + cause};
        }
        bytes.remove_prefix(std::min(end + 1, bytes.size()));
    }
    return std::move(reader).script();
}

} // namespace check
