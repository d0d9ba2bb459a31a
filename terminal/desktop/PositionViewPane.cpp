#include "terminal/desktop/PositionViewPane.h"

#include "terminal/desktop/QtText.h"
#include "terminal/desktop/Theme.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

#include <QLabel>
#include <QVBoxLayout>

namespace quorin {

namespace {
constexpr int SummaryMargin = 6;
} // namespace

TPositionViewPane::TPositionViewPane(StringView account, TOrderDialog& dialog, QWidget* parent)
    : TActionPane(TPaneKind::PositionView, parent) {
    auto form = std::make_unique<TPositionViewForm>();
    FForm = form.get();
    QVBoxLayout& layout = Bind(std::move(form), dialog, PositionViewActions(FForm->Control()));
    FAccounts = new TAccountBar(*FForm, /*hasAll=*/false, this);
    FSummary = new QLabel(this);
    FSummary->setMargin(SummaryMargin);
    FSummary->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout.insertWidget(0, FAccounts);
    layout.addWidget(FSummary);
    connect(FAccounts, &TAccountBar::AccountChosen, this, [this] {
        FForm->ShowAccount(FAccounts->Box().Code());
        ShareAccount(FForm->ShownAccount());
        Follow();
    });
    FForm->ShowAccount(account);
}

// What draws must be gone before the form that it shows.
TPositionViewPane::~TPositionViewPane() {
    delete FAccounts;
}

void TPositionViewPane::Follow() {
    FAccounts->Follow(FForm->ShownAccount());
    TActionPane::Follow();
    if (Grid().PaintCount() == FSummedPaints && !FLanguage.TakeChange()) return;
    FSummedPaints = Grid().PaintCount();
    ShowSummary();
}

// Totals that leave something out have a mark, and say on hover what.
void TPositionViewPane::ShowSummary() {
    const QString reason = ToQt(FForm->PartialReason());
    QStringList lines;
    for (const String& line : FForm->Summary()) lines << ToQt(line);
    if (!reason.isEmpty() && !lines.isEmpty()) lines.back() += QStringLiteral("  ") + PartialMark();
    const QString summary = lines.join(u'\n');
    FSummary->setToolTip(reason);
    FSummary->setAccessibleDescription(reason);
    if (FSummary->text() == summary) return;
    FSummary->setText(summary);
    FSummary->setAccessibleName(summary);
}

QString TPositionViewPane::Caption() {
    return ToQt(InterfaceText(TerminalKey::Res_PositionView)) + u' ' + ToQt(FForm->Title());
}

void TPositionViewPane::JoinGroup(StringView groupID) {
    FForm->Control().SetGroupID(groupID);
    TPane::JoinGroup(groupID);
}

} // namespace quorin
