#include "terminal/forms/UnderlyerForm.h"

#include "terminal/forms/TerminalKeys.h"
#include "viewdata/market/MarketTexts.h"

#include <algorithm>

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

TList<String> TUnderlyerForm::Exchanges() {
    TList<String> exchanges;
    FControl->GetExchangeList(&exchanges);
    return exchanges;
}

TUnderlyerChoice TUnderlyerForm::Choice() const {
    return {FControl->Exchange(), FControl->Series(), FControl->DisplayMode(), FControl->Month(),
            FControl->CallPut()};
}

void TUnderlyerForm::ChooseSeries() {
    if (!Series().empty()) return;
    const TList<String> codes = SeriesCodes();
    for (const String& code : codes) {
        FControl->SetSeries(code);
        ChooseMonth();
        if (FControl->GetCount() > 0) return;
    }
    FControl->SetSeries(codes.IsEmpty() ? String() : codes[0]);
    ChooseMonth();
}

void TUnderlyerForm::ChooseMonth() {
    const TUnderlyerPriceDisplayMode mode = FControl->DisplayMode();
    const bool wantsMonth = mode == udmOptions || mode == udmSpreadOptions;
    if (!wantsMonth || !FControl->Month().empty()) return;
    const TList<String> months = Months();
    if (!months.IsEmpty()) FControl->SetMonth(*std::min_element(months.begin(), months.end()));
}

void TUnderlyerForm::ChooseSomething() {
    if (!Exchange().empty()) return;
    for (const String& exchange : Exchanges()) {
        FControl->SetExchange(exchange);
        ChooseSeries();
        if (FControl->GetCount() > 0) return;
    }
}

bool TUnderlyerForm::ShowSymbol(StringView symbol) {
    const TCustomMarketData* data = Market().FindMarketData(symbol);
    if (data == nullptr) return false;
    const bool isOption = data->GetProductType() == ProductType::Options;
    if (!isOption && data->GetProductType() != ProductType::Futures) return false;
    if (FControl->RowOf(symbol) < 0) {
        Show({data->GetExchange(), data->GetSeries(), isOption ? udmOptions : udmFutures,
              isOption ? data->GetExpiryMonth() : String(), otAll});
    }
    const Integer row = View().RowOfRecord(FControl->RowOf(symbol));
    if (row != NoRow) View().SetFocusedRow(row);
    return true;
}

void TUnderlyerForm::Reload() {
    FControl->InitData();
    FControl->Changed();
}

String TUnderlyerForm::Title() {
    const TCustomSeriesData* series = Market().FindSeries(Series());
    const String name = series == nullptr ? Series() : NameInLanguage(*series);
    const String caption = InterfaceText(TerminalKey::Res_UnderlyerList);
    return name.empty() ? caption : caption + u"  " + name;
}

} // namespace quorin
