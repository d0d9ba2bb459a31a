#include "embedded/MessageBoxService.h"

#include "embedded/LanguageService.h"

namespace quorin {

namespace {

String MessageOfCode(const String& code) {
    const TCustomLanguageManager* language = TCustomLanguageManager::GetInstance();
    if (language == nullptr) return code;
    String text = language->GetResourceString(MessageTag, code, TAppLanguage::None, 0, nullptr);
    return text.empty() ? code : text;
}

} // namespace

void TEmbeddedMessageBoxCtrl::ShowMessageText(TObject*, StringView Text, StringView, Pointer,
                                              Pointer) {
    FHost.ShowMessage(Text);
}

void TEmbeddedMessageBoxCtrl::ShowMessageCode(TObject*, const Variant& Code, StringView, Pointer,
                                              Pointer) {
    if (!Code.IsArray()) FHost.ShowMessage(MessageOfCode(Code.ToText()));
}

Integer TEmbeddedMessageBoxCtrl::ShowConfirmText(TObject*, StringView Text, StringView, Pointer,
                                                 Pointer, Integer Default) {
    return FHost.Confirm(Text, Default);
}

} // namespace quorin
