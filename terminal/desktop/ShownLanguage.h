#pragma once

#include "viewdata/services/LanguageManager.h"

#include <utility>

namespace quorin {

// The language that a form's texts are in, for forms that look once per frame.
class TShownLanguage {
public:
    // True at the first call and when the language is another than at the last.
    bool TakeChange() {
        const TAppLanguage current = TCustomLanguageManager::GetInstance()->GetCurrentLanguage();
        return std::exchange(FShown, current) != current;
    }

private:
    TAppLanguage FShown = TAppLanguage::None;
};

} // namespace quorin
