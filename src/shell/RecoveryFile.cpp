// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "shell/RecoveryFile.h"

#include "editing/Kinds.h"
#include "ui/FileWriter.h"

#include <chrono>
#include <limits>
#include <utility>

namespace shell {

namespace {

using glyphs::GlyphCode;

constexpr std::string_view Mark = "VTM work 1\n";
constexpr std::string_view WorkEnd = ".work";
constexpr std::string_view LockEnd = ".lock";
constexpr std::size_t NumberSize = 2; // bytes, the low one first
constexpr int TimeNumbers = 4;

/// Passes what people work on to `visit`, number by number, with the bounds of each.
template <class Documents, class Visit>
void VisitContent(Documents& documents, Visit visit) {
    const auto visitCells = [&visit](auto& cells) {
        for (auto& cell : cells) {
            visit(cell, 0, glyphs::GlyphCount - 1);
        }
    };
    visitCells(documents.name.cells);
    visitCells(documents.animation.nameGlyphs);
    visitCells(documents.messages.cells);
    for (auto& ticks : documents.animation.nameTicks) {
        visit(ticks, 0, std::numeric_limits<std::int16_t>::max());
    }
    visit(documents.animation.nameCount, editing::MinNames, editing::MaxNames);
}

/// The same with the cursors.
template <class Documents, class Visit>
void VisitCursors(Documents& documents, Visit visit) {
    visit(documents.name.cursorPos, 1, editing::NameLength);
    visit(documents.animation.cursorPos, 1, editing::NameLength);
    visit(documents.animation.currentName, 1, documents.animation.nameCount);
    visit(documents.messages.cursorPos, 1, editing::MessageLength);
    visit(documents.messages.currentMessage, 1, editing::MessageCount);
}

void AddNumber(ui::Bytes& bytes, std::int64_t number) {
    bytes.push_back(static_cast<char>(number & 0xFF));
    bytes.push_back(static_cast<char>(number >> 8U & 0xFF));
}

ui::Bytes EncodeContent(const editing::Documents& documents) {
    ui::Bytes bytes;
    VisitContent(documents, [&bytes](int number, int, int) { AddNumber(bytes, number); });
    return bytes;
}

/// Takes numbers from the front of bytes. Past their end, or out of its bounds, a number spoils the reading.
class NumberReader {
public:
    explicit NumberReader(std::string_view bytes)
        : m_bytes(bytes) {}

    template <class Number>
    void operator()(Number& number, int least, int most) {
        const int value = next();
        m_isGood = m_isGood && value >= least && value <= most;
        if (m_isGood) {
            number = static_cast<Number>(value);
        }
    }

    int next() {
        if (m_bytes.size() < NumberSize) {
            m_isGood = false;
            return 0;
        }
        const int value = static_cast<unsigned char>(m_bytes[0]) | static_cast<unsigned char>(m_bytes[1])
                                                                       << 8;
        m_bytes.remove_prefix(NumberSize);
        return value;
    }

    /// Whether every number was there and within its bounds, and no other follows.
    [[nodiscard]] bool isWhole() const { return m_isGood && m_bytes.empty(); }

private:
    std::string_view m_bytes;
    bool m_isGood = true;
};

ui::Path LockOf(const ui::Path& file) {
    return ui::Path(file).replace_extension(LockEnd);
}

} // namespace

ui::Bytes EncodeWorkState(const WorkState& state) {
    ui::Bytes bytes(Mark);
    bytes += EncodeContent(state.documents);
    const auto add = [&bytes](int number, int, int) {
        AddNumber(bytes, number);
    };
    VisitCursors(state.documents, add);
    AddNumber(bytes, static_cast<int>(state.page));
    for (int i = 0; i < TimeNumbers; ++i) {
        AddNumber(bytes, state.time >> 16 * i);
    }
    return bytes;
}

std::optional<WorkState> DecodeWorkState(std::string_view bytes) {
    if (!bytes.starts_with(Mark)) {
        return {};
    }
    WorkState state;
    NumberReader read(bytes.substr(Mark.size()));
    VisitContent(state.documents, std::ref(read));
    VisitCursors(state.documents, std::ref(read));
    int page = 0;
    read(page, 0, static_cast<int>(editing::Kinds.size()) - 1);
    state.page = static_cast<editing::Page>(page);
    for (int i = 0; i < TimeNumbers; ++i) {
        state.time |= static_cast<std::int64_t>(read.next()) << 16 * i;
    }
    return read.isWhole() ? std::optional(state) : std::nullopt;
}

RecoveryFile::RecoveryFile(ui::Files& files, ui::Path folder)
    : m_files(files)
    , m_folder(std::move(folder)) {}

void RecoveryFile::start(const WorkState& state) {
    m_kept = EncodeContent(state.documents);
}

ui::Status RecoveryFile::keep(const WorkState& state) {
    using namespace std::chrono_literals;
    ui::Status before;
    if (m_writing.valid()) {
        if (m_writing.wait_for(0s) != std::future_status::ready) {
            return {};
        }
        before = m_writing.get();
    }
    ui::Bytes content = EncodeContent(state.documents);
    if (!m_folder.empty() && content != m_kept) {
        m_kept = std::move(content);
        m_writing =
            std::async(std::launch::async, [this, bytes = EncodeWorkState(state)] { return write(bytes); });
    }
    return before;
}

ui::Status RecoveryFile::write(const ui::Bytes& bytes) {
    if (m_own.lock == nullptr) {
        if (auto made = m_files.makeFolder(m_folder); !made) {
            return made;
        }
        const ui::Path file = m_folder / (ui::RandomName() + std::string(WorkEnd));
        if (auto made = ui::WriteFile(m_files, LockOf(file), ""); !made) {
            return made;
        }
        auto lock = m_files.tryLockFile(LockOf(file));
        if (!lock) {
            (void)m_files.remove(LockOf(file));
            return lock.failure();
        }
        m_own = {file, std::move(lock).value()};
    }
    return ui::WriteFile(m_files, m_own.file, bytes);
}

std::optional<WorkState> RecoveryFile::claimLeftOver() {
    std::optional<WorkState> newest;
    const auto names = m_folder.empty() ? std::vector<std::string>() : m_files.list(m_folder);
    for (const std::string& name : names) {
        if (!name.ends_with(WorkEnd)) {
            continue;
        }
        const ui::Path file = m_folder / ui::PathFromText(name);
        auto lock = m_files.tryLockFile(LockOf(file));
        const auto bytes = m_files.read(file);
        if (!lock || !bytes) {
            continue;
        }
        const auto state = DecodeWorkState(bytes.value());
        if (state && (!newest || state->time >= newest->time)) {
            newest = state;
            m_leftOver = {file, std::move(lock).value()};
        }
    }
    return newest;
}

void RecoveryFile::adoptLeftOver(const WorkState& state) {
    waitForWriting();
    remove(m_own);
    m_own = std::exchange(m_leftOver, {});
    start(state);
}

void RecoveryFile::discardLeftOver() {
    remove(m_leftOver);
}

void RecoveryFile::waitForWriting() {
    if (m_writing.valid()) {
        (void)m_writing.get();
    }
}

void RecoveryFile::end() {
    waitForWriting();
    remove(m_own);
    remove(m_leftOver);
}

void RecoveryFile::remove(Held& held) {
    if (held.lock != nullptr) {
        // What cannot be removed is offered at the next start: nothing is lost by that.
        (void)m_files.remove(held.file);
        (void)m_files.remove(LockOf(held.file));
        held = {};
    }
}

} // namespace shell
