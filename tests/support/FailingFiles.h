// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"

#include <array>
#include <limits>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace support {

/// Files that count every step, remember them in order, and fail where they are told to.
class FailingFiles final : public ui::Files {
public:
    enum class Step { Look, Read, Open, Create, Write, Resize, Flush, Close, Remove, Rename, Folder, Lock };

    /// The exit status of a process that ends by dieAt().
    static constexpr int Death = 42;

    /// Passes every step on to `files`, which outlives this object.
    explicit FailingFiles(ui::Files& files)
        : m_files(files) {}

    /// The `number`-th step of its kind from now on (1 = the next one) fails, and only that one.
    void failOnce(Step step, int number = 1);

    /// The `number`-th step of its kind from now on fails, and all that follow.
    void failFrom(Step step, int number = 1);

    /// As if the disk had room for so many bytes from now on: they are written, those after them are not.
    void failWritesAfter(std::size_t bytes);

    /// The process ends without any warning at the `number`-th step of all from now on; a write gets half of
    /// its bytes out first.
    void dieAt(int number);

    /// Nothing fails any more.
    void failNothing();

    /// How many steps of a kind were asked for, the failed ones included.
    [[nodiscard]] int count(Step step) const;

    /// Every step in order: its kind and the file's name, as in "open a.cfg" or "rename a.cfg b.cfg". A file
    /// that is made beside another is called by the name of that one.
    [[nodiscard]] const std::vector<std::string>& steps() const { return m_steps; }

    [[nodiscard]] ui::PathKind kindOf(const ui::Path& path) const override;
    [[nodiscard]] ui::Result<ui::Bytes> read(const ui::Path& path) const override;
    [[nodiscard]] ui::Result<ui::FileFacts> inspect(const ui::Path& path, ui::Links links) const override;
    [[nodiscard]] ui::Result<std::unique_ptr<ui::OutputFile>>
    open(const ui::Path& path, OpenMode mode) override;
    [[nodiscard]] ui::Result<ui::TemporaryFile> createBeside(const ui::Path& target) override;
    ui::Status remove(const ui::Path& path) override;
    ui::Status rename(const ui::Path& from, const ui::Path& to) override;
    ui::Status renameNew(const ui::Path& from, const ui::Path& to) override;
    ui::Status flushFolder(const ui::Path& folder) override;
    ui::Status makeFolder(const ui::Path& folder) override;
    [[nodiscard]] bool sameFile(const ui::Path& first, const ui::Path& second) const override;
    [[nodiscard]] ui::Result<std::unique_ptr<ui::FileLock>> lockFolder(const ui::Path& folder) override;
    [[nodiscard]] ui::Result<std::unique_ptr<ui::FileLock>> lockFile(const ui::Path& path) override;
    [[nodiscard]] ui::Result<std::unique_ptr<ui::FileLock>> tryLockFile(const ui::Path& path) override;

    [[nodiscard]] std::vector<std::string> list(const ui::Path& folder) const override {
        return m_files.list(folder);
    }

    [[nodiscard]] ui::Path spareFolder() const override { return m_files.spareFolder(); }

private:
    class File;

    struct Counter {
        int count = 0;
        int failFirst = 0; ///< 0: none
        int failLast = 0;
    };

    /// Notes a step; the failure that it shall report, if it shall.
    std::optional<ui::Failure> take(Step step, const ui::Path& path, const std::string& more = {}) const;

    Counter& counter(Step step) const { return m_counters[static_cast<std::size_t>(step)]; }

    ui::Files& m_files;
    mutable std::array<Counter, 12> m_counters{};
    mutable std::vector<std::string> m_steps;
    std::map<ui::Path, ui::Path> m_temporaries; ///< what the files made beside others are made for
    mutable int m_lifetime = 0;                 ///< steps until the process ends; 0: it does not
    std::size_t m_room = std::numeric_limits<std::size_t>::max();
};

} // namespace support
