#pragma once

#include "platform/rtl/TComponent.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace quorin {

// A picture: rows from the top, each pixel 0xAARRGGBB, the colours not multiplied by the alpha.
struct TcxImage {
    Integer Width = 0;
    Integer Height = 0;
    std::vector<std::uint32_t> Pixels;

    std::uint32_t Pixel(Integer x, Integer y) const {
        return Pixels[static_cast<std::size_t>(y * Width + x)];
    }
};

// Pictures of one size that several widgets share, by index.
class TcxImageList : public TComponent {
    QUORIN_CLASS(TcxImageList, TComponent)

    explicit TcxImageList(TComponent* AOwner = nullptr) : TComponent(AOwner) {}

    Integer Count() const { return static_cast<Integer>(FImages.size()); }
    // The colour that stands for transparent pixels where a picture has one, 0xRRGGBB.
    std::optional<std::uint32_t> MaskColor(Integer Index) const;
    // Copies one picture; False, and `Target` left alone, for an index outside.
    Boolean GetImage(Integer Index, TcxImage& Target) const;
    void Add(TcxImage image, std::optional<std::uint32_t> maskColor = std::nullopt);

private:
    struct TEntry {
        TcxImage Image;
        std::optional<std::uint32_t> MaskColor;
    };
    bool Has(Integer index) const { return index >= 0 && index < Count(); }

    std::vector<TEntry> FImages;
};

} // namespace quorin
