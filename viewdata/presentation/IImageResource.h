#pragma once

#include "platform/widgets/Control.h"
#include "platform/widgets/ImageList.h"

namespace quorin {

// The pictures by their index.
namespace ResourceImage {
inline constexpr Integer Account = 0; // on the account field's button
inline constexpr Integer Pencil = 1;
inline constexpr Integer Remove = 2;
inline constexpr Integer Rows = 3;
inline constexpr Integer Empty = 4;
inline constexpr Integer Figure = 5;
inline constexpr Integer Rising = 6;
} // namespace ResourceImage

// Seven pictures of 16 by 16 pixels with alpha that forms and fields share. Nothing shows the frame
// itself.
class TIImageResourceList : public TFrame {
    QUORIN_CLASS(TIImageResourceList, TFrame)

    explicit TIImageResourceList(TComponent* AOwner = nullptr);

    // Made on first use. The host releases it before it ends; a later use makes a new one.
    static TIImageResourceList* GetInstance();
    static void ReleaseInstance();

    TcxImageList& DefaultImageList() { return FDefaultImageList; }

private:
    TcxImageList FDefaultImageList;
};

} // namespace quorin
