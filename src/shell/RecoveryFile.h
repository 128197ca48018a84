// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "editing/Documents.h"
#include "ui/Files.h"

#include <cstdint>
#include <future>
#include <memory>
#include <optional>
#include <string>

namespace shell {

/// What stood on the pages at a moment.
struct WorkState {
    editing::Documents documents;
    editing::Page page = editing::Page::Name; ///< in view
    std::int64_t time = 0;                    ///< seconds since 1970, UTC

    friend bool operator==(const WorkState&, const WorkState&) = default;
};

/// The bytes of a recovery file: every cell, tick count, number and cursor as it is.
[[nodiscard]] ui::Bytes EncodeWorkState(const WorkState& state);

/// Nothing unless the bytes are those of a recovery file and every number in them is within its bounds.
[[nodiscard]] std::optional<WorkState> DecodeWorkState(std::string_view bytes);

/// Keeps what stands on the pages in a file of the user's state folder, so that it outlives the program
/// should that crash. Each running program has a file of its own, and holds a lock as long as it lives: a
/// file without one is left over. Where there is no folder nothing is kept.
class RecoveryFile {
public:
    /// Everything is borrowed and outlives the object. `folder` is made once it is needed.
    RecoveryFile(ui::Files& files, ui::Path folder);
    RecoveryFile(const RecoveryFile&) = delete;
    RecoveryFile& operator=(const RecoveryFile&) = delete;
    RecoveryFile(RecoveryFile&&) = delete;
    RecoveryFile& operator=(RecoveryFile&&) = delete;

    /// Waits for a writing that is under way. The files stay.
    ~RecoveryFile() = default;

    /// What the pages hold without any work of the user: nothing is kept until they hold something else.
    void start(const WorkState& state);

    /// Begins, in a thread of its own, to write a state whose cells, ticks or number of names are others than
    /// those kept last; unless the last one is still being written: then the next call does. Returns why the
    /// one before could not be kept.
    ui::Status keep(const WorkState& state);

    /// The newest state that a program has left over. From then on it is this program's to discard.
    std::optional<WorkState> claimLeftOver();

    /// The pages hold what was claimed: from then on its file is the one that this program keeps.
    void adoptLeftOver(const WorkState& state);

    /// Removes what was claimed.
    void discardLeftOver();

    /// The program ends as it should: removes its own file, and what was claimed.
    void end();

private:
    /// A recovery file with the lock that keeps other programs from it.
    struct Held {
        ui::Path file;
        std::unique_ptr<ui::FileLock> lock;
    };

    ui::Status write(const ui::Bytes& bytes);
    void waitForWriting();
    void remove(Held& held);

    ui::Files& m_files;
    ui::Path m_folder;
    ui::Bytes m_kept; ///< what the state kept last holds but for cursors, page and time
    Held m_own;       ///< its lock is made with the first writing
    Held m_leftOver;
    std::future<ui::Status> m_writing;
};

} // namespace shell
