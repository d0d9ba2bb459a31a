#pragma once

#include "platform/rtl/TObject.h"
#include "terminal/forms/ShownForm.h"

#include <QWidget>

class QAbstractItemView;

namespace quorin {

// The forms that a window can hold, in the order of its menu.
enum class TPaneKind : Byte {
    Watch,
    Underlyer,
    Positions,
    PositionView,
    AccountTree,
    CashTree,
    Ticket,
    Orders,
    Trades,
    Messages,
    Audit,
    Settings
};

// Linked groups: none, or one of the two that have a colour.
inline constexpr Integer NoGroup = 0;
inline constexpr Integer GroupCount = 2;
// The group as the fields and the channel manager know it; empty for NoGroup.
StringView GroupID(Integer group);

// A form on the screen, inside a dock of the main window. It shows what the form of terminal/forms
// says and holds nothing but pixels; what it is to begin with again at the next start it tells as a
// choice.
class TPane : public QWidget {
    Q_OBJECT

public:
    explicit TPane(TPaneKind kind, QWidget* parent = nullptr);
    ~TPane() override;

    TPaneKind Kind() const { return FKind; }

    // Once per frame: draws what has changed since the frame before.
    virtual void Follow() = 0;
    // What it shows, for the title, in the language in force.
    virtual QString Caption() = 0;
    // The list or tree and its skin; nil for panes of another kind.
    virtual TShownForm* Shown() { return nullptr; }
    virtual QAbstractItemView* ItemView() { return nullptr; }

    // What is shown beyond columns: an exchange, an account. A text that another pane of the kind
    // takes back; one that it cannot use leaves things as they are. Empty where there is nothing
    // to choose.
    virtual String Choice() { return {}; }
    virtual void SetChoice(StringView) {}

    // The symbol and the account that the pane is to show; panes that follow neither ignore it.
    virtual void TakeSymbol(StringView) {}
    virtual void TakeAccount(StringView) {}

    // A pane in a group follows the group's symbol and account, and tells the group of its own.
    Integer Group() const { return FGroup; }
    void SetGroup(Integer group);

    // True while a question of the pane waits for its answer: it is deleted after that.
    virtual bool IsAsking() const { return false; }

signals:
    // The person has chosen a symbol or an account here.
    void SymbolChosen(const QString& symbol);
    void AccountChosen(const QString& account);
    void GroupChanged();

protected:
    // Follows the group from here on, or none with an empty text.
    virtual void JoinGroup(StringView groupID);
    // Tell the group, if there is one.
    void ShareSymbol(StringView symbol);
    void ShareAccount(StringView account);
    // The same, and whoever listens: the person wants to go on with it.
    void ChooseSymbol(StringView symbol);
    void ChooseAccount(StringView account);

private:
    void Share(Integer channel, StringView value);
    void GroupData(Pointer Sender, Pointer Data);

    TObject FOwner; // of the registration
    TPaneKind FKind;
    Integer FGroup = NoGroup;
    bool FIsTelling = false; // what the group says now is this pane's own
};

} // namespace quorin
