// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "games/Timetable.h"

#include <algorithm>
#include <array>

namespace games {

namespace {

/// Goes through the changes of the name, one after the other.
class Player {
public:
    Player(Family family, const TimedNames& names)
        : m_names(names)
        , m_pace(PaceOf(family)) {
        m_table.family = family;
    }

    Timetable play() {
        int start = 0;
        for (std::size_t first = 0; first < m_names.count();) {
            std::size_t next = first;
            int ticks = 0;
            do {
                ticks += m_names.ticks[next++];
            } while (next < m_names.count() && std::ranges::equal(m_names.name(next), m_names.name(first)));
            show(static_cast<int>(first) + 1, start, ticks, next == m_names.count());
            start += ticks;
            first = next;
        }
        m_table.ticks = start;
        m_table.milliseconds = start * m_pace.tick;
        return m_table;
    }

private:
    void show(int name, int start, int ticks, bool isLast) {
        ++m_table.changes;
        switch (m_table.family) {
        case Family::Quake:
            take(start);
            break;
        case Family::QuakeWorld:
            change(name, start);
            break;
        case Family::Quake2:
            send(name, ticks, isLast);
            break;
        }
    }

    /// Quake, at a DarkPlaces server.
    void take(int start) {
        if (m_table.taken == 0 || start - m_taken >= TakeLimit.ticks) {
            ++m_table.taken;
            m_taken = start;
        }
    }

    /// QuakeWorld.
    void change(int name, int start) {
        const Moment moment{name, start * m_pace.tick};
        if (m_table.cutOff.name > 0) {
            return;
        }
        if (start > WaitLimit.ticks) {
            m_table.cutOff = moment;
            return;
        }
        // Of as many changes as it takes, the one that the coming one takes the place of is the oldest.
        int& oldest = m_changes.at(static_cast<std::size_t>(m_table.changes) % m_changes.size());
        const bool isFull = m_table.changes > static_cast<int>(m_changes.size());
        if (m_table.kicked.name == 0 && isFull && start - oldest <= KickLimit.ticks) {
            m_table.kicked = moment;
        }
        oldest = start;
    }

    /// Quake2. The last name stays and is sent in the end.
    void send(int name, int ticks, bool isLast) {
        if (isLast || ticks >= SkipLimit.ticks) {
            return;
        }
        NameCount& names = ticks == 0 ? m_table.unsent : m_table.doubtful;
        names.first = names.count == 0 ? name : names.first;
        ++names.count;
    }

    const TimedNames& m_names;
    Pace m_pace;
    Timetable m_table;
    std::array<int, KickLimit.count - 1> m_changes{}; ///< when the last ones were, in a ring
    int m_taken = 0;                                  ///< when a name was last taken
};

} // namespace

Timetable TimetableOf(Family family, const TimedNames& names) {
    return Player(family, names).play();
}

} // namespace games
