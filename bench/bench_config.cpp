// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "scripts/ConfigRewrite.h"
#include "scripts/mdlBind.h"
#include "scripts/mdlConfig.h"
#include "scripts/mdlName.h"
#include "ui/FileWriter.h"
#include "ui/Files.h"

#include <benchmark/benchmark.h>
#include <cstdlib>

namespace {

/// The longest configuration file that is taken: 32,767 lines like those of a game, the name on the last one.
ui::Bytes LongestConfig() {
    ui::Bytes config;
    for (int line = 1; line < scripts::MaxConfigLines; ++line) {
        config += "bind \"" +
                  std::string(scripts::KeyNames[static_cast<std::size_t>(line) % scripts::KeyCount]) +
                  "\" \"+forward; wait; -forward\"\n";
    }
    return config + "set name \"Player\"";
}

/// A program directory and a configuration file in a folder of their own, which goes with the object.
class Desk final : public ui::ProgramDirectory {
public:
    Desk() {
        std::string pattern = ui::PathText(std::filesystem::temp_directory_path() / "vtm-bench-XXXXXX");
        if (::mkdtemp(pattern.data()) == nullptr) {
            std::abort();
        }
        m_folder = pattern;
    }

    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;
    Desk(Desk&&) = delete;
    Desk& operator=(Desk&&) = delete;

    ~Desk() override {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }

    [[nodiscard]] ui::Path folder() const override { return m_folder; }

    [[nodiscard]] bool writable() const override { return true; }

    [[nodiscard]] ui::Path toRead(const std::string& name) const override { return m_folder / name; }

    [[nodiscard]] ui::Path toWrite(const std::string& name) const override { return m_folder / name; }

private:
    ui::Path m_folder;
};

/// Answers Yes to everything, at once.
class Yes final : public ui::Dialogs {
public:
    ui::Answer box(const ui::Message& /*message*/) override { return ui::Answer::Yes; }

    std::optional<ui::Path> chooseFileToOpen(const ui::FileDialogRequest& /*request*/) override { return {}; }

    std::optional<ui::Path> chooseFileToSave(const ui::FileDialogRequest& /*request*/) override { return {}; }

    std::optional<ui::Pixel> chooseColour(ui::Pixel /*initial*/) override { return {}; }

    void follow(
        const std::string& /*text*/, int /*steps*/,
        const std::function<void(const ui::GoesOn&)>& work) override {
        work([](int /*done*/) { return true; });
    }
};

/// Files without the wait for the disk, which depends on the disk alone.
class UnflushedFiles final : public ui::Files {
public:
    [[nodiscard]] ui::PathKind kindOf(const ui::Path& path) const override { return m_disk.kindOf(path); }

    [[nodiscard]] ui::Result<ui::Bytes> read(const ui::Path& path) const override {
        return m_disk.read(path);
    }

    [[nodiscard]] ui::Result<std::unique_ptr<ui::OutputFile>>
    open(const ui::Path& path, OpenMode mode) override {
        auto file = m_disk.open(path, mode);
        if (!file) {
            return file.failure();
        }
        return std::unique_ptr<ui::OutputFile>(std::make_unique<File>(std::move(file).value()));
    }

    ui::Status remove(const ui::Path& path) override { return m_disk.remove(path); }

    [[nodiscard]] std::vector<std::string> list(const ui::Path& folder) const override {
        return m_disk.list(folder);
    }

    [[nodiscard]] ui::Result<ui::FileFacts> inspect(const ui::Path& path, ui::Links links) const override {
        return m_disk.inspect(path, links);
    }

    [[nodiscard]] ui::Result<ui::TemporaryFile> createBeside(const ui::Path& target) override {
        auto made = m_disk.createBeside(target);
        if (!made) {
            return made.failure();
        }
        ui::TemporaryFile temporary = std::move(made).value();
        temporary.file = std::make_unique<File>(std::move(temporary.file));
        return temporary;
    }

    ui::Status rename(const ui::Path& from, const ui::Path& to) override { return m_disk.rename(from, to); }

    ui::Status renameNew(const ui::Path& from, const ui::Path& to) override {
        return m_disk.renameNew(from, to);
    }

    ui::Status flushFolder(const ui::Path& /*folder*/) override { return {}; }

    ui::Status makeFolder(const ui::Path& folder) override { return m_disk.makeFolder(folder); }

    [[nodiscard]] bool sameFile(const ui::Path& first, const ui::Path& second) const override {
        return m_disk.sameFile(first, second);
    }

    [[nodiscard]] ui::Result<std::unique_ptr<ui::FileLock>> lockFolder(const ui::Path& folder) override {
        return m_disk.lockFolder(folder);
    }

    [[nodiscard]] ui::Result<std::unique_ptr<ui::FileLock>> lockFile(const ui::Path& path) override {
        return m_disk.lockFile(path);
    }

    [[nodiscard]] ui::Result<std::unique_ptr<ui::FileLock>> tryLockFile(const ui::Path& path) override {
        return m_disk.tryLockFile(path);
    }

    [[nodiscard]] ui::Path spareFolder() const override { return {}; }

private:
    class File final : public ui::OutputFile {
    public:
        explicit File(std::unique_ptr<ui::OutputFile> file)
            : m_file(std::move(file)) {}

        ui::Status write(std::string_view bytes) override { return m_file->write(bytes); }

        ui::Status seek(std::uintmax_t position) override { return m_file->seek(position); }

        ui::Status reserve(std::uintmax_t size) override { return m_file->reserve(size); }

        ui::Status resize(std::uintmax_t size) override { return m_file->resize(size); }

        ui::Status flush() override { return {}; }

        ui::Status check(std::string_view bytes) override { return m_file->check(bytes); }

        ui::Status close() override { return m_file->close(); }

    private:
        std::unique_ptr<ui::OutputFile> m_file;
    };

    ui::DiskFiles m_disk;
};

template <class FilesUsed>
void SaveName(benchmark::State& state) {
    const Desk desk;
    const ui::Path path = desk.folder() / "config.cfg";
    FilesUsed files;
    Yes dialogs;
    if (!ui::WriteFile(files, path, LongestConfig())) {
        state.SkipWithError("the file cannot be written");
    }
    editing::NameDocument name;
    for (auto _ : state) {
        name.cells[0] = static_cast<glyphs::GlyphCode>('a' + name.cells[0] % 26);
        if (!scripts::SaveNameToConfig(dialogs, files, desk, path, name).written) {
            state.SkipWithError("the name was not saved");
        }
    }
}

template <class FilesUsed>
void ReplaceBinding(benchmark::State& state) {
    const Desk desk;
    const ui::Path path = desk.folder() / "config.cfg";
    FilesUsed files;
    Yes dialogs;
    if (!ui::WriteFile(files, path, LongestConfig())) {
        state.SkipWithError("the file cannot be written");
    }
    for (auto _ : state) {
        if (!scripts::BindKey(dialogs, files, desk, {path, "player.vtn", 3}).written) {
            state.SkipWithError("the key was not bound");
        }
    }
}

/// One line of 15 MB that is all quotes, as the binding wizard reads it.
void ReadOneLongLine(benchmark::State& state) {
    ui::Bytes config = "bind ";
    while (config.size() < 15U * 1024U * 1024U) {
        config += "\"a";
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(scripts::GetBoundKeys(config));
    }
}

BENCHMARK(ReadOneLongLine)->Name("BoundKeysOfOneLineOf15MB");

// The second of each pair waits until the disk has everything, as the program does.
BENCHMARK(SaveName<UnflushedFiles>)->Name("SaveNameIntoLongestConfig");
BENCHMARK(SaveName<ui::DiskFiles>)->Name("SaveNameIntoLongestConfigOnDisk");
BENCHMARK(ReplaceBinding<UnflushedFiles>)->Name("BindKeyInLongestConfig");
BENCHMARK(ReplaceBinding<ui::DiskFiles>)->Name("BindKeyInLongestConfigOnDisk");

} // namespace
