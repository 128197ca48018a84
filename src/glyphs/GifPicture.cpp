// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/GifPicture.h"

#include <algorithm>
#include <array>
#include <gif_lib.h>
#include <memory>
#include <unordered_map>
#include <vector>

namespace glyphs {

namespace {

constexpr int MaxSide = 1024;
constexpr ui::Pixel Transparent = 0;

struct CloseReader {
    void operator()(GifFileType* gif) const { DGifCloseFile(gif, nullptr); }
};

struct CloseWriter {
    void operator()(GifFileType* gif) const { EGifCloseFile(gif, nullptr); }
};

struct FreeMap {
    void operator()(ColorMapObject* map) const { GifFreeMapObject(map); }
};

int ReadBytes(GifFileType* gif, GifByteType* target, int count) {
    auto& rest = *static_cast<std::string_view*>(gif->UserData);
    const std::size_t taken = std::min(rest.size(), static_cast<std::size_t>(std::max(count, 0)));
    std::copy_n(rest.begin(), taken, target);
    rest.remove_prefix(taken);
    return static_cast<int>(taken);
}

int WriteBytes(GifFileType* gif, const GifByteType* source, int count) {
    auto& bytes = *static_cast<ui::Bytes*>(gif->UserData);
    bytes.append(reinterpret_cast<const char*>(source), static_cast<std::size_t>(count));
    return count;
}

ui::Failure GifFailure(int code) {
    const char* text = GifErrorString(code);
    return {std::string("not a usable GIF picture: ") + (text != nullptr ? text : "unknown error")};
}

/// The image that starts at the reader's position.
ui::Result<ui::Picture> ReadImage(GifFileType& gif, int transparentIndex) {
    if (DGifGetImageDesc(&gif) != GIF_OK) {
        return GifFailure(gif.Error);
    }
    const GifImageDesc& image = gif.Image;
    if (gif.SWidth < 1 || gif.SHeight < 1 || gif.SWidth > MaxSide || gif.SHeight > MaxSide ||
        image.Width < 1 || image.Height < 1 || image.Left < 0 || image.Top < 0 ||
        image.Left + image.Width > gif.SWidth || image.Top + image.Height > gif.SHeight) {
        return ui::Failure{"not a usable GIF picture: its size is out of range"};
    }
    const ColorMapObject* colours = image.ColorMap != nullptr ? image.ColorMap : gif.SColorMap;
    if (colours == nullptr) {
        return ui::Failure{"not a usable GIF picture: it has no colors"};
    }
    ui::Picture picture(gif.SWidth, gif.SHeight, Transparent);
    std::vector<GifPixelType> line(static_cast<std::size_t>(image.Width));
    const auto readLine = [&](int y) {
        if (DGifGetLine(&gif, line.data(), image.Width) != GIF_OK) {
            return false;
        }
        for (int x = 0; x < image.Width; ++x) {
            const int index = line[static_cast<std::size_t>(x)];
            if (index != transparentIndex && index < colours->ColorCount) {
                const GifColorType& colour = colours->Colors[index];
                picture.setPixel(
                    image.Left + x, image.Top + y, ui::OpaquePixel(colour.Red, colour.Green, colour.Blue));
            }
        }
        return true;
    };

    struct Pass {
        int start;
        int step;
    };

    constexpr std::array<Pass, 4> InterlacedPasses{{{0, 8}, {4, 8}, {2, 4}, {1, 2}}};
    constexpr std::array<Pass, 1> PlainPass{{{0, 1}}};
    const std::span<const Pass> passes =
        image.Interlace ? std::span<const Pass>(InterlacedPasses) : std::span<const Pass>(PlainPass);
    for (const Pass& pass : passes) {
        for (int y = pass.start; y < image.Height; y += pass.step) {
            if (!readLine(y)) {
                return GifFailure(gif.Error);
            }
        }
    }
    return picture;
}

/// The colours of several pictures, in order of appearance; index 0 is the transparent one when any pixel is.
class ColourTable {
public:
    /// False when there are more than 256 colours.
    bool add(const ui::Picture& picture) {
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const ui::Pixel pixel = picture.pixel(x, y);
                if (!isOpaque(pixel)) {
                    m_isTransparent = true;
                } else if (m_indexes.emplace(pixel, m_colours.size()).second) {
                    m_colours.push_back(pixel);
                }
            }
        }
        return m_colours.size() + (m_isTransparent ? 1U : 0U) <= 256U;
    }

    [[nodiscard]] bool isTransparent() const { return m_isTransparent; }

    [[nodiscard]] GifPixelType indexOf(ui::Pixel pixel) const {
        if (!isOpaque(pixel)) {
            return 0;
        }
        return static_cast<GifPixelType>(m_indexes.at(pixel) + (m_isTransparent ? 1U : 0U));
    }

    [[nodiscard]] std::unique_ptr<ColorMapObject, FreeMap> colourMap() const {
        const std::size_t used = m_colours.size() + (m_isTransparent ? 1U : 0U);
        int size = 2;
        while (static_cast<std::size_t>(size) < used) {
            size *= 2;
        }
        std::unique_ptr<ColorMapObject, FreeMap> map(GifMakeMapObject(size, nullptr));
        if (map) {
            std::fill_n(map->Colors, size, GifColorType{0, 0, 0});
            std::size_t next = m_isTransparent ? 1U : 0U;
            for (const ui::Pixel pixel : m_colours) {
                map->Colors[next++] = {
                    static_cast<GifByteType>(pixel >> 16U), static_cast<GifByteType>(pixel >> 8U),
                    static_cast<GifByteType>(pixel)};
            }
        }
        return map;
    }

private:
    static bool isOpaque(ui::Pixel pixel) { return (pixel >> 24U) == 0xFFU; }

    bool m_isTransparent = false;
    std::vector<ui::Pixel> m_colours;
    std::unordered_map<ui::Pixel, std::size_t> m_indexes;
};

bool WriteFrame(GifFileType& gif, const GifFrame& frame, const ColourTable& palette, bool isAnimated) {
    if (isAnimated || palette.isTransparent()) {
        GraphicsControlBlock control{};
        control.DisposalMode = isAnimated ? DISPOSE_BACKGROUND : DISPOSAL_UNSPECIFIED;
        control.DelayTime = frame.delay;
        control.TransparentColor = palette.isTransparent() ? 0 : NO_TRANSPARENT_COLOR;
        std::array<GifByteType, 4> block{};
        EGifGCBToExtension(&control, block.data());
        if (EGifPutExtension(&gif, GRAPHICS_EXT_FUNC_CODE, static_cast<int>(block.size()), block.data()) !=
            GIF_OK) {
            return false;
        }
    }
    const ui::Picture& picture = frame.picture;
    if (EGifPutImageDesc(&gif, 0, 0, picture.width(), picture.height(), false, nullptr) != GIF_OK) {
        return false;
    }
    std::vector<GifPixelType> line(static_cast<std::size_t>(picture.width()));
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            line[static_cast<std::size_t>(x)] = palette.indexOf(picture.pixel(x, y));
        }
        if (EGifPutLine(&gif, line.data(), picture.width()) != GIF_OK) {
            return false;
        }
    }
    return true;
}

bool WriteEndlessLoop(GifFileType& gif) {
    constexpr std::string_view Application = "NETSCAPE2.0";
    constexpr std::array<GifByteType, 3> Forever{1, 0, 0};
    return EGifPutExtensionLeader(&gif, APPLICATION_EXT_FUNC_CODE) == GIF_OK &&
           EGifPutExtensionBlock(&gif, static_cast<int>(Application.size()), Application.data()) == GIF_OK &&
           EGifPutExtensionBlock(&gif, static_cast<int>(Forever.size()), Forever.data()) == GIF_OK &&
           EGifPutExtensionTrailer(&gif) == GIF_OK;
}

ui::Result<ui::Bytes>
WriteGif(std::span<const GifFrame> frames, bool isAnimated, const std::function<bool(int)>& goesOn = {}) {
    int done = 0;
    const auto isEnded = [&] {
        return goesOn && !goesOn(++done);
    };
    const ui::Failure ended{"the work was ended"};
    if (frames.empty() || frames.front().picture.empty()) {
        return ui::Failure{"there is no picture to write"};
    }
    const int width = frames.front().picture.width();
    const int height = frames.front().picture.height();
    ColourTable palette;
    for (const GifFrame& frame : frames) {
        if (frame.picture.width() != width || frame.picture.height() != height) {
            return ui::Failure{"the pictures differ in size"};
        }
        if (!palette.add(frame.picture)) {
            return ui::Failure{"the picture has more than 256 colors"};
        }
        if (isEnded()) {
            return ended;
        }
    }
    ui::Bytes bytes;
    int error = 0;
    std::unique_ptr<GifFileType, CloseWriter> gif(EGifOpen(&bytes, &WriteBytes, &error));
    if (!gif) {
        return GifFailure(error);
    }
    EGifSetGifVersion(gif.get(), true);
    const auto colours = palette.colourMap();
    bool written = colours && EGifPutScreenDesc(gif.get(), width, height, 8, 0, colours.get()) == GIF_OK &&
                   (!isAnimated || WriteEndlessLoop(*gif));
    for (const GifFrame& frame : frames) {
        written = written && WriteFrame(*gif, frame, palette, isAnimated);
        if (isEnded()) {
            return ended;
        }
    }
    if (!written) {
        return GifFailure(gif->Error);
    }
    // Closing writes the trailer, so its own failure counts too.
    if (EGifCloseFile(gif.release(), &error) != GIF_OK) {
        return GifFailure(error);
    }
    return bytes;
}

} // namespace

ui::Result<ui::Picture> DecodeGif(std::string_view bytes) {
    std::string_view rest = bytes;
    int error = 0;
    const std::unique_ptr<GifFileType, CloseReader> gif(DGifOpen(&rest, &ReadBytes, &error));
    if (!gif) {
        return GifFailure(error);
    }
    int transparentIndex = NO_TRANSPARENT_COLOR;
    for (;;) {
        GifRecordType record = UNDEFINED_RECORD_TYPE;
        if (DGifGetRecordType(gif.get(), &record) != GIF_OK) {
            return GifFailure(gif->Error);
        }
        if (record == IMAGE_DESC_RECORD_TYPE) {
            return ReadImage(*gif, transparentIndex);
        }
        if (record != EXTENSION_RECORD_TYPE) {
            return ui::Failure{"not a usable GIF picture: it holds no image"};
        }
        int code = 0;
        GifByteType* extension = nullptr;
        if (DGifGetExtension(gif.get(), &code, &extension) != GIF_OK) {
            return GifFailure(gif->Error);
        }
        while (extension != nullptr) {
            GraphicsControlBlock control{};
            if (code == GRAPHICS_EXT_FUNC_CODE &&
                DGifExtensionToGCB(extension[0], extension + 1, &control) == GIF_OK) {
                transparentIndex = control.TransparentColor;
            }
            if (DGifGetExtensionNext(gif.get(), &extension) != GIF_OK) {
                return GifFailure(gif->Error);
            }
        }
    }
}

ui::Result<ui::Bytes> EncodeGif(const ui::Picture& picture) {
    const std::array<GifFrame, 1> frames{GifFrame{picture, 0}};
    return WriteGif(frames, false);
}

ui::Result<ui::Bytes>
EncodeAnimatedGif(std::span<const GifFrame> frames, const std::function<bool(int)>& goesOn) {
    return WriteGif(frames, true, goesOn);
}

} // namespace glyphs
