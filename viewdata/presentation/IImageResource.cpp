#include "viewdata/presentation/IImageResource.h"

#include "viewdata/presentation/ResourcePictures.h"

#include <memory>
#include <optional>

namespace quorin {

namespace {

std::unique_ptr<TIImageResourceList>& Instance() {
    static std::unique_ptr<TIImageResourceList> instance;
    return instance;
}

} // namespace

TIImageResourceList::TIImageResourceList(TComponent* AOwner) : TFrame(AOwner) {
    for (const TResourcePicture& picture : ResourcePictures()) {
        TcxImage image{PictureSide, PictureSide, {picture.Pixels.begin(), picture.Pixels.end()}};
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
