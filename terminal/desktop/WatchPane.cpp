#include "terminal/desktop/WatchPane.h"

#include "platform/rtl/Numbers.h"
#include "terminal/desktop/QtText.h"
#include "terminal/desktop/RowDrag.h"
#include "terminal/forms/TerminalKeys.h"
#include "terminal/forms/VenueMarket.h"
#include "viewdata/market/MarketTexts.h"

#include <QAction>
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
    : TActionPane(TPaneKind::Watch, parent), FExchanges(new QComboBox(this)),
      FCategories(new QComboBox(this)) {
    auto form = std::make_unique<TMarketWatchForm>();
    FForm = form.get();
    QVBoxLayout& layout = Bind(std::move(form), dialog, MarketActions(*FForm));
    auto* boxes = new QHBoxLayout;
    boxes->addWidget(FExchanges);
    boxes->addWidget(FCategories);
    boxes->addStretch();
    layout.insertLayout(0, boxes);
    FForm->ShowMarket(exchange);
    FForm->ShowAccount(FirstAccount);
    connect(FExchanges, &QComboBox::activated, this, [this] {
        FForm->ShowMarket(FromQt(FExchanges->currentData().toString()));
        FillBoxes();
    });
    connect(FCategories, &QComboBox::activated, this,
            [this] { FForm->ShowMarket(FForm->Exchange(), FCategories->currentData().toInt()); });
    connect(&Grid(), &QAbstractItemView::clicked, this,
            [this](const QModelIndex& index) { ShareSymbol(FForm->Symbol(index.row())); });
    FMoveUp = AddListAction(QKeySequence(QStringLiteral("Ctrl+Shift+Up")), &TWatchPane::MoveUp);
    FMoveDown =
        AddListAction(QKeySequence(QStringLiteral("Ctrl+Shift+Down")), &TWatchPane::MoveDown);
    FAddFavourite =
        AddListAction(QKeySequence(QStringLiteral("Ctrl+Alt+F")), &TWatchPane::AddFavourite);
    auto* drag = new TRowDrag(*FForm, Grid(), [this] { return FForm->CanMoveRows(); });
    connect(drag, &TRowDrag::Moved, this, [this](const QString& row, const QString& before) {
        FForm->MoveRow(FromQt(row), FromQt(before));
    });
    FillBoxes();
}

QAction* TWatchPane::AddListAction(const QKeySequence& key, void (TWatchPane::*act)()) {
    auto* action = new QAction(this);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, act);
    Grid().addAction(action);
    return action;
}

// By the rows as they were drawn.
void TWatchPane::MoveFocused(Integer step) {
    const Integer row = FForm->View().FocusedRow();
    const String moved = FForm->ShownKey(row);
    const Integer before = step < 0 ? row - 1 : row + 2;
    const bool isBehindAll = before == FForm->RowCount();
    const String next = FForm->ShownKey(before);
    if (moved.empty() || (next.empty() && !isBehindAll)) return;
    FForm->MoveRow(moved, next);
}

void TWatchPane::FillBoxes() {
    const QSignalBlocker quietExchanges(FExchanges);
    const QSignalBlocker quietCategories(FCategories);
    FFilledLanguage = TCustomLanguageManager::GetInstance()->GetCurrentLanguage();
    FillExchanges(*FExchanges);
    FExchanges->setCurrentIndex(FExchanges->findData(ToQt(FForm->Exchange())));
    FExchanges->setAccessibleName(ToQt(InterfaceText(ResourceKey::Res_Exchange)));
    FillCategories(*FCategories, FForm->Exchange());
    FCategories->setCurrentIndex(std::max(FCategories->findData(FForm->Category()), 0));
    FCategories->setAccessibleName(ToQt(InterfaceText(TerminalKey::Res_Category)));
    FCategories->setVisible(FCategories->count() > 2); // one beside all is no choice
    FMoveUp->setText(ToQt(InterfaceText(TerminalKey::Res_RowUp)));
    FMoveDown->setText(ToQt(InterfaceText(TerminalKey::Res_RowDown)));
    FAddFavourite->setText(ToQt(InterfaceText(TerminalKey::Res_FavouriteAdd)));
}

void TWatchPane::Follow() {
    if (FFilledLanguage != TCustomLanguageManager::GetInstance()->GetCurrentLanguage()) FillBoxes();
    FForm->FollowVisibleRows();
    TActionPane::Follow();
}

void TWatchPane::JoinGroup(StringView groupID) {
    FForm->Rows().SetGroupID(groupID);
    TPane::JoinGroup(groupID);
}

QString TWatchPane::Caption() {
    const QString name = ToQt(InterfaceText(TerminalKey::Res_MarketWatch));
    return name + u' ' + (FExchanges->currentIndex() < 0 ? QString() : FExchanges->currentText());
}

String TWatchPane::Choice() {
    String choice = FForm->Exchange();
    if (FForm->Category() != EveryCategory) {
        choice += CategoryMark;
        choice += IntegerToText(FForm->Category());
    }
    return choice;
}

void TWatchPane::SetChoice(StringView choice) {
    const auto mark = choice.find(CategoryMark);
    const StringView exchange = choice.substr(0, mark);
    if (FExchanges->findData(ToQt(exchange)) < 0) return;
    Integer category = EveryCategory;
    if (mark != StringView::npos && !TryParseInteger(choice.substr(mark + 1), category)) return;
    FForm->ShowMarket(exchange, category);
    FillBoxes();
}

QSize TWatchPane::sizeHint() const {
    int width = EdgeWidth;
    for (int section = 0; section < Grid().model()->columnCount(); ++section) {
        width += Grid().columnWidth(section);
    }
    return {width, (ShownRows + 1) * Grid().verticalHeader()->defaultSectionSize()};
}

} // namespace quorin
