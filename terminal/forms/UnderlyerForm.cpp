#include "terminal/forms/UnderlyerForm.h"

namespace quorin {

// From the top down: each choice clears what depended on it.
void TUnderlyerForm::Show(const TUnderlyerChoice& choice) {
    FControl->SetExchange(choice.Exchange);
    FControl->SetSeries(choice.Series);
    FControl->SetDisplayMode(choice.Mode);
    FControl->SetMonth(choice.Month);
    FControl->SetCallPut(choice.CallPut);
    View().SetTopRow(0);
}

TList<String> TUnderlyerForm::SeriesCodes() {
    TList<String> codes;
    FControl->GetSeriesList(&codes);
    return codes;
}

TList<String> TUnderlyerForm::Months() {
    TList<String> months;
    FControl->GetMonthList(&months);
    return months;
}

} // namespace quorin
