#pragma once

#include "platform/rtl/TObject.h"
#include "terminal/desktop/CodeBox.h"
#include "terminal/desktop/ShownLanguage.h"
#include "terminal/forms/AccountView.h"

#include <QWidget>

class QCheckBox;

namespace quorin {

// What stands above a tree of an account: the accounts of the user to choose from, and for a master
// whether the sum of its sub-accounts is shown.
class TAccountBar : public QWidget {
    Q_OBJECT

public:
    // `view` is what shows the account and must live longer. With `hasAll` the first entry stands
    // for all accounts, with an empty code.
    TAccountBar(TAccountView& view, bool hasAll, QWidget* parent = nullptr);
    ~TAccountBar() override;

    TCodeBox& Box() { return *FBox; }
    QCheckBox& SumBox() { return *FSum; }
    // To be called once per frame: shows this account, empty for all or none.
    void Follow(StringView account);

signals:
    // The person has chosen an account; Box tells which.
    void AccountChosen();

private:
    void AccountsChanged(Pointer Sender, Pointer Data);
    void Fill();

    TAccountView& FView;
    TObject FOwner; // of the registrations
    TCodeBox* FBox;
    QCheckBox* FSum;
    TShownLanguage FLanguage;
    bool FHasAll;
    bool FIsStale = true; // there may be other accounts than the box has
};

} // namespace quorin
