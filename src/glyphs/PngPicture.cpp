// SPDX-FileCopyrightText: The Vortigo developers
// SPDX-License-Identifier: MIT
#include "glyphs/PngPicture.h"

#include <array>
#include <cstdint>
#include <png.h>
#include <vector>

namespace glyphs {

namespace {

/// What the library keeps of a picture, freed at the end whatever happens.
class Image {
public:
    Image() { m_image.version = PNG_IMAGE_VERSION; }

    Image(const Image&) = delete;
    Image& operator=(const Image&) = delete;
    Image(Image&&) = delete;
    Image& operator=(Image&&) = delete;

    ~Image() { png_image_free(&m_image); }

    png_image* operator->() { return &m_image; }

    png_image* get() { return &m_image; }

    [[nodiscard]] ui::Failure failure(const char* what) const {
        return {std::string(what) + ": " + std::data(m_image.message)};
    }

private:
    png_image m_image{};
};

bool IsOpaque(const ui::Picture& picture) {
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if ((picture.pixel(x, y) >> 24U) != 0xFFU) {
                return false;
            }
        }
    }
    return true;
}

/// The channels of all pixels, row by row: red, green, blue and, if asked for, alpha.
std::vector<std::uint8_t> Channels(const ui::Picture& picture, bool withAlpha) {
    std::vector<std::uint8_t> channels;
    channels.reserve(
        static_cast<std::size_t>(picture.width()) * static_cast<std::size_t>(picture.height()) * 4);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const ui::Pixel pixel = picture.pixel(x, y);
            channels.push_back(static_cast<std::uint8_t>(pixel >> 16U));
            channels.push_back(static_cast<std::uint8_t>(pixel >> 8U));
            channels.push_back(static_cast<std::uint8_t>(pixel));
            if (withAlpha) {
                channels.push_back(static_cast<std::uint8_t>(pixel >> 24U));
            }
        }
    }
    return channels;
}

} // namespace

ui::Result<ui::Picture> DecodePng(std::string_view bytes) {
    constexpr const char* NotUsable = "not a usable PNG picture";
    Image image;
    if (png_image_begin_read_from_memory(image.get(), bytes.data(), bytes.size()) == 0) {
        return image.failure(NotUsable);
    }
    if (image->width < 1 || image->height < 1 || image->width > MaxPictureSide ||
        image->height > MaxPictureSide) {
        return ui::Failure{std::string(NotUsable) + ": its size is out of range"};
    }
    image->format = PNG_FORMAT_RGBA;
    std::vector<std::uint8_t> channels(PNG_IMAGE_SIZE(*image.get()));
    if (png_image_finish_read(image.get(), nullptr, channels.data(), 0, nullptr) == 0) {
        return image.failure(NotUsable);
    }
    ui::Picture picture(static_cast<int>(image->width), static_cast<int>(image->height));
    const std::uint8_t* next = channels.data();
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x, next += 4) {
            const auto alpha = static_cast<ui::Pixel>(next[3]);
            picture.setPixel(
                x, y, (alpha << 24U) | (ui::OpaquePixel(next[0], next[1], next[2]) & ~ui::OpaqueBlack));
        }
    }
    return picture;
}

ui::Result<ui::Bytes> EncodePng(const ui::Picture& picture) {
    constexpr const char* NotMade = "the PNG picture could not be made";
    const bool withAlpha = !IsOpaque(picture);
    const std::vector<std::uint8_t> channels = Channels(picture, withAlpha);
    Image image;
    image->width = static_cast<png_uint_32>(picture.width());
    image->height = static_cast<png_uint_32>(picture.height());
    image->format = withAlpha ? PNG_FORMAT_RGBA : PNG_FORMAT_RGB;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(*image.get());
    ui::Bytes bytes(size, '\0');
    if (png_image_write_to_memory(image.get(), bytes.data(), &size, 0, channels.data(), 0, nullptr) == 0) {
        return image.failure(NotMade);
    }
    bytes.resize(size);
    return bytes;
}

} // namespace glyphs
