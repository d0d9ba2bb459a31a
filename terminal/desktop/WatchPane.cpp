#include "terminal/desktop/WatchPane.h"

#include "platform/rtl/Numbers.h"
#include "terminal/desktop/QtText.h"
#include "terminal/forms/TerminalKeys.h"
#include "terminal/forms/VenueMarket.h"
#include "viewdata/market/MarketTexts.h"

#include <QComboBox>
#include <QHeaderView>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace quorin {

namespace {

constexpr int ShownRows = 22;
constexpr int EdgeWidth = 24; // of the scroll bar and the frame
constexpr Char CategoryMark = u'/';

// Every exchange, then the favourites.
void FillExchanges(QComboBox& box) {
    const TCustomMarketAdapter& market = *TCustomMarketAdapter::GetInstance();
    box.clear();
    for (Integer index = 0; index < market.GetExchangeCount(); ++index) {
        const QString code = ToQt(market.GetExchangeCode(index));
        box.addItem(code, code);
    }
    box.addItem(QStringLiteral("\u2605 ") + ToQt(InterfaceText(TerminalKey::Res_Favourites)),
                ToQt(FavoriteExchange));
}

void FillCategories(QComboBox& box, StringView exchange) {
    const TCustomMarketAdapter& market = *TCustomMarketAdapter::GetInstance();
    box.clear();
    box.addItem(ToQt(InterfaceText(TerminalKey::Res_AllCategories)), EveryCategory);
    for (const Integer id : TMarketWatchForm::CategoriesOf(exchange)) {
        const TCustomCategoryData* category = market.FindCategory(id);
        if (category != nullptr) box.addItem(ToQt(NameInLanguage(*category)), id);
    }
}

} // namespace

TWatchPane::TWatchPane(StringView exchange, TOrderDialog& dialog, QWidget* parent)
    : TPane(TPaneKind::Watch, parent), FExchanges(new QComboBox(this)),
      FCategories(new QComboBox(this)), FGrid(new TGridSkin(FForm.View(), &FForm, this)),
      FBar(new TQuickOrderBar(FForm, *FGrid, dialog, MarketActions(FForm), *this)) {
    auto* boxes = new QHBoxLayout;
    boxes->addWidget(FExchanges);
    boxes->addWidget(FCategories);
    boxes->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    layout->addLayout(boxes);
    layout->addWidget(FBar);
    layout->addWidget(FGrid);
    FForm.ShowMarket(exchange);
    FForm.ShowAccount(FirstAccount);
    connect(FExchanges, &QComboBox::activated, this, [this] {
        FForm.ShowMarket(FromQt(FExchanges->currentData().toString()));
        FillBoxes();
    });
    connect(FCategories, &QComboBox::activated, this,
            [this] { FForm.ShowMarket(FForm.Exchange(), FCategories->currentData().toInt()); });
    connect(FGrid, &TGridSkin::RowChosen, this, [this](int row) {
        const String symbol = FForm.Symbol(row);
        if (!symbol.empty()) ChooseSymbol(symbol);
    });
    connect(FGrid, &QAbstractItemView::clicked, this,
            [this](const QModelIndex& index) { ShareSymbol(FForm.Symbol(index.row())); });
    FillBoxes();
}

// What draws must be gone before the form that it shows.
TWatchPane::~TWatchPane() {
    delete FBar;
    delete FGrid;
}

void TWatchPane::FillBoxes() {
    const QSignalBlocker quietExchanges(FExchanges);
    const QSignalBlocker quietCategories(FCategories);
    FFilledLanguage = TCustomLanguageManager::GetInstance()->GetCurrentLanguage();
    FillExchanges(*FExchanges);
    FExchanges->setCurrentIndex(FExchanges->findData(ToQt(FForm.Exchange())));
    FExchanges->setAccessibleName(ToQt(InterfaceText(ResourceKey::Res_Exchange)));
    FillCategories(*FCategories, FForm.Exchange());
    FCategories->setCurrentIndex(std::max(FCategories->findData(FForm.Category()), 0));
    FCategories->setAccessibleName(ToQt(InterfaceText(TerminalKey::Res_Category)));
    FCategories->setVisible(FCategories->count() > 2); // one beside all is no choice
    FGrid->setAccessibleName(Caption());
}

void TWatchPane::Follow() {
    if (FFilledLanguage != TCustomLanguageManager::GetInstance()->GetCurrentLanguage()) FillBoxes();
    FForm.FollowVisibleRows();
    FGrid->Follow();
    FBar->Follow();
}

void TWatchPane::JoinGroup(StringView groupID) {
    FForm.Rows().SetGroupID(groupID);
    TPane::JoinGroup(groupID);
}

QString TWatchPane::Caption() {
    const QString name = ToQt(InterfaceText(TerminalKey::Res_MarketWatch));
    return name + u' ' + (FExchanges->currentIndex() < 0 ? QString() : FExchanges->currentText());
}

String TWatchPane::Choice() {
    String choice = FForm.Exchange();
    if (FForm.Category() != EveryCategory) {
        choice += CategoryMark;
        choice += IntegerToText(FForm.Category());
    }
    return choice;
}

void TWatchPane::SetChoice(StringView choice) {
    const auto mark = choice.find(CategoryMark);
    const StringView exchange = choice.substr(0, mark);
    if (FExchanges->findData(ToQt(exchange)) < 0) return;
    Integer category = EveryCategory;
    if (mark != StringView::npos && !TryParseInteger(choice.substr(mark + 1), category)) return;
    FForm.ShowMarket(exchange, category);
    FillBoxes();
}

QSize TWatchPane::sizeHint() const {
    int width = EdgeWidth;
    for (int section = 0; section < FGrid->model()->columnCount(); ++section) {
        width += FGrid->columnWidth(section);
    }
    return {width, (ShownRows + 1) * FGrid->verticalHeader()->defaultSectionSize()};
}

} // namespace quorin
