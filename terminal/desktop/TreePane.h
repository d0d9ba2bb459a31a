#pragma once

#include "terminal/desktop/AccountBar.h"
#include "terminal/desktop/Pane.h"
#include "terminal/desktop/TreeSkin.h"

#include <QElapsedTimer>

#include <memory>

namespace quorin {

// A tree of account figures on the screen, with its account to choose above it.
class TTreePane : public TPane {
    Q_OBJECT

public:
    ~TTreePane() override;

    TTreeSkin& Tree() { return *FTree; }
    TAccountBar& Bar() { return *FBar; }

    void Follow() override;
    TShownForm* Shown() override { return FForm.get(); }
    QAbstractItemView* ItemView() override { return FTree; }
    QSize sizeHint() const override;
    // The account, with a "+" behind it where sums are shown.
    String Choice() override { return FForm->AccountChoice(); }
    void SetChoice(StringView choice) override;
    void TakeAccount(StringView account) override;

protected:
    // With `hasAll` an empty code stands for all accounts.
    TTreePane(TPaneKind kind, std::unique_ptr<TTreeForm> form, bool hasAll, QWidget* parent);

    TTreeForm& TreeForm() { return *FForm; }
    // What the account bar shows and tells, empty for none, or for all.
    virtual String Shows() { return FForm->ShownAccount(); }
    virtual void Show(StringView account) { FForm->ShowAccount(account); }

private:
    void FollowPartial();

    std::unique_ptr<TTreeForm> FForm;
    TAccountBar* FBar;
    TTreeSkin* FTree;
    TShownLanguage FLanguage;
    QElapsedTimer FSincePartial; // since totals were looked through for what they leave out
    Int64 FPartialPaints = 0;    // of the tree, at that time
};

} // namespace quorin
