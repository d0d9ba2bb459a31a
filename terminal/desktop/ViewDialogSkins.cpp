#include "terminal/desktop/ViewDialogSkins.h"

#include "terminal/desktop/QtText.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace quorin {

namespace {

struct TOperatorCaption {
    Byte Operator;
    StringView Key;
    bool IsForText;
    bool IsForNumbers;
};

constexpr TOperatorCaption Captions[] = {
    {FilterOperator::Contains, ResourceKey::Res_Filter_Contains, true, false},
    {FilterOperator::NotContains, ResourceKey::Res_Filter_NotContain, true, false},
    {FilterOperator::Equal, ResourceKey::Res_Filter_Equals, true, true},
    {FilterOperator::NotEqual, ResourceKey::Res_Filter_NotEqual, true, true},
    {FilterOperator::Greater, ResourceKey::Res_Filter_Greater, false, true},
    {FilterOperator::Less, ResourceKey::Res_Filter_Less, false, true},
    {FilterOperator::LessOrEqual, ResourceKey::Res_Filter_LessOrEqual, false, true},
    {FilterOperator::GreaterOrEqual, ResourceKey::Res_Filter_GreaterOrEqual, false, true},
    {FilterOperator::Between, ResourceKey::Res_Filter_Between, false, true},
    {FilterOperator::NotBetween, ResourceKey::Res_Filter_NotBetween, false, true},
};

bool Names(const std::vector<String>& captions, const String& caption) {
    return std::find(captions.begin(), captions.end(), caption) != captions.end();
}

QDialogButtonBox* MakeButtons(QDialog& dialog) {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
    buttons->button(QDialogButtonBox::Ok)->setText(ToQt(InterfaceText(ResourceKey::Res_OK_Btn)));
    buttons->button(QDialogButtonBox::Cancel)
        ->setText(ToQt(InterfaceText(TerminalKey::Res_CancelButton)));
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    return buttons;
}

} // namespace

TColumnChooser::TColumnChooser(const TCustomColumnRecord& asked, QWidget* parent)
    : QDialog(parent), FList(new QListWidget(this)),
      FColumns(static_cast<int>(asked.AllColumns.size())) {
    setWindowTitle(ToQt(InterfaceText(TerminalKey::Res_ChooseColumns)));
    FList->setAccessibleName(windowTitle());
    FList->setDragDropMode(QAbstractItemView::InternalMove);
    for (const String& caption : asked.AllColumns) {
        auto* item = new QListWidgetItem(ToQt(caption), FList);
        const bool isReserved = Names(asked.ReservedColumns, caption);
        const bool isShown = isReserved || Names(asked.VisibleColumns, caption);
        Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled;
        if (!isReserved) flags |= Qt::ItemIsUserCheckable;
        item->setFlags(flags);
        item->setCheckState(isShown ? Qt::Checked : Qt::Unchecked);
    }
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(FList);
    layout->addWidget(MakeButtons(*this));
    connect(FList, &QListWidget::itemChanged, this, &TColumnChooser::TellChange);
    connect(FList->model(), &QAbstractItemModel::rowsMoved, this, &TColumnChooser::TellChange);
    connect(FList->model(), &QAbstractItemModel::rowsRemoved, this, &TColumnChooser::TellChange);
}

// A drag may put an entry in before it takes the old one out.
void TColumnChooser::TellChange() {
    if (FList->count() == FColumns) emit Changed();
}

TCustomColumnRecord TColumnChooser::Choice() const {
    TCustomColumnRecord choice;
    for (int row = 0; row < FList->count(); ++row) {
        const QListWidgetItem& item = *FList->item(row);
        choice.AllColumns.push_back(FromQt(item.text()));
        if (item.checkState() == Qt::Checked) choice.VisibleColumns.push_back(FromQt(item.text()));
    }
    return choice;
}

TFilterDialog::TFilterDialog(const TCustomFilterRecord& asked, QWidget* parent)
    : QDialog(parent), FOperators(new QComboBox(this)), FText(new QLineEdit(this)) {
    setWindowTitle(ToQt(InterfaceText(TerminalKey::Res_FilterColumn)));
    const bool isText = asked.DataKind == FilterDataKind::Text;
    for (const TOperatorCaption& caption : Captions) {
        if (isText ? caption.IsForText : caption.IsForNumbers) {
            FOperators->addItem(ToQt(InterfaceText(caption.Key)), caption.Operator);
        }
    }
    FOperators->setCurrentIndex(std::max(FOperators->findData(asked.Operator), 0));
    FOperators->setAccessibleName(windowTitle());
    FText->setText(ToQt(asked.Value));
    FText->setAccessibleName(windowTitle());
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(FOperators);
    layout->addWidget(FText);
    layout->addWidget(MakeButtons(*this));
    FText->setFocus();
}

void TFilterDialog::ReadInto(TCustomFilterRecord& filter) const {
    filter.Value = FromQt(FText->text());
    filter.Operator = static_cast<Byte>(FOperators->currentData().toInt());
}

} // namespace quorin
