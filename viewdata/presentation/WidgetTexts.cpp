#include "viewdata/presentation/WidgetTexts.h"

#include "platform/rtl/FormatSettings.h"
#include "platform/widgets/ResourceStrings.h"
#include "viewdata/frame/ServiceTexts.h"

namespace quorin {

namespace {

namespace R = ResourceKey;

struct TWidgetText {
    StringView Key;
    TcxResourceString Target;
};
constexpr TWidgetText WidgetTexts[] = {
    {R::Res_Find_Clear, scxGridFindPanelClearButtonCaption},
    {R::Res_Find_Find, scxGridFindPanelFindButtonCaption},
    {R::Res_Search_Hints, scxGridFindPanelInfoText},
    {R::Res_Filter_Equals, cxSFilterOperatorEqual},
    {R::Res_Filter_NotEqual, cxSFilterOperatorNotEqual},
    {R::Res_Filter_Contains, cxSFilterOperatorContains},
    {R::Res_Filter_NotContain, cxSFilterOperatorDoesNotContain},
    {R::Res_Filter_Greater, cxSFilterOperatorGreater},
    {R::Res_Filter_GreaterOrEqual, cxSFilterOperatorGreaterEqual},
    {R::Res_Filter_Less, cxSFilterOperatorLess},
    {R::Res_Filter_LessOrEqual, cxSFilterOperatorLessEqual},
    {R::Res_Filter_Between, cxSFilterOperatorBetween},
    {R::Res_Filter_NotBetween, cxSFilterOperatorNotBetween},
    {R::Res_Filter_And, cxSFilterAndCaption},
    {R::Res_Filter_Or, cxSFilterOrCaption},
    {R::Res_Today, cxSDatePopupToday},
    {R::Res_OK_Btn, cxSDatePopupOK},
    {R::Res_Cancel_Btn, cxSDatePopupCancel},
    {R::Res_Clear, cxSDatePopupClear},
    {R::Res_Now, cxSDatePopupNow},
};
constexpr StringView DayKeys[] = {R::Res_Sun,  R::Res_Mon, R::Res_Tue, R::Res_Wed,
                                  R::Res_Thur, R::Res_Fri, R::Res_Sat};
constexpr StringView MonthKeys[] = {R::Res_Jan, R::Res_Feb, R::Res_Mar, R::Res_Apr,
                                    R::Res_May, R::Res_Jun, R::Res_Jul, R::Res_Aug,
                                    R::Res_Sep, R::Res_Oct, R::Res_Nov, R::Res_Dec};

} // namespace

void RefreshWidgetTexts() {
    for (const TWidgetText& text : WidgetTexts) {
        cxSetResourceString(text.Target, InterfaceText(text.Key));
    }
    std::size_t number = 0; // of a day or month, from 1
    for (const StringView key : DayKeys) {
        FormatSettings().ShortDayNames[++number] = InterfaceText(key);
    }
    number = 0;
    for (const StringView key : MonthKeys) {
        FormatSettings().ShortMonthNames[++number] = InterfaceText(key);
    }
}

} // namespace quorin
