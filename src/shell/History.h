// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/mdlCommon.h"

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace shell {

/// What commands changed in the documents, so that it can be taken back and done again. Commands know nothing
/// of it: whoever ran one has the documents compared with what they were.
class History {
public:
    /// How many steps are kept: what is older can no longer be taken back.
    static constexpr std::size_t MaxSteps = 8000;

    /// The command whose steps are joined: a run of typing is taken back at once.
    static constexpr std::string_view Typing = "Typing";

    /// From here on nothing can be taken back.
    void start(const editing::Documents& documents);

    /// Keeps what a command has changed, as a step of the command's name; what was taken back before can then
    /// no longer be done again. To be called after every command, with the page in view: a run of typing ends
    /// with any other command, with a move of the cursor and on another page.
    void record(editing::Documents& documents, editing::Page page, std::string_view command);

    /// The command that undo() takes back or redo() does again; nullptr: there is none.
    [[nodiscard]] const std::string* undoCommand() const;
    [[nodiscard]] const std::string* redoCommand() const;

    /// Takes the last step back, or does the next one again: cells, ticks, number of names and the cursors of
    /// the pages that it changed. Returns those pages; none when there is no such step.
    std::vector<editing::Page> undo(editing::Documents& documents);
    std::vector<editing::Page> redo(editing::Documents& documents);

private:
    struct Place {
        int column;
        int row;
        int rowsInUse;
    };

    /// A page's part of a step. Only rows that differ are kept, and only once: what the document held before
    /// the step, or after it while the step is taken back.
    struct PageChange {
        editing::Page page;
        Place before;
        Place after;
        std::vector<std::uint8_t> rows;
        std::vector<std::int16_t> cells; ///< of each of the rows; in an animation followed by its ticks
    };

    struct Step {
        std::string command;
        std::vector<PageChange> pages;
    };

    [[nodiscard]] static Place PlaceOf(const editing::PageCursor& cursor);
    [[nodiscard]] PageChange compare(editing::Documents& documents, editing::Page page);
    bool join(const Step& step);
    std::vector<editing::Page> apply(editing::Documents& documents, Step& step, Place PageChange::*cursor);

    editing::Documents m_known; ///< as they were after the last command
    editing::Page m_page = editing::Page::Name;
    std::deque<Step> m_steps;
    std::size_t m_done = 0; ///< the steps before it are done, the others taken back
    bool m_isTyping = false;
};

} // namespace shell
