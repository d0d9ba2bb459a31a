#include "platform/widgets/ImageList.h"

#include <utility>

namespace quorin {

std::optional<std::uint32_t> TcxImageList::MaskColor(Integer Index) const {
    return Has(Index) ? FImages[static_cast<std::size_t>(Index)].MaskColor : std::nullopt;
}

Boolean TcxImageList::GetImage(Integer Index, TcxImage& Target) const {
    if (!Has(Index)) return false;
    Target = FImages[static_cast<std::size_t>(Index)].Image;
    return true;
}

void TcxImageList::Add(TcxImage image, std::optional<std::uint32_t> maskColor) {
    FImages.push_back({std::move(image), maskColor});
}

} // namespace quorin
