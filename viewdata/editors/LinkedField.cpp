#include "viewdata/editors/LinkedField.h"

#include "viewdata/services/ChannelMessages.h"

#include <algorithm>
#include <memory>

namespace quorin {

TEditorSharing& EditorSharing() {
    static TEditorSharing sharing;
    return sharing;
}

String OfferedValue(Pointer notification, Integer channel, StringView groupID, Integer followBit) {
    const Integer mode = EditorSharing().GroupDataMode;
    const Boolean keepsApart = mode >= 0;
    if (const auto* offer = ObjectAs<TCustomListObject>(notification)) {
        if (keepsApart && (!groupID.empty() || (mode & followBit) == 0)) return String();
        return offer->IsEmpty() ? String() : offer->GetText();
    }
    if (const auto* change = ObjectAs<TCustomGroupData>(notification)) {
        if (keepsApart && change->GetGroupID() != groupID) return String();
        return change->GetChannel() == channel ? change->GetChannelValue(channel) : String();
    }
    return String();
}

String SharedValue(Integer channel, StringView groupID) {
    const TCustomGlobalChannelManager& channels = *TCustomGlobalChannelManager::GetInstance();
    return groupID.empty() ? channels.GetChannelValue(channel)
                           : channels.GetGroupValue(groupID, channel);
}

class TFieldListView::TLink : public TObject {
    QUORIN_CLASS(TLink, TObject)
public:
    void Request(Integer message, const TDataCallbackEvent& chosen) {
        FChosen = chosen;
        TListViewRequestRecord request;
        request.Callback = MakeEvent<&TLink::Chosen>(this);
        TCustomGlobalChannelManager::GetInstance()->SendChannelMessage(message, Pointer(&request));
        FView = request.Result;
        if (FView != nullptr) FView->AddFreeListener(MakeEvent<&TLink::ViewGone>(this), this);
    }
    TControl* View() const { return FView; }
    void FieldGone() {
        FChosen = nullptr;
        if (FView == nullptr) delete this;
    }

private:
    void Chosen(Pointer sender, Pointer item) {
        const TDataCallbackEvent chosen = FChosen; // outlives a field that is dropped inside
        if (chosen) chosen(sender, item);
    }
    void ViewGone(TObject*) {
        FView = nullptr;
        if (!FChosen) delete this;
    }

    TDataCallbackEvent FChosen; // none once the field is gone
    TControl* FView = nullptr;
};

TFieldListView::~TFieldListView() {
    if (FLink != nullptr) FLink->FieldGone();
}

void TFieldListView::Request(Integer message, const TDataCallbackEvent& chosen) {
    if (FLink == nullptr) FLink = std::make_unique<TLink>().release();
    FLink->Request(message, chosen);
}

TControl* TFieldListView::Control() const {
    return FLink != nullptr ? FLink->View() : nullptr;
}

void SizePopup(TcxPopupEdit& editor, const TPopupSize& size) {
    TcxPopupEditProperties& properties = editor.Properties();
    properties.SetPopupHeight(size.Height);
    properties.SetPopupWidth(std::max(size.SmallestWidth, editor.Width()));
    properties.SetPopupMinHeight(size.MinHeight);
    properties.SetPopupMinWidth(size.MinWidth);
}

void WidenPopup(TcxPopupEdit& editor, Integer smallestWidth) {
    const Integer width = std::max(smallestWidth, editor.Width());
    editor.Properties().SetPopupWidth(width);
    TControl* control = editor.Properties().PopupControl();
    if (control != nullptr && control->Parent() != nullptr) control->Parent()->SetWidth(width);
}

void ClosePopup(TcxPopupEdit* editor) {
    if (editor == nullptr) return;
    TControl* control = editor->Properties().PopupControl();
    if (control != nullptr && control->Parent() != nullptr) control->Parent()->Hide();
}

} // namespace quorin
