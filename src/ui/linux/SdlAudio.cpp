// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "ui/linux/SdlAudio.h"

#include "ui/linux/Symbols.h"

#include <dlfcn.h>
#include <memory>

namespace ui::native {

namespace {

constexpr std::uint32_t AudioSubsystem = 0x10;
constexpr std::uint16_t Unsigned8Bit = 0x0008;
constexpr std::uint16_t Signed16Bit = 0x8010;

/// Small, because closing the device waits for two buffers to run out.
constexpr std::uint16_t BufferSamples = 512;

constexpr std::size_t ChunkHeaderSize = 8;
constexpr std::size_t FormatSize = 16;
constexpr unsigned Uncompressed = 1;

/// A number of `size` bytes, low byte first.
unsigned ReadNumber(std::string_view bytes, std::size_t offset, std::size_t size) {
    unsigned number = 0;
    for (std::size_t i = size; i > 0; --i) {
        number = number << 8U | static_cast<unsigned char>(bytes[offset + i - 1]);
    }
    return number;
}

/// Silences ALSA, which prints an error for every device that is not there.
void IgnoreAlsaError(
    const char* /*file*/, int /*line*/, const char* /*function*/, int /*error*/, const char* /*format*/,
    ...) {}

} // namespace

std::chrono::milliseconds WaveSamples::duration() const {
    const auto bytesASecond = static_cast<std::int64_t>(rate) * channels * sampleBytes;
    return std::chrono::milliseconds(static_cast<std::int64_t>(samples.size()) * 1000 / bytesASecond);
}

std::optional<WaveSamples> ReadWave(std::string_view wave) {
    if (wave.size() < 12 || wave.substr(0, 4) != "RIFF" || wave.substr(8, 4) != "WAVE") {
        return {};
    }
    WaveSamples found;
    for (std::size_t at = 12; wave.size() - at >= ChunkHeaderSize;) {
        const std::string_view name = wave.substr(at, 4);
        const std::size_t size = ReadNumber(wave, at + 4, 4);
        const std::string_view content = wave.substr(at + ChunkHeaderSize, size);
        if (name == "fmt " && content.size() >= FormatSize) {
            const unsigned bits = ReadNumber(content, 14, 2);
            if (ReadNumber(content, 0, 2) != Uncompressed || (bits != 8 && bits != 16)) {
                return {};
            }
            found.channels = static_cast<std::uint8_t>(ReadNumber(content, 2, 2));
            found.rate = static_cast<int>(ReadNumber(content, 4, 4));
            found.sampleBytes = static_cast<std::uint8_t>(bits / 8);
        } else if (name == "data") {
            found.samples = content;
        }
        const std::size_t step = ChunkHeaderSize + size + size % 2;
        if (step > wave.size() - at) {
            break;
        }
        at += step;
    }
    const bool isUsable = found.rate >= 1000 && found.rate <= 192000 && found.channels >= 1 &&
                          found.channels <= 2 && !found.samples.empty();
    return isUsable ? std::optional(found) : std::nullopt;
}

/// What is used of the library. Declared here, since the package with its header brings some fifty others.
struct SdlAudio::Library {
    /// The library's own description of a device; its layout is part of its binary interface.
    struct Spec {
        int rate;
        std::uint16_t format;
        std::uint8_t channels;
        std::uint8_t silence;
        std::uint16_t samples;
        std::uint16_t padding;
        std::uint32_t size;
        void (*callback)(void*, std::uint8_t*, int);
        void* userData;
    };

    int (*initialise)(std::uint32_t) = nullptr;
    void (*quit)(std::uint32_t) = nullptr;
    int (*setHint)(const char*, const char*) = nullptr;
    std::uint32_t (*openDevice)(const char*, int, const Spec*, Spec*, int) = nullptr;
    void (*closeDevice)(std::uint32_t) = nullptr;
    void (*pauseDevice)(std::uint32_t, int) = nullptr;
    int (*queue)(std::uint32_t, const void*, std::uint32_t) = nullptr;
    void (*clearQueue)(std::uint32_t) = nullptr;

    /// The loaded library, which stays loaded; null where it is not installed.
    static const Library* Load() {
        static const std::unique_ptr<const Library> loaded = [] {
            void* library = ::dlopen("libSDL2-2.0.so.0", RTLD_NOW | RTLD_LOCAL);
            auto functions = std::make_unique<Library>();
            if (library == nullptr || !functions->findIn(library)) {
                return std::unique_ptr<Library>();
            }
            // SDL would take over SIGINT and SIGTERM, which end the program in order.
            functions->setHint("SDL_NO_SIGNAL_HANDLERS", "1");
            functions->setHint("SDL_AUDIO_DEVICE_APP_NAME", "Vortigo");
            int (*setErrorHandler)(decltype(&IgnoreAlsaError)) = nullptr;
            if (FindSymbol(library, "snd_lib_error_set_handler", setErrorHandler)) {
                setErrorHandler(&IgnoreAlsaError);
            }
            return functions;
        }();
        return loaded.get();
    }

    bool findIn(void* library) {
        return FindSymbol(library, "SDL_InitSubSystem", initialise) &&
               FindSymbol(library, "SDL_QuitSubSystem", quit) &&
               FindSymbol(library, "SDL_SetHint", setHint) &&
               FindSymbol(library, "SDL_OpenAudioDevice", openDevice) &&
               FindSymbol(library, "SDL_CloseAudioDevice", closeDevice) &&
               FindSymbol(library, "SDL_PauseAudioDevice", pauseDevice) &&
               FindSymbol(library, "SDL_QueueAudio", queue) &&
               FindSymbol(library, "SDL_ClearQueuedAudio", clearQueue);
    }
};

bool SdlAudio::open(const WaveSamples& wave) {
    if (!m_isLoaded) {
        m_isLoaded = true;
        m_library = Library::Load();
    }
    if (m_library == nullptr || m_library->initialise(AudioSubsystem) != 0) {
        return false;
    }
    Library::Spec wanted{};
    wanted.rate = wave.rate;
    wanted.format = wave.sampleBytes == 1 ? Unsigned8Bit : Signed16Bit;
    wanted.channels = wave.channels;
    wanted.samples = BufferSamples;
    Library::Spec opened{};
    m_device = m_library->openDevice(nullptr, 0, &wanted, &opened, 0);
    if (m_device == 0) {
        m_library->quit(AudioSubsystem);
        return false;
    }
    m_format = wave;
    m_library->pauseDevice(m_device, 0);
    return true;
}

std::chrono::milliseconds SdlAudio::play(std::string_view wave) {
    const auto sound = ReadWave(wave);
    if (!sound) {
        return {};
    }
    const bool isSameFormat = sound->rate == m_format.rate && sound->channels == m_format.channels &&
                              sound->sampleBytes == m_format.sampleBytes;
    if (isOpen() && !isSameFormat) {
        close();
    }
    if (!isOpen() && !open(*sound)) {
        return {};
    }
    m_library->clearQueue(m_device);
    m_library->queue(m_device, sound->samples.data(), static_cast<std::uint32_t>(sound->samples.size()));
    return sound->duration();
}

void SdlAudio::close() {
    if (isOpen()) {
        m_library->closeDevice(m_device);
        m_device = 0;
        m_library->quit(AudioSubsystem);
    }
}

} // namespace ui::native
