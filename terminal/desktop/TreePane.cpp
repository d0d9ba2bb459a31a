#include "terminal/desktop/TreePane.h"

#include "terminal/desktop/TableSize.h"

#include <QVBoxLayout>

namespace quorin {

namespace {

constexpr int UsualRows = 14;
constexpr Int64 PartialInterval = 1000; // milliseconds

} // namespace

TTreePane::TTreePane(TPaneKind kind, std::unique_ptr<TTreeForm> form, bool hasAll, QWidget* parent)
    : TPane(kind, parent), FForm(std::move(form)), FBar(new TAccountBar(*FForm, hasAll, this)),
      FTree(new TTreeSkin(*FForm, this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(FBar);
    layout->addWidget(FTree);
    connect(FBar, &TAccountBar::AccountChosen, this, [this] {
        Show(FBar->Box().Code());
        ShareAccount(FForm->ShownAccount());
        Follow();
    });
}

// What draws must be gone before the form that it shows.
TTreePane::~TTreePane() {
    delete FBar;
    delete FTree;
}

void TTreePane::Follow() {
    FBar->Follow(Shows());
    FTree->Follow();
    FollowPartial();
    if (FLanguage.TakeChange()) FTree->setAccessibleName(Caption());
}

// Now and then, of figures that have changed: every position of the accounts is looked at.
void TTreePane::FollowPartial() {
    const bool isEarly = FSincePartial.isValid() && FSincePartial.elapsed() < PartialInterval;
    if (FTree->PaintCount() == FPartialPaints || isEarly) return;
    FPartialPaints = FTree->PaintCount();
    FSincePartial.start();
    FForm->ForgetPartial();
    FTree->viewport()->update();
}

void TTreePane::SetChoice(StringView choice) {
    if (choice.empty()) return;
    const Char last = choice.back();
    Show(last == u'+' ? choice.substr(0, choice.size() - 1) : choice); // no longer that of all
    FForm->TakeAccountChoice(choice);
}

void TTreePane::TakeAccount(StringView account) {
    if (!Shows().empty()) Show(account);
}

QSize TTreePane::sizeHint() const {
    return QWidget::sizeHint().expandedTo(TableSize(*FTree, UsualRows));
}

} // namespace quorin
