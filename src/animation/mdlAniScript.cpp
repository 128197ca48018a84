// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "animation/mdlAniScript.h"

#include "animation/Texts.h"
#include "animation/mdlAniName.h"
#include "games/Lists.h"
#include "games/Script.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <utility>

namespace animation {

using editing::MaxNames;
using editing::MinNames;

namespace {

const editing::Kind& TheAnimation = editing::KindOf(editing::Page::Animation);
constexpr std::string_view CountLine = "Names In The Animation Sequence";
constexpr int MaxTicks = std::numeric_limits<std::int16_t>::max();

bool Contains(std::string_view line, std::string_view text) {
    return line.find(text) != std::string_view::npos;
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// The number of names that line 2 declares in its fourth and fifth character, whatever follows them.
/// Nothing unless they are two digits (one alone would be too few names) and 15 to 90.
std::optional<int> DeclaredCount(std::string_view line) {
    if (line.size() < 5 || !IsDigit(line[3]) || !IsDigit(line[4])) {
        return std::nullopt;
    }
    const int count = (line[3] - '0') * 10 + (line[4] - '0');
    return count >= MinNames && count <= MaxNames ? std::optional(count) : std::nullopt;
}

int CountOf(std::string_view line, std::string_view text) {
    int count = 0;
    for (std::size_t at = line.find(text); at != std::string_view::npos; at = line.find(text, at)) {
        at += text.size();
        ++count;
    }
    return count;
}

/// Reads the name and wait lines one after the other.
class NameLines {
public:
    explicit NameLines(AnimationDocument& animation)
        : m_animation(animation) {}

    /// Reads a line; what is wrong with it, if it cannot be read.
    std::optional<std::string> read(std::string_view line) {
        if (Contains(line, "name")) {
            return readName(line);
        }
        if (Contains(line, "wait")) {
            return readWait(line);
        }
        return std::nullopt;
    }

    [[nodiscard]] int namesRead() const { return m_name; }

    /// How many names in use were read without a wait line.
    [[nodiscard]] int namesUntimed() const {
        const int read = std::min(m_name, m_animation.nameCount);
        return static_cast<int>(std::count(m_isTimed.begin(), m_isTimed.begin() + read, false));
    }

private:
    std::optional<std::string> readName(std::string_view line) {
        if (m_name == MaxNames) {
            return "it holds a name after the 90th";
        }
        ++m_name;
        if (!glyphs::ParseQuotedLine(line, m_animation.rows().row(m_name))) {
            return "its name has more than 15 glyphs";
        }
        return std::nullopt;
    }

    std::optional<std::string> readWait(std::string_view line) {
        if (m_name == 0) {
            return "it waits before the first name";
        }
        const int count = std::max(CountOf(line, "wait;"), 1);
        if (count > MaxTicks) {
            return "it waits too long";
        }
        SetTicks(m_animation, m_name, static_cast<std::int16_t>(count));
        m_isTimed[static_cast<std::size_t>(m_name - 1)] = true;
        return std::nullopt;
    }

    AnimationDocument& m_animation;
    std::array<bool, MaxNames> m_isTimed{}; ///< which names had a wait line
    int m_name = 0;                         ///< the name read last
};

void AddSentence(std::string& text, const std::string& sentence) {
    text += text.empty() ? sentence : ' ' + sentence;
}

/// The status text of a script that was read to its end: what the document has kept.
std::string KeptText(const DecodedScript& script, const AnimationDocument& animation) {
    std::string text;
    if (script.namesUntimed > 0) {
        AddSentence(
            text, "Names without a wait line kept the ticks of their rows: " +
                      std::to_string(script.namesUntimed) + ".");
    }
    const int missing = animation.nameCount - script.namesRead;
    const std::string last = std::to_string(animation.nameCount);
    if (missing == 1) {
        AddSentence(text, "Row " + last + " is not in the file and stayed as it was.");
    } else if (missing > 1) {
        AddSentence(
            text, "Rows " + std::to_string(script.namesRead + 1) + " to " + last +
                      " are not in the file and stayed as they were.");
    }
    return text;
}

/// The names in use that hold other glyphs than before, in order.
std::vector<int> ChangedNames(const AnimationDocument& animation, const AnimationDocument& before) {
    std::vector<int> names;
    for (int name = 1; name <= animation.nameCount; ++name) {
        if (!std::ranges::equal(animation.name(name), before.name(name))) {
            names.push_back(name);
        }
    }
    return names;
}

/// The status text of a script whose reading was abandoned. `unshown`: the names that were read all the same,
/// and which the page does not show.
std::string
AbandonedText(const DecodedScript& script, const ui::Path& path, const std::vector<int>& unshown) {
    std::string text = "Reading \"" + ui::PathText(path) + "\" stopped at line " +
                       std::to_string(script.line) + ": " + script.cause + ".";
    if (!unshown.empty()) {
        AddSentence(
            text, (unshown.size() == 1 ? "Name " : "Names ") + games::NumbersText(unshown) +
                      (unshown.size() == 1 ? " stands" : " stand") +
                      " in the animation and not on the screen.");
    }
    return text;
}

/// The status text of a script that was written: what will not come back when it is read.
std::string LossText(const AnimationDocument& animation) {
    int untimed = 0;
    int broken = 0;
    for (int name = 1; name <= animation.nameCount; ++name) {
        untimed += animation.ticks(name) > 0 ? 0 : 1;
        broken += std::ranges::any_of(animation.name(name), glyphs::BreaksScriptLine) ? 1 : 0;
    }
    std::string text;
    if (broken > 0) {
        AddSentence(
            text, "Names with glyph 10, 13 or 34, which breaks their line: " + std::to_string(broken) + ".");
    }
    if (untimed > 0) {
        AddSentence(
            text, "Names without ticks, whose rows keep theirs when the script is read: " +
                      std::to_string(untimed) + ".");
    }
    return text;
}

} // namespace

ui::Bytes EncodeAnimationScript(const AnimationDocument& animation, NameCommand command) {
    ui::Bytes bytes;
    const auto addLine = [&bytes](std::string_view line) {
        bytes.append(line).append("\r\n");
    };
    addLine("// " + std::string(TheAnimation.header));
    addLine("// " + std::to_string(animation.nameCount) + " " + std::string(CountLine));
    for (int name = 1; name <= animation.nameCount; ++name) {
        addLine(glyphs::NameLine(command, animation.name(name)));
        if (animation.ticks(name) > 0) {
            std::string waits;
            for (int tick = 0; tick < animation.ticks(name); ++tick) {
                waits += "wait; ";
            }
            addLine(waits);
        }
    }
    return bytes;
}

DecodedScript DecodeAnimationScript(std::string_view bytes, AnimationDocument& animation) {
    DecodedScript script;
    glyphs::ByteLines lines(bytes);
    if (!Contains(lines.next(), TheAnimation.header)) {
        script.end = ScriptEnd::NotRecognised;
        return script;
    }
    const std::string_view countLine = lines.next();
    if (!Contains(countLine, CountLine)) {
        script.end = ScriptEnd::NotRecognised;
        return script;
    }
    const std::optional<int> count = DeclaredCount(countLine);
    if (!count) {
        script.end = ScriptEnd::Abandoned;
        script.line = 2;
        script.cause = "it does not declare 15 to 90 names";
        return script;
    }
    SetNameCount(animation, *count);

    NameLines names(animation);
    for (int line = 3; !lines.atEnd(); ++line) {
        if (auto cause = names.read(lines.next())) {
            script.end = ScriptEnd::Abandoned;
            script.line = line;
            script.cause = std::move(*cause);
            break;
        }
    }
    script.namesRead = names.namesRead();
    script.namesUntimed = names.namesUntimed();
    return script;
}

editing::ScriptWriter AnimationWriter(const AnimationDocument& animation) {
    return {
        .kind = TheAnimation,
        .encode = [&animation](NameCommand command) { return EncodeAnimationScript(animation, command); },
        .gameQuestion = GameQuestion,
        .commandText = games::CommandText,
        .lossText = LossText(animation)};
}

editing::ScriptReader AnimationReader(AnimationDocument& animation, const ui::Path& path) {
    const auto decode = [&animation, path](std::string_view bytes) {
        const AnimationDocument before = animation;
        const DecodedScript script = DecodeAnimationScript(bytes, animation);
        if (script.end != ScriptEnd::Abandoned) {
            const bool isRead = script.end == ScriptEnd::Read;
            return editing::ScriptRead{script.end, isRead ? KeptText(script, animation) : ""};
        }
        const std::vector<int> unshown = ChangedNames(animation, before);
        return editing::ScriptRead{script.end, AbandonedText(script, path, unshown), !unshown.empty()};
    };
    return {
        .kind = TheAnimation,
        .path = path,
        .decode = decode,
        .failureText = "Error reading animation from " + ui::PathText(path) + "."};
}

} // namespace animation
