#include "terminal/desktop/UnderlyerPane.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "terminal/desktop/QtText.h"
#include "terminal/desktop/TableSize.h"
#include "terminal/forms/TerminalKeys.h"
#include "terminal/forms/VenueMarket.h"
#include "viewdata/market/MarketTexts.h"

#include <QHBoxLayout>

#include <algorithm>
#include <utility>

namespace quorin {

namespace {

constexpr int UsualRows = 14;
constexpr Char ChoiceMark = u'|';
enum TPiece : std::size_t { ExchangePiece, SeriesPiece, ModePiece, MonthPiece, CallPutPiece };
constexpr std::size_t PieceCount = CallPutPiece + 1;

template <class Kind>
String NumberOf(Kind kind) {
    return IntegerToText(static_cast<Integer>(kind));
}

// False for what is no number of these.
template <class Kind>
bool TryKind(StringView text, Kind last, Kind& kind) {
    Integer number = 0;
    if (!TryParseInteger(text, number) || number < 0 || number > static_cast<Integer>(last)) {
        return false;
    }
    kind = static_cast<Kind>(number);
    return true;
}

template <class Kind>
TCodeEntry KindEntry(Kind kind, StringView captionKey) {
    return {NumberOf(kind), ToQt(InterfaceText(captionKey))};
}

bool IsOptionMode(TUnderlyerPriceDisplayMode mode) {
    return mode == udmOptions || mode == udmSpreadOptions;
}

std::vector<TCodeEntry> ModeEntries() {
    return {KindEntry(udmFutures, ResourceKey::Res_Futures),
            KindEntry(udmOptions, ResourceKey::Res_Options),
            KindEntry(udmSpreadFutures, TerminalKey::Res_SpreadFutures),
            KindEntry(udmSpreadOptions, TerminalKey::Res_SpreadOptions)};
}

std::vector<TCodeEntry> CallPutEntries() {
    return {KindEntry(otAll, TerminalKey::Res_CallsAndPuts),
            KindEntry(otCall, ResourceKey::Res_Call), KindEntry(otPut, ResourceKey::Res_Put)};
}

std::vector<TCodeEntry> ExchangeEntries(TUnderlyerForm& form) {
    std::vector<TCodeEntry> entries;
    for (const String& code : form.Exchanges()) {
        entries.push_back({code, ToQt(TranslatedCode(ResourceTag::Exchange, code))});
    }
    return entries;
}

std::vector<TCodeEntry> SeriesEntries(TUnderlyerForm& form) {
    std::vector<TCodeEntry> entries;
    for (const String& code : form.SeriesCodes()) {
        const TCustomSeriesData* series = Market().FindSeries(code);
        entries.push_back({code, ToQt(series == nullptr ? code : NameInLanguage(*series))});
    }
    return entries;
}

std::vector<TCodeEntry> MonthEntries(TUnderlyerForm& form) {
    std::vector<TCodeEntry> entries;
    for (const String& month : form.Months()) entries.push_back({month, ToQt(month)});
    std::sort(entries.begin(), entries.end(), [](const TCodeEntry& left, const TCodeEntry& right) {
        return left.Code < right.Code;
    });
    return entries;
}

void Name(QWidget& widget, StringView key) {
    widget.setAccessibleName(ToQt(InterfaceText(key)));
    widget.setToolTip(widget.accessibleName());
}

} // namespace

TUnderlyerPane::TUnderlyerPane(TOrderDialog& dialog, QWidget* parent)
    : TPane(TPaneKind::Underlyer, parent), FExchanges(new TCodeBox(this)),
      FSeries(new TCodeBox(this)), FModes(new TCodeBox(this)), FMonths(new TCodeBox(this)),
      FCallPut(new TCodeBox(this)), FGrid(new TGridSkin(FForm.View(), &FForm, this)),
      FBar(new TQuickOrderBar(FForm, *FGrid, dialog, MarketActions(FForm), *this)) {
    auto* boxes = new QHBoxLayout;
    for (TCodeBox* box : {FExchanges, FSeries, FModes, FMonths, FCallPut}) boxes->addWidget(box);
    boxes->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addLayout(boxes);
    layout->addWidget(FBar);
    layout->addWidget(FGrid);
    ConnectBoxes();
    connect(FGrid, &TGridSkin::RowChosen, this, [this](int row) {
        const String symbol = FForm.Symbol(row);
        if (!symbol.empty()) ChooseSymbol(symbol);
    });
    connect(FGrid, &QAbstractItemView::clicked, this,
            [this](const QModelIndex& index) { ShareSymbol(FForm.Symbol(index.row())); });
    FForm.ShowAccount(FirstAccount);
    TCustomMarketAdapter::GetInstance()->AddExchangeListener(
        MakeEvent<&TUnderlyerPane::ExchangesChanged>(this), &FOwner);
    Follow();
}

// What draws must be gone before the form that it shows.
TUnderlyerPane::~TUnderlyerPane() {
    TCustomMarketAdapter::GetInstance()->RemoveExchangeListener(&FOwner);
    delete FBar;
    delete FGrid;
}

void TUnderlyerPane::ConnectBoxes() {
    const auto onChoice = [this](TCodeBox* box, auto&& choose) {
        connect(box, &TCodeBox::CodeChosen, this, [this, box, choose] {
            choose(box->Code());
            FForm.View().SetTopRow(0);
            FIsStale = true;
            Follow();
        });
    };
    onChoice(FExchanges, [this](const String& code) {
        FForm.ChooseExchange(code);
        FForm.ChooseSeries();
    });
    onChoice(FSeries, [this](const String& code) {
        FForm.Control().SetSeries(code);
        FForm.ChooseMonth();
    });
    onChoice(FModes, [this](const String& code) {
        TUnderlyerPriceDisplayMode mode = udmFutures;
        if (TryKind(code, udmSpreadOptions, mode)) FForm.Control().SetDisplayMode(mode);
        FForm.ChooseMonth();
    });
    onChoice(FMonths, [this](const String& code) { FForm.Control().SetMonth(code); });
    onChoice(FCallPut, [this](const String& code) {
        TOptionsType callPut = otAll;
        if (TryKind(code, otPut, callPut)) FForm.Control().SetCallPut(callPut);
    });
}

void TUnderlyerPane::ExchangesChanged(Pointer, Pointer) {
    FIsStale = true;
}

// What was chosen before the symbols were there is read when they are.
void TUnderlyerPane::FollowMarket() {
    const bool isReady = Market().IsMarketDataReady();
    if (std::exchange(FWasReady, isReady) != isReady) {
        FIsStale = true;
        FForm.Reload();
    }
    if (isReady && FIsStale) FForm.ChooseSomething();
}

void TUnderlyerPane::FillBoxes() {
    const TUnderlyerChoice choice = FForm.Choice();
    const bool isOption = IsOptionMode(choice.Mode);
    FExchanges->SetEntries(ExchangeEntries(FForm));
    FExchanges->ShowCode(choice.Exchange);
    FSeries->SetEntries(SeriesEntries(FForm));
    FSeries->ShowCode(choice.Series);
    FModes->SetEntries(ModeEntries());
    FModes->ShowCode(NumberOf(choice.Mode));
    FMonths->SetEntries(MonthEntries(FForm));
    FMonths->ShowCode(choice.Month);
    FMonths->setVisible(isOption);
    FCallPut->SetEntries(CallPutEntries());
    FCallPut->ShowCode(NumberOf(choice.CallPut));
    FCallPut->setVisible(isOption);
    Name(*FExchanges, ResourceKey::Res_Exchange);
    Name(*FSeries, TerminalKey::Res_Series);
    Name(*FModes, TerminalKey::Res_Mode);
    Name(*FMonths, TerminalKey::Res_Month);
    Name(*FCallPut, TerminalKey::Res_CallPut);
    FGrid->setAccessibleName(Caption());
}

void TUnderlyerPane::Follow() {
    FollowMarket();
    if (FLanguage.TakeChange()) FIsStale = true;
    if (std::exchange(FIsStale, false)) FillBoxes();
    FForm.FollowVisibleRows();
    FGrid->Follow();
    FBar->Follow();
}

QString TUnderlyerPane::Caption() {
    return ToQt(FForm.Title());
}

String TUnderlyerPane::Choice() {
    const TUnderlyerChoice choice = FForm.Choice();
    String text;
    for (const String& piece : {choice.Exchange, choice.Series, NumberOf(choice.Mode), choice.Month,
                                NumberOf(choice.CallPut)}) {
        text += piece;
        text += ChoiceMark;
    }
    return text;
}

void TUnderlyerPane::SetChoice(StringView text) {
    const std::vector<StringView> pieces = Split(text, ChoiceMark);
    if (pieces.size() != PieceCount || pieces[ExchangePiece].empty()) return;
    TUnderlyerChoice choice;
    choice.Exchange = pieces[ExchangePiece];
    choice.Series = pieces[SeriesPiece];
    choice.Month = pieces[MonthPiece];
    if (!TryKind(pieces[ModePiece], udmSpreadOptions, choice.Mode) ||
        !TryKind(pieces[CallPutPiece], otPut, choice.CallPut) ||
        (Market().IsMarketDataReady() && !FForm.Exchanges().Contains(choice.Exchange))) {
        return;
    }
    FForm.Show(choice);
    FIsStale = true;
}

void TUnderlyerPane::TakeSymbol(StringView symbol) {
    if (FForm.ShowSymbol(symbol)) FIsStale = true;
}

void TUnderlyerPane::JoinGroup(StringView groupID) {
    FForm.Rows().SetGroupID(groupID);
    TPane::JoinGroup(groupID);
}

QSize TUnderlyerPane::sizeHint() const {
    return QWidget::sizeHint().expandedTo(TableSize(*FGrid, UsualRows));
}

} // namespace quorin
