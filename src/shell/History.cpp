// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/History.h"

#include "editing/Kinds.h"

#include <algorithm>
#include <utility>

namespace shell {

using editing::Documents;
using editing::Page;

namespace {

constexpr std::size_t MostMemory = 32U << 20U;
/// The bytes of a step that changes every row of the three documents: rows, ticks and their containers.
constexpr std::size_t LargestStep = sizeof(Documents) + editing::MaxNames + 512;
static_assert(History::MaxSteps * LargestStep <= MostMemory);

/// The ticks of a page's row; nullptr where rows have none.
std::int16_t* TicksOf(Documents& documents, Page page, int row) {
    return page == Page::Animation ? &documents.animation.ticks(row) : nullptr;
}

} // namespace

History::Place History::PlaceOf(const editing::PageCursor& cursor) {
    return {cursor.column, cursor.row, cursor.rowsInUse};
}

void History::start(const Documents& documents) {
    m_known = documents;
    m_steps.clear();
    m_done = 0;
    m_isTyping = false;
}

void History::record(Documents& documents, Page page, std::string_view command) {
    const bool isSamePage = page == std::exchange(m_page, page);
    m_isTyping = m_isTyping && isSamePage && command == Typing;
    if (documents == m_known) {
        return;
    }
    Step step{std::string(command), {}};
    for (const editing::Kind& kind : editing::Kinds) {
        if (PageChange change = compare(documents, kind.page);
            !change.rows.empty() || change.before.rowsInUse != change.after.rowsInUse) {
            step.pages.push_back(std::move(change));
        }
    }
    m_known = documents;
    if (step.pages.empty()) {
        // Only the cursor has moved, as it does when a blank is typed over a blank.
        if (m_isTyping) {
            m_steps.back().pages[0].after = PlaceOf(editing::CursorOf(documents, page));
        }
        return;
    }
    m_steps.resize(m_done);
    if (!m_isTyping || !join(step)) {
        m_steps.push_back(std::move(step));
        if (m_steps.size() > MaxSteps) {
            m_steps.pop_front();
        }
        m_done = m_steps.size();
    }
    m_isTyping = command == Typing;
}

History::PageChange History::compare(Documents& documents, Page page) {
    const editing::PageCursor before = editing::CursorOf(m_known, page);
    const editing::PageCursor after = editing::CursorOf(documents, page);
    PageChange change{page, PlaceOf(before), PlaceOf(after), {}, {}};
    for (int row = 1; row <= after.rows.count(); ++row) {
        const std::int16_t* const ticks = TicksOf(m_known, page, row);
        const bool isSame = std::ranges::equal(before.rows.row(row), after.rows.row(row)) &&
                            (ticks == nullptr || *ticks == *TicksOf(documents, page, row));
        if (!isSame) {
            change.rows.push_back(static_cast<std::uint8_t>(row));
            change.cells.insert(change.cells.end(), before.rows.row(row).begin(), before.rows.row(row).end());
            if (ticks != nullptr) {
                change.cells.push_back(*ticks);
            }
        }
    }
    change.rows.shrink_to_fit();
    change.cells.shrink_to_fit();
    return change;
}

/// Adds a step to the last one if that holds its rows already.
bool History::join(const Step& step) {
    Step& last = m_steps.back();
    if (last.pages.size() != 1 || step.pages.size() != 1 || last.pages[0].page != step.pages[0].page ||
        last.pages[0].rows != step.pages[0].rows) {
        return false;
    }
    last.pages[0].after = step.pages[0].after;
    return true;
}

const std::string* History::undoCommand() const {
    return m_done == 0 ? nullptr : &m_steps[m_done - 1].command;
}

const std::string* History::redoCommand() const {
    return m_done == m_steps.size() ? nullptr : &m_steps[m_done].command;
}

std::vector<Page> History::undo(Documents& documents) {
    return m_done == 0 ? std::vector<Page>() : apply(documents, m_steps[--m_done], &PageChange::before);
}

std::vector<Page> History::redo(Documents& documents) {
    return m_done == m_steps.size() ? std::vector<Page>()
                                    : apply(documents, m_steps[m_done++], &PageChange::after);
}

std::vector<Page> History::apply(Documents& documents, Step& step, Place PageChange::*cursor) {
    std::vector<Page> pages;
    for (PageChange& change : step.pages) {
        const editing::PageCursor live = editing::CursorOf(documents, change.page);
        auto kept = change.cells.begin();
        for (const std::uint8_t row : change.rows) {
            const auto cells = live.rows.row(row);
            kept = std::swap_ranges(cells.begin(), cells.end(), kept);
            if (std::int16_t* const ticks = TicksOf(documents, change.page, row); ticks != nullptr) {
                std::swap(*ticks, *kept++);
            }
        }
        live.column = (change.*cursor).column;
        live.row = (change.*cursor).row;
        if (change.page == Page::Animation) {
            documents.animation.nameCount = (change.*cursor).rowsInUse;
        }
        pages.push_back(change.page);
    }
    m_known = documents;
    m_isTyping = false;
    return pages;
}

} // namespace shell
