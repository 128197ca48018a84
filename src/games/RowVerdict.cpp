// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "games/RowVerdict.h"

#include <algorithm>
#include <cassert>

namespace games {

namespace {

bool IsHexDigit(GlyphCode code) {
    return (code >= '0' && code <= '9') || (code >= 'A' && code <= 'F') || (code >= 'a' && code <= 'f');
}

/// A row on its way: `shown` of the verdict holds the glyphs that have come this far.
class Passage {
public:
    Passage(Family family, std::span<const GlyphCode> row) {
        assert(row.size() <= RowVerdict::MaxCells);
        m_verdict.family = family;
        std::size_t count = row.size();
        while (count > 0 && row[count - 1] == glyphs::BlankGlyph) {
            --count;
        }
        for (std::size_t i = 0; i < count; ++i) {
            m_verdict.shown[i] = row[i];
            m_verdict.columnOf[i] = static_cast<std::uint8_t>(i + 1);
        }
        m_verdict.shownCount = count;
    }

    /// Takes the row through a station; nothing passes once it is refused.
    void pass(Station station) {
        if (isRefused()) {
            return;
        }
        m_verdict.station = station;
        if (m_verdict.outcome == Outcome::Kept) {
            m_verdict.seen = ruleOf(glyphs::BlankGlyph).seen;
        }
        refuse();
        if (!isRefused()) {
            dropEnds();
            take();
        }
    }

    /// Puts another name in the place of one that games do not take.
    void replaceWholeName() {
        if (isRefused()) {
            return;
        }
        for (const WholeNameRule& rule : WholeNameRules()) {
            if (rule.family == m_verdict.family &&
                std::ranges::equal(m_verdict.shownRow(), rule.name, {}, {}, CodeOf)) {
                decide(rule.reason, rule.seen);
                return;
            }
        }
    }

    [[nodiscard]] const RowVerdict& verdict() {
        const auto& fates = m_verdict.fates;
        auto first = std::ranges::find(fates, Fate::Refused);
        if (first == fates.end()) {
            first = std::ranges::find_if(fates, [](Fate fate) { return fate != Fate::Kept; });
        }
        m_verdict.column = first == fates.end() ? 0 : static_cast<int>(first - fates.begin()) + 1;
        return m_verdict;
    }

private:
    static GlyphCode CodeOf(char letter) { return static_cast<unsigned char>(letter); }

    [[nodiscard]] bool isRefused() const {
        return m_verdict.outcome == Outcome::Refused || m_verdict.outcome == Outcome::Replaced;
    }

    [[nodiscard]] const CodeRule& ruleOf(GlyphCode code) const {
        return RuleOf(m_verdict.family, m_verdict.station, code);
    }

    [[nodiscard]] Fate& fateOf(std::size_t place) { return m_verdict.fates[m_verdict.columnOf[place] - 1U]; }

    /// Where the station ends the text.
    [[nodiscard]] std::size_t endOfText() const {
        const auto row = m_verdict.shownRow();
        const auto end = std::ranges::find_if(
            row, [this](GlyphCode code) { return ruleOf(code).action == Action::EndText; });
        return static_cast<std::size_t>(end - row.begin());
    }

    void decide(Reason reason, Sighting seen) {
        const std::string_view name = ReplacementOf(reason);
        m_verdict.outcome = name.empty() ? Outcome::Refused : Outcome::Replaced;
        m_verdict.reason = reason;
        m_verdict.seen = seen;
        m_verdict.shownCount = name.size();
        std::ranges::transform(name, m_verdict.shown.begin(), CodeOf);
        m_verdict.columnOf.fill(0);
    }

    /// Refuses the row for a glyph or a pair of glyphs that may not be in it; all of them are marked.
    void refuse() {
        const CodeRule* first = nullptr;
        const TurnRule* turned = nullptr;
        // A server looks at the whole name before it cuts it.
        const std::size_t end = m_verdict.station == Station::Others ? m_verdict.shownCount : endOfText();
        for (std::size_t i = 0; i < end; ++i) {
            const CodeRule& rule = ruleOf(m_verdict.shown[i]);
            if (rule.action != Action::Refuse) {
                continue;
            }
            if (const TurnRule* turn = TurnOf(m_verdict.family, m_verdict.shownRow(), i)) {
                turned = turn;
                fateOf(i) = Fate::Dropped;
                fateOf(i + 1) = Fate::Changed;
            } else {
                fateOf(i) = Fate::Refused;
                first = first == nullptr ? &rule : first;
            }
        }
        const PairRule* pair = findPair(end);
        if (first != nullptr) {
            decide(first->reason, first->seen);
        } else if (pair != nullptr) {
            decide(pair->reason, pair->seen);
        } else if (turned != nullptr) {
            decide(Reason::UnlessTurned, turned->seen);
        }
    }

    /// Marks the pairs before `end` that no name may hold; the rule of the first one found.
    const PairRule* findPair(std::size_t end) {
        const PairRule* found = nullptr;
        for (const PairRule& rule : PairRules()) {
            if (rule.family != m_verdict.family || rule.station != m_verdict.station) {
                continue;
            }
            for (std::size_t i = 0; i + 1 + rule.digits < end; ++i) {
                const auto digits = m_verdict.shownRow().subspan(i + 2, rule.digits);
                if (m_verdict.shown[i] == '&' && m_verdict.shown[i + 1] == rule.second &&
                    std::ranges::all_of(digits, IsHexDigit)) {
                    fateOf(i) = Fate::Refused;
                    fateOf(i + 1) = Fate::Refused;
                    found = found == nullptr ? &rule : found;
                }
            }
        }
        return found;
    }

    /// Takes what the station drops at both ends out of the row.
    void dropEnds() {
        const auto row = m_verdict.shownRow();
        const auto stays = [this](GlyphCode code) {
            return ruleOf(code).action != Action::DropAtEnds && ruleOf(code).action != Action::Drop;
        };
        m_first = static_cast<std::size_t>(std::ranges::find_if(row, stays) - row.begin());
        m_last = row.size();
        while (m_last > m_first && !stays(row[m_last - 1])) {
            --m_last;
        }
    }

    /// Does to every glyph what the station does to it.
    void take() {
        const std::size_t end = endOfText();
        std::size_t kept = 0;
        for (std::size_t i = 0; i < m_verdict.shownCount; ++i) {
            const CodeRule& rule = ruleOf(m_verdict.shown[i]);
            if (i >= end) {
                hit(i, Fate::Lost, rule);
                continue;
            }
            const bool isOutside = i < m_first || i >= m_last;
            const bool colours = rule.action == Action::ColourNext && i + 1 < end;
            if (rule.action == Action::Drop || colours || (rule.action == Action::DropAtEnds && isOutside)) {
                hit(i, Fate::Dropped, rule);
                if (!colours) {
                    continue;
                }
                ++i;
                hit(i, Fate::Changed, rule);
                showAt(kept++, i, static_cast<GlyphCode>(m_verdict.shown[i] | glyphs::ColourDistance));
                continue;
            }
            if (rule.action == Action::StripColour) {
                hit(i, Fate::Changed, rule);
                showAt(kept++, i, static_cast<GlyphCode>(m_verdict.shown[i] - glyphs::ColourDistance));
                continue;
            }
            showAt(kept++, i, m_verdict.shown[i]);
        }
        m_verdict.shownCount = kept;
    }

    /// The glyph at `from` stands at `place` of what is shown, with this code.
    void showAt(std::size_t place, std::size_t from, GlyphCode code) {
        m_verdict.shown[place] = code;
        m_verdict.columnOf[place] = m_verdict.columnOf[from];
    }

    /// The glyph at a place does not stay as it is.
    void hit(std::size_t place, Fate fate, const CodeRule& rule) {
        fateOf(place) = fate;
        if (m_verdict.outcome == Outcome::Kept) {
            m_verdict.outcome = Outcome::Changed;
            m_verdict.seen = rule.seen;
        }
        if (rule.reason != Reason::None && fate == Fate::Lost && m_verdict.reason == Reason::None) {
            m_verdict.reason = rule.reason;
        }
    }

    RowVerdict m_verdict;
    std::size_t m_first = 0; ///< the first glyph that is not dropped at the left end
    std::size_t m_last = 0;  ///< behind the last one that is not dropped at the right end
};

} // namespace

RowVerdict JudgeName(Family family, Audience audience, std::span<const GlyphCode> row) {
    Passage passage(family, row);
    passage.pass(Station::Own);
    if (audience == Audience::Others) {
        passage.pass(Station::Others);
        passage.replaceWholeName();
    }
    return passage.verdict();
}

RowVerdict JudgeMessage(Family family, std::span<const GlyphCode> row) {
    Passage passage(family, row);
    passage.pass(Station::Message);
    return passage.verdict();
}

} // namespace games
