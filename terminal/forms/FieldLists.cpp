#include "terminal/forms/FieldLists.h"

#include "terminal/forms/AccountListForm.h"
#include "terminal/forms/SymbolListForm.h"
#include "viewdata/services/ChannelMessages.h"

namespace quorin {

namespace {

std::unique_ptr<TFieldListForm> MakeList(Integer number) {
    switch (number) {
    case ChannelMessage::CreateAccountListView: return CreateComponent<TAccountListForm>();
    case ChannelMessage::CreateSymbolListView: return CreateComponent<TSymbolListForm>();
    default: return nullptr;
    }
}

} // namespace

// A list without a window has lost its field. One that was made just now is given its window before
// the next is asked for.
Boolean TFieldLists::Answer(Integer number, Pointer data) {
    std::unique_ptr<TFieldListForm> list = data != nullptr ? MakeList(number) : nullptr;
    if (list == nullptr) return false;
    auto& request = *static_cast<TListViewRequestRecord*>(data);
    list->SetOnChosen(request.Callback);
    request.Result = list.get();
    std::erase_if(FLists, [](const auto& kept) { return kept->Parent() == nullptr; });
    FLists.push_back(std::move(list));
    return true;
}

} // namespace quorin
