#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace quorin {

inline constexpr int PictureSide = 16;                    // pixels
inline constexpr std::uint32_t NoMaskColor = 0xFFFFFFFFu; // no colour: it has an alpha

// One of the pictures in presentation/images, from which the build makes them.
struct TResourcePicture {
    std::uint32_t MaskColor;                                     // 0xRRGGBB, or NoMaskColor
    std::array<std::uint32_t, PictureSide * PictureSide> Pixels; // 0xAARRGGBB
};

// By index.
std::span<const TResourcePicture> ResourcePictures();

} // namespace quorin
