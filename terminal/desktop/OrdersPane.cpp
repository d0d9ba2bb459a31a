#include "terminal/desktop/OrdersPane.h"

#include "terminal/desktop/QtText.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

#include <QCheckBox>
#include <QVBoxLayout>

namespace quorin {

namespace {

constexpr StringView AllChoice = u"all";
constexpr StringView WorkingChoice = u"working";
constexpr Integer CancelAction = 0;

} // namespace

TOrdersPane::TOrdersPane(TOrderDesk& desk, TOrderDialog& dialog, QWidget* parent)
    : TActionPane(TPaneKind::Orders, parent), FAll(new QCheckBox(this)) {
    auto form = std::make_unique<TOrdersForm>(desk);
    FForm = form.get();
    FForm->Control().SetWorkingOnly(true);
    QVBoxLayout& layout = Bind(std::move(form), dialog, OrderActions(*FForm, dialog));
    auto* head = new QHBoxLayout;
    head->addWidget(&Bar());
    head->addWidget(FAll);
    layout.insertLayout(0, head);
    Bar().AddKey(CancelAction, QKeySequence::Delete);
    connect(FAll, &QCheckBox::toggled, this,
            [this](bool isAll) { FForm->Control().SetWorkingOnly(!isAll); });
}

void TOrdersPane::Follow() {
    TActionPane::Follow();
    const QString all = ToQt(InterfaceText(TerminalKey::Res_AllOrders));
    if (FAll->text() != all) FAll->setText(all);
}

QString TOrdersPane::Caption() {
    return ToQt(InterfaceText(FAll->isChecked() ? TerminalKey::Res_AllOrders
                                                : TerminalKey::Res_WorkingOrders));
}

String TOrdersPane::Choice() {
    return String(FAll->isChecked() ? AllChoice : WorkingChoice);
}

void TOrdersPane::SetChoice(StringView choice) {
    if (choice == AllChoice || choice == WorkingChoice) FAll->setChecked(choice == AllChoice);
}

} // namespace quorin
