// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Files.h"

#include <memory>
#include <unistd.h>
#include <utility>

namespace support {

/// Files whose process ends, without any warning, at the n-th step. A write gets half of its bytes out first.
class MortalFiles final : public ui::Files {
public:
    static constexpr int Death = 42;

    MortalFiles(ui::Files& files, int lifetime)
        : m_files(files)
        , m_left(lifetime) {}

    [[nodiscard]] bool exists(const ui::Path& path) const override { return m_files.exists(path); }

    [[nodiscard]] ui::Result<ui::Bytes> read(const ui::Path& path) const override {
        step();
        return m_files.read(path);
    }

    [[nodiscard]] ui::Result<std::unique_ptr<ui::OutputFile>>
    open(const ui::Path& path, OpenMode mode) override {
        step();
        auto file = m_files.open(path, mode);
        if (!file) {
            return file.failure();
        }
        return std::unique_ptr<ui::OutputFile>(std::make_unique<File>(*this, std::move(file).value()));
    }

    ui::Status remove(const ui::Path& path) override {
        step();
        return m_files.remove(path);
    }

    ui::Status rename(const ui::Path& from, const ui::Path& to) override {
        step();
        return m_files.rename(from, to);
    }

    [[nodiscard]] bool sameFile(const ui::Path& first, const ui::Path& second) const override {
        return m_files.sameFile(first, second);
    }

    [[nodiscard]] ui::Result<std::unique_ptr<ui::FileLock>> lockFolder(const ui::Path& folder) override {
        step();
        return m_files.lockFolder(folder);
    }

private:
    class File final : public ui::OutputFile {
    public:
        File(MortalFiles& files, std::unique_ptr<ui::OutputFile> file)
            : m_files(files)
            , m_file(std::move(file)) {}

        ui::Status write(std::string_view bytes) override {
            if (m_files.m_left == 1) {
                (void)m_file->write(bytes.substr(0, bytes.size() / 2));
            }
            m_files.step();
            return m_file->write(bytes);
        }

        ui::Status flush() override {
            m_files.step();
            return m_file->flush();
        }

        ui::Status close() override {
            m_files.step();
            return m_file->close();
        }

    private:
        MortalFiles& m_files;
        std::unique_ptr<ui::OutputFile> m_file;
    };

    void step() const {
        if (--m_left == 0) {
            ::_exit(Death);
        }
    }

    ui::Files& m_files;
    mutable int m_left;
};

} // namespace support
