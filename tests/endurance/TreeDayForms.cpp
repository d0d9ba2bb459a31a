#include "terminal/forms/AccountTreeForm.h"
#include "terminal/forms/CashTreeForm.h"
#include "tests/endurance/ViewUser.h"
#include "viewdata/account/AccountAttributes.h"

namespace quorin {

namespace {

template <class Form>
class TTreeDayForm : public TDayForm {
public:
    explicit TTreeDayForm(TDay& day) : TDayForm(day) {}

    void Switch() override {
        FForm.ShowAccount(Day.AnyAccount());
        if (Day.Random.OneIn(3)) FForm.SetAggregate();
        if (Day.Random.OneIn(3)) FForm.Tree().SetCurrency(Day.AnyCurrency());
        if (Day.Random.OneIn(3)) FForm.Tree().SetFilterCurr(Day.AnyCurrency());
    }
    void Use(bool) override { UseTree(Day, FForm); }
    void Paint() override { PaintShown(FForm, 0); }
    void Check() override { CheckTree(Day, FForm); }

protected:
    Form FForm;
};

class TAccountTreeDayForm final : public TTreeDayForm<TAccountTreeForm> {
public:
    explicit TAccountTreeDayForm(TDay& day) : TTreeDayForm(day) { Switch(); }

    void Use(bool mayOrder) override {
        if (!Day.Random.OneIn(6)) return TTreeDayForm::Use(mayOrder);
        namespace A = AccountAttribute;
        static constexpr Integer figures[] = {A::Cash,     A::MarketValue, A::TotalPL,
                                              A::HeldCash, A::Value604,    A::Shortfall};
        std::vector<Integer> chosen; // some twice
        for (Integer count = Day.Random.Pick(8); count > 0; --count) {
            chosen.push_back(Day.Random.OneOf(figures));
        }
        FForm.ShowFigures(chosen);
    }
    void Check() override {
        TTreeDayForm::Check();
        TCustomAccountInfoDataControl& tree = FForm.Tree();
        for (Integer index = 0; index < tree.GetCount(); ++index) {
            const Pointer node = tree.GetNode(index);
            Day.Findings.Require(node != nullptr, "the flat list has a hole");
            const Pointer parent = tree.GetParentNode(node);
            Day.Findings.Require(parent == nullptr || tree.GetParentNode(parent) == nullptr,
                                 "a node stands two levels down");
        }
        Day.Findings.Require(tree.GetNode(-1) == nullptr &&
                                 tree.GetNode(tree.GetCount()) == nullptr,
                             "there is a node outside");
    }
};

class TCashTreeDayForm final : public TTreeDayForm<TCashTreeForm> {
public:
    TCashTreeDayForm(TDay& day, bool showsAll) : TTreeDayForm(day) {
        Switch();
        if (showsAll) FForm.ShowAll();
    }

    void Check() override {
        TTreeDayForm::Check();
        if (!Day.IsAllReady) return;
        const TEmbeddedAccountAdapter& accounts = Day.Services.Accounts();
        const Integer expected = FForm.IsShowingAll() ? accounts.GetAccountCount()
                                 : accounts.IsAccountKnown(FForm.Tree().Account()) ? 1
                                                                                   : 0;
        Integer shown = 0;
        for (const TcxTreeRow& row : FForm.View().AllRows()) shown += row.Depth == 0;
        Day.Findings.Require(shown == expected, "the tree has another number of accounts");
    }
};

} // namespace

std::unique_ptr<TDayForm> MakeTreeDayForm(TDayFormKind kind, TDay& day) {
    if (kind == TDayFormKind::AccountTree) return std::make_unique<TAccountTreeDayForm>(day);
    return std::make_unique<TCashTreeDayForm>(day, day.Random.OneIn(2));
}

} // namespace quorin
