#pragma once

#include "terminal/desktop/FindBar.h"
#include "terminal/desktop/LayoutKeeper.h"
#include "viewdata/services/LanguageManager.h"

#include <QList>
#include <QTimer>

class QAction;
class QHeaderView;

namespace quorin {

// What people do with a list or a tree on the screen: sort, choose columns, filter, find, copy and
// save it, and take a change of its layout back. Each is an action of the view with a key of its
// own, which works while the view has the focus, and stands in the menu of the view's captions.
// The menu of the rows has those that are about a row, with those of the form around the view.
class TGridActions : public QObject {
    Q_OBJECT

public:
    // A table view or a tree view that shows `form`; both must live longer. The find bar is put
    // above the view where its parent stacks its widgets.
    TGridActions(QAbstractItemView& view, TShownForm& form);

    TLayoutKeeper& Keeper() { return FKeeper; }
    TFindBar& FindBar() { return *FFindBar; }
    // In the order of the menu.
    const QList<QAction*>& Actions() const { return FActions; }
    // The one whose text has the key; nil where the view has none.
    QAction* Action(StringView key) const;
    // A dialog of an action is open, or an export runs: the view must stay until then.
    bool IsBusy() const { return FIsBusy; }
    // Once per frame: the texts follow the language.
    void Follow();
    // The chosen rows with their visible columns, as the view shows them, apart by tabs.
    QString CopyText(bool withCaptions);

private:
    void Add(StringView key, const QKeySequence& keys, void (TGridActions::*act)());
    // The column that an action is about: the one under the menu, else the one with the focus; nil
    // without one.
    TcxViewColumn* Column();
    // Qt's section of it; -1 without one.
    int Section() const;
    QHeaderView& Header() const;
    void ShowMenu(const QPoint& place);
    void OpenMenu();
    void ShowRowMenu(const QPoint& place);
    QList<QAction*> RowActions() const;
    String RowKey() const;
    TcxViewColumn* ColumnAt(int section);
    void MoveColumn(int section, int from, int to);
    void ClearSorting();
    void Sort(TdxSortOrder order);
    void SortAscending() { Sort(soAscending); }
    void SortDescending() { Sort(soDescending); }
    void SortNone() { Sort(soNone); }
    void Hide();
    void Choose();
    void Filter();
    void ClearFilter();
    void ClearFilters();
    void Fit();
    void Undo() { FKeeper.Undo(); }
    void Find() { FFindBar->Open(); }
    void FindNext() { FFindBar->Move(1); }
    void FindPrevious() { FFindBar->Move(-1); }
    void Copy();
    void CopyWithCaptions();
    template <class OnGrid, class OnTree>
    void Save(OnGrid onGrid, OnTree onTree);
    void SaveCsv();
    void SaveXls();
    void SaveXlsx();
    void ToggleFavourite();

    QAbstractItemView& FView;
    TShownForm& FForm;
    TLayoutKeeper FKeeper;
    TFindBar* FFindBar;
    QList<QAction*> FActions;
    std::vector<StringView> FKeys; // of the actions' texts
    QTimer FNoteTimer;             // one step for a width that is being dragged
    TAppLanguage FShownLanguage = TAppLanguage::None;
    int FMenuSection = -1;
    bool FIsBusy = false;
    bool FIsMoving = false; // a caption goes back to where Qt had it
};

} // namespace quorin
