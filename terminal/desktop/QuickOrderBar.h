#pragma once

#include "terminal/desktop/GridSkin.h"
#include "terminal/forms/RowActions.h"

class QAction;
class QHBoxLayout;
class QLabel;
class QPushButton;

namespace quorin {

// The actions of a list as a row of buttons with the price that each would have, for the row with
// the focus. The buttons from the left have the keys Alt+1, Alt+2 and so on, wherever in the pane
// the focus is but in a field. A key that repeats acts once.
class TQuickOrderBar : public QWidget {
    Q_OBJECT

public:
    // `pane` gets the keys; the list, its skin and the dialog must live as long as it does.
    TQuickOrderBar(TListForm& form, TGridSkin& grid, TOrderDialog& dialog,
                   std::vector<TRowAction> actions, QWidget& pane);

    // To be called once per frame, after the skin has followed.
    void Follow();
    // A second key for the action.
    void AddKey(Integer action, const QKeySequence& key);

    TRowActions& Actions() { return FActions; }
    QAction& Action(Integer index) { return *FKeys[static_cast<std::size_t>(index)]; }
    QPushButton& Button(Integer index) { return *FButtons[static_cast<std::size_t>(index)]; }
    // True while a question of an action waits for its answer.
    bool IsAsking() const { return FActions.IsPending(); }

private:
    void AddButton(Integer index, QHBoxLayout& layout, QWidget& pane);
    void Take(Integer index);
    void ShowButtons();

    TListForm& FForm;
    TGridSkin& FGrid;
    TRowActions FActions;
    std::vector<QAction*> FKeys; // the pane's
    std::vector<QPushButton*> FButtons;
    QLabel* FRow; // what tells it from others
    QLabel* FOutcome;
};

// The focus is in a field: what is typed there starts no action.
bool IsTyping();

} // namespace quorin
