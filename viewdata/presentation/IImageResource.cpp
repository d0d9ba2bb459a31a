#include "viewdata/presentation/IImageResource.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>

namespace quorin {

namespace {

constexpr Integer Side = 16; // pixels
constexpr std::size_t PixelCount = std::size_t{Side} * Side;
constexpr std::uint32_t NoMaskColor = 0xFFFFFFFFu; // no colour: it has an alpha

struct TPicture {
    std::uint32_t MaskColor;
    std::array<std::uint32_t, PixelCount> Pixels;
};

constexpr TPicture Pictures[] = {
#include "ResourceImages.inc"
};

std::unique_ptr<TIImageResourceList>& Instance() {
    static std::unique_ptr<TIImageResourceList> instance;
    return instance;
}

} // namespace

TIImageResourceList::TIImageResourceList(TComponent* AOwner) : TFrame(AOwner) {
    for (const TPicture& picture : Pictures) {
        TcxImage image{Side, Side, {picture.Pixels.begin(), picture.Pixels.end()}};
        FDefaultImageList.Add(std::move(image), picture.MaskColor == NoMaskColor
                                                    ? std::nullopt
                                                    : std::optional(picture.MaskColor));
    }
}

TIImageResourceList* TIImageResourceList::GetInstance() {
    if (Instance() == nullptr) Instance() = CreateComponent<TIImageResourceList>();
    return Instance().get();
}

void TIImageResourceList::ReleaseInstance() {
    Instance().reset();
}

} // namespace quorin
