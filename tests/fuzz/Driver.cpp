// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
//
// Runs a fuzz target without libFuzzer: on the files and folders that it is given, and on mutations of the
// files in the folders. The mutations are the same at every run and with every compiler. The input at hand is
// kept in a file in the current folder, which stays behind when the target crashes; given that file alone,
// the driver runs it again.
#include "fuzz/Fuzz.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr std::size_t MutationCount = 4000;
constexpr std::size_t MaxMutationSize = 16384;

/// Bytes at which readers change their mind.
constexpr std::string_view Telling("\0\t\n\r\x1A \"',-./0179:;\\\x7F\x80\xFE\xFF", 23);

std::string readFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::fprintf(stderr, "Could not open \"%s\".\n", path.c_str());
        std::exit(2);
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Inputs made of others by a few changes each.
class Mutator {
public:
    explicit Mutator(const std::vector<std::string>& seeds)
        : m_seeds(seeds) {}

    std::string next() {
        std::string input = seed();
        for (std::size_t changes = 1 + below(6); changes > 0; --changes) {
            change(input);
        }
        input.resize(std::min(input.size(), MaxMutationSize));
        return input;
    }

private:
    /// 0 to limit - 1; 0 when the limit is 0. Distributions of the library differ from one to another.
    std::size_t below(std::size_t limit) {
        return limit == 0 ? 0 : static_cast<std::size_t>(m_random() % limit);
    }

    const std::string& seed() { return m_seeds[below(m_seeds.size())]; }

    /// Some bytes of a text, the more of them the rarer.
    std::string part(const std::string& text) {
        const std::size_t first = below(text.size());
        return text.substr(first, 1 + below(std::size_t(1) << below(10)));
    }

    char anyByte() { return below(2) == 0 ? Telling[below(Telling.size())] : static_cast<char>(below(256)); }

    void change(std::string& input) {
        const std::size_t at = below(input.size() + 1);
        const std::string here = part(input);
        switch (below(8)) {
        case 0:
            input.insert(at, 1, anyByte());
            break;
        case 1:
            input.erase(at, here.size());
            break;
        case 2:
            input.insert(at, here);
            break;
        case 3:
            input.insert(at, part(seed()));
            break;
        case 4:
            input.resize(at);
            break;
        case 5:
            input.insert(at, std::string(1 + below(std::size_t(1) << below(12)), anyByte()));
            break;
        case 6:
            if (at < input.size()) {
                input[at] = static_cast<char>(static_cast<unsigned char>(input[at]) ^ (1U << below(8)));
            }
            break;
        default:
            if (at < input.size()) {
                input[at] = anyByte();
            }
            break;
        }
    }

    const std::vector<std::string>& m_seeds;
    std::mt19937_64 m_random{20031105};
};

/// The input that the target runs on, in memory that outlives a crash of the process that runs it.
class SharedInput {
public:
    SharedInput()
        : m_memory(::mmap(nullptr, Size, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)) {
        if (m_memory == MAP_FAILED) {
            std::perror("mmap");
            std::exit(2);
        }
    }

    SharedInput(const SharedInput&) = delete;
    SharedInput& operator=(const SharedInput&) = delete;
    SharedInput(SharedInput&&) = delete;
    SharedInput& operator=(SharedInput&&) = delete;

    ~SharedInput() { ::munmap(m_memory, Size); }

    void run(const std::string& input) const {
        const std::size_t size = std::min(input.size(), Size - sizeof(std::size_t));
        std::memcpy(m_memory, &size, sizeof size);
        std::memcpy(bytes(), input.data(), size);
        // A buffer of the very size: what reads past its end is caught by the sanitizer.
        const std::vector<std::uint8_t> buffer(input.begin(), input.end());
        LLVMFuzzerTestOneInput(buffer.data(), buffer.size());
    }

    [[nodiscard]] std::string_view lastInput() const {
        std::size_t size = 0;
        std::memcpy(&size, m_memory, sizeof size);
        return {bytes(), size};
    }

private:
    static constexpr std::size_t Size = std::size_t(1) << 24U;

    [[nodiscard]] char* bytes() const { return static_cast<char*>(m_memory) + sizeof(std::size_t); }

    void* m_memory;
};

void runAll(
    const SharedInput& input, const std::vector<std::filesystem::path>& files,
    const std::vector<std::filesystem::path>& seedFiles) {
    for (const std::filesystem::path& file : files) {
        input.run(readFile(file));
    }
    std::vector<std::string> seeds;
    for (const std::filesystem::path& file : seedFiles) {
        seeds.push_back(readFile(file));
        input.run(seeds.back());
    }
    if (!seeds.empty()) {
        input.run({});
        Mutator mutator(seeds);
        for (std::size_t count = 0; count < MutationCount; ++count) {
            input.run(mutator.next());
        }
        std::printf("%zu files and %zu mutations of them\n", seeds.size(), MutationCount);
    }
}

/// Runs everything in a process of its own; its exit status. An input that it ends at is written to a file.
int runGuarded(const std::filesystem::path& inputFile, const std::function<void(const SharedInput&)>& run) {
    const SharedInput input;
    const pid_t child = ::fork();
    if (child == 0) {
        run(input);
        std::exit(0);
    }
    int status = -1;
    if (child < 0 || ::waitpid(child, &status, 0) != child) {
        std::perror("fork");
        return 2;
    }
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) {
        return 0;
    }
    std::ofstream(inputFile, std::ios::binary | std::ios::trunc) << input.lastInput();
    std::fprintf(stderr, "The input is in \"%s\".\n", inputFile.c_str());
    return 1;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::filesystem::path> arguments(argv, argv + argc);
    std::vector<std::filesystem::path> files;
    std::vector<std::filesystem::path> seedFiles;
    for (auto argument = arguments.begin() + 1; argument < arguments.end(); ++argument) {
        if (!std::filesystem::is_directory(*argument)) {
            files.push_back(*argument);
            continue;
        }
        for (const auto& entry : std::filesystem::directory_iterator(*argument)) {
            seedFiles.push_back(entry.path());
        }
    }
    if (files.empty() && seedFiles.empty()) {
        std::fprintf(stderr, "usage: %s (file | folder)...\n", argv[0]);
        return 2;
    }
    // The order of a folder's entries is the file system's.
    std::ranges::sort(seedFiles);
    return runGuarded(arguments[0].filename().concat(".input"), [&](const SharedInput& input) {
        runAll(input, files, seedFiles);
    });
}
