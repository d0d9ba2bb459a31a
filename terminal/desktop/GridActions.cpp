#include "terminal/desktop/GridActions.h"

#include "platform/widgets/ExportLinks.h"
#include "terminal/desktop/QtText.h"
#include "terminal/forms/Favourites.h"
#include "terminal/forms/MarketListForm.h"
#include "terminal/forms/PositionForm.h"
#include "terminal/forms/PositionViewForm.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/editors/EditorManager.h"
#include "viewdata/frame/ServiceTexts.h"

#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QHash>
#include <QHeaderView>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QScopedValueRollback>
#include <QTableView>
#include <QTreeView>

#include <algorithm>

namespace quorin {

namespace {

constexpr int NoteDelay = 300; // milliseconds
constexpr StringView ExportName = u"export";

TcxGridTableView* GridOf(TShownForm& form) {
    TcxGrid* place = form.FormView().Grid;
    return place == nullptr ? nullptr : place->ActiveView();
}

// The lists whose rows are symbols that one may want to watch.
bool HasSymbols(TShownForm& form) {
    return ObjectAs<TMarketListForm>(&form) != nullptr ||
           ObjectAs<TPositionForm>(&form) != nullptr ||
           ObjectAs<TPositionViewForm>(&form) != nullptr;
}

} // namespace

TGridActions::TGridActions(QAbstractItemView& view, TShownForm& form)
    : QObject(&view), FView(view), FForm(form), FKeeper(form.FormView()),
      FFindBar(new TFindBar(view, form, view.parentWidget())) {
    using namespace TerminalKey;
    Add(Res_SortAscending, QStringLiteral("Ctrl+Shift+A"), &TGridActions::SortAscending);
    Add(Res_SortDescending, QStringLiteral("Ctrl+Shift+D"), &TGridActions::SortDescending);
    Add(Res_SortNone, QStringLiteral("Ctrl+Shift+N"), &TGridActions::SortNone);
    Add(Res_HideColumn, QStringLiteral("Ctrl+Shift+H"), &TGridActions::Hide);
    Add(Res_ChooseColumns, QStringLiteral("Ctrl+Shift+K"), &TGridActions::Choose);
    Add(Res_FitWidth, QStringLiteral("Ctrl+Shift+W"), &TGridActions::Fit);
    if (GridOf(form) != nullptr) {
        Add(Res_FilterColumn, QStringLiteral("Ctrl+Shift+F"), &TGridActions::Filter);
        Add(Res_FilterClear, QStringLiteral("Ctrl+Shift+X"), &TGridActions::ClearFilter);
        Add(Res_FilterClearAll, QStringLiteral("Ctrl+Alt+C"), &TGridActions::ClearFilters);
    }
    Add(Res_LayoutUndo, QKeySequence::Undo, &TGridActions::Undo);
    Add(Res_FindText, QKeySequence::Find, &TGridActions::Find);
    Add(Res_FindNext, QStringLiteral("Ctrl+G"), &TGridActions::FindNext);
    Add(Res_FindPrevious, QStringLiteral("Ctrl+Shift+G"), &TGridActions::FindPrevious);
    Add(Res_CopyRow, QKeySequence::Copy, &TGridActions::Copy);
    Add(Res_CopyWithCaptions, QStringLiteral("Ctrl+Shift+C"), &TGridActions::CopyWithCaptions);
    Add(Res_ExportCsv, QStringLiteral("Ctrl+E"), &TGridActions::SaveCsv);
    Add(Res_ExportXls, QStringLiteral("Ctrl+Alt+X"), &TGridActions::SaveXls);
    Add(Res_ExportXlsx, QStringLiteral("Ctrl+Shift+E"), &TGridActions::SaveXlsx);
    if (HasSymbols(form)) {
        Add(Res_FavouriteToggle, QStringLiteral("Ctrl+D"), &TGridActions::ToggleFavourite);
    }
    Add(Res_ColumnMenu, QStringLiteral("Ctrl+Shift+M"), &TGridActions::OpenMenu);
    Follow();

    if (view.parentWidget() != nullptr) {
        auto* stack = qobject_cast<QBoxLayout*>(view.parentWidget()->layout());
        const int place = stack == nullptr ? -1 : stack->indexOf(&view);
        if (place >= 0) stack->insertWidget(place, FFindBar);
    }
    FNoteTimer.setSingleShot(true);
    FNoteTimer.setInterval(NoteDelay);
    connect(&FNoteTimer, &QTimer::timeout, &FKeeper, &TLayoutKeeper::Note);
    QHeaderView& header = Header();
    header.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&header, &QWidget::customContextMenuRequested, this, &TGridActions::ShowMenu);
    view.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&view, &QWidget::customContextMenuRequested, this, &TGridActions::ShowRowMenu);
    const auto noteSoon = [this] { FNoteTimer.start(); };
    connect(&header, &QHeaderView::sectionResized, this, noteSoon);
    connect(&header, &QHeaderView::sortIndicatorChanged, this, noteSoon);
    header.setSectionsMovable(true);
    connect(&header, &QHeaderView::sectionMoved, this, &TGridActions::MoveColumn);
}

void TGridActions::Add(StringView key, const QKeySequence& keys, void (TGridActions::*act)()) {
    auto* action = new QAction(this);
    action->setShortcut(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this, act);
    FActions.push_back(action);
    FKeys.push_back(key);
    FView.addAction(action);
}

QAction* TGridActions::Action(StringView key) const {
    const auto found = std::find(FKeys.begin(), FKeys.end(), key);
    return found == FKeys.end() ? nullptr : FActions[found - FKeys.begin()];
}

void TGridActions::Follow() {
    const TAppLanguage language = TCustomLanguageManager::GetInstance()->GetCurrentLanguage();
    if (FShownLanguage == language) return;
    FShownLanguage = language;
    for (qsizetype index = 0; index < FActions.size(); ++index) {
        FActions[index]->setText(ToQt(InterfaceText(FKeys[static_cast<std::size_t>(index)])));
    }
}

QHeaderView& TGridActions::Header() const {
    auto* table = qobject_cast<QTableView*>(&FView);
    return table != nullptr ? *table->horizontalHeader() : *static_cast<QTreeView&>(FView).header();
}

int TGridActions::Section() const {
    if (FMenuSection >= 0) return FMenuSection;
    const int section = FView.currentIndex().column();
    return section >= 0 || FView.model()->columnCount() == 0 ? section : 0;
}

TcxViewColumn* TGridActions::Column() {
    return ColumnAt(Section());
}

TcxViewColumn* TGridActions::ColumnAt(int section) {
    for (Integer index = 0; section >= 0 && index < FForm.ColumnCount(); ++index) {
        if (FForm.Column(index).VisibleIndex() == section) return &FForm.Column(index);
    }
    return nullptr;
}

// The headless column is what moves; Qt's sections stay as they were and show others.
void TGridActions::MoveColumn(int section, int from, int to) {
    if (FIsMoving) return;
    const QScopedValueRollback moving(FIsMoving, true);
    TcxViewColumn* column = ColumnAt(section);
    const TcxViewColumn* place = ColumnAt(to);
    Header().moveSection(to, from);
    if (column == nullptr || place == nullptr) return;
    column->SetIndex(place->Index());
    FKeeper.Note();
}

void TGridActions::ShowMenu(const QPoint& place) {
    QMenu menu;
    menu.addActions(FActions);
    const QPointer<TGridActions> guard = this;
    FMenuSection = Header().logicalIndexAt(place);
    menu.exec(Header().mapToGlobal(place)); // the action is over when it returns
    if (guard) FMenuSection = -1;
}

void TGridActions::OpenMenu() {
    const int section = std::max(Section(), 0);
    ShowMenu({Header().sectionViewportPosition(section) + 1, Header().height() / 2});
}

QList<QAction*> TGridActions::RowActions() const {
    using namespace TerminalKey;
    QList<QAction*> actions;
    if (FView.parentWidget() != nullptr) actions = FView.parentWidget()->actions();
    for (QAction* action : FView.actions()) {
        if (!FActions.contains(action)) actions.push_back(action);
    }
    for (const StringView key : {Res_FavouriteToggle, Res_CopyRow, Res_CopyWithCaptions}) {
        if (QAction* action = Action(key)) actions.push_back(action);
    }
    return actions;
}

// What tells the row with the focus from others; empty in a tree.
String TGridActions::RowKey() const {
    const auto* list = dynamic_cast<const TListForm*>(&FForm);
    return list == nullptr ? String() : list->ShownKey(FView.currentIndex().row());
}

// What is chosen happens to the row that the menu was opened for, or to none.
void TGridActions::ShowRowMenu(const QPoint& place) {
    const QModelIndex index = FView.indexAt(place);
    if (index.isValid()) FView.setCurrentIndex(index);
    const QPointer<TGridActions> guard = this;
    const String row = RowKey();
    QMenu menu;
    QHash<QAction*, QAction*> meant;
    for (QAction* action : RowActions()) {
        if (action->text().isEmpty()) continue;
        QAction* entry = menu.addAction(action->text());
        entry->setShortcut(action->shortcut());
        meant.insert(entry, action);
    }
    QAction* chosen = meant.value(menu.exec(FView.viewport()->mapToGlobal(place)));
    if (guard && chosen != nullptr && RowKey() == row) chosen->trigger();
}

void TGridActions::ClearSorting() {
    if (TcxGridTableView* grid = GridOf(FForm)) {
        grid->ClearSorting();
    } else {
        FForm.FormView().Tree->ClearSorting();
    }
}

void TGridActions::Sort(TdxSortOrder order) {
    TcxViewColumn* column = Column();
    if (column == nullptr) return;
    ClearSorting();
    column->SetSortOrder(order);
    FKeeper.Note();
}

void TGridActions::Hide() {
    TcxViewColumn* column = Column();
    if (column == nullptr) return;
    const std::vector<Integer> reserved = FForm.FormView().ReservedColumns;
    if (std::find(reserved.begin(), reserved.end(), column->Tag()) != reserved.end()) return;
    column->SetVisible(false);
    FKeeper.Note();
}

void TGridActions::Choose() {
    if (FIsBusy) return;
    const QScopedValueRollback busy(FIsBusy, true);
    const TFormView view = FForm.FormView();
    TEditorManager& editors = *TEditorManager::GetInstance();
    if (view.Grid != nullptr) {
        editors.GridCustomColumn(*view.Grid->ActiveView(), view.ReservedColumns, {});
    } else {
        editors.TreeCustomColumn(*view.Tree, view.ReservedColumns, {});
    }
    FKeeper.Note();
}

void TGridActions::Filter() {
    if (FIsBusy) return;
    const QScopedValueRollback busy(FIsBusy, true);
    auto* column = dynamic_cast<TcxGridColumn*>(Column());
    if (column != nullptr) TEditorManager::GetInstance()->GridCustomFilter(*GridOf(FForm), *column);
    FKeeper.Note();
}

void TGridActions::ClearFilter() {
    TcxDataFilterCriteria& filter = GridOf(FForm)->Filter();
    filter.Root().RemoveItemByItemLink(Column());
    filter.Refresh();
    FKeeper.Note();
}

void TGridActions::ClearFilters() {
    TcxDataFilterCriteria& filter = GridOf(FForm)->Filter();
    filter.Root().Clear();
    filter.Refresh();
    FKeeper.Note();
}

void TGridActions::Fit() {
    TcxViewColumn* column = Column();
    if (column == nullptr) return;
    const int section = Section();
    const int caption = Header().sectionSizeHint(section);
    auto* table = qobject_cast<QTableView*>(&FView);
    if (table != nullptr) {
        table->resizeColumnToContents(section);
    } else {
        static_cast<QTreeView&>(FView).resizeColumnToContents(section);
    }
    column->SetWidth(std::max(caption, Header().sectionSize(section)));
    FKeeper.Note();
}

QString TGridActions::CopyText(bool withCaptions) {
    const QAbstractItemModel& model = *FView.model();
    QStringList lines;
    QStringList cells;
    for (int section = 0; withCaptions && section < model.columnCount(); ++section) {
        cells << model.headerData(section, Qt::Horizontal).toString();
    }
    if (withCaptions) lines << cells.join(u'\t');
    QModelIndexList chosen = FView.selectionModel()->selectedRows();
    std::sort(chosen.begin(), chosen.end());
    for (const QModelIndex& index : chosen) {
        cells.clear();
        for (int section = 0; section < model.columnCount(); ++section) {
            cells << index.sibling(index.row(), section).data().toString();
        }
        lines << cells.join(u'\t');
    }
    return lines.join(u'\n');
}

void TGridActions::Copy() {
    QApplication::clipboard()->setText(CopyText(false));
}

void TGridActions::CopyWithCaptions() {
    QApplication::clipboard()->setText(CopyText(true));
}

template <class OnGrid, class OnTree>
void TGridActions::Save(OnGrid onGrid, OnTree onTree) {
    if (FIsBusy) return;
    const QScopedValueRollback busy(FIsBusy, true);
    TEditorManager& editors = *TEditorManager::GetInstance();
    const TFormView view = FForm.FormView();
    try {
        if (view.Grid != nullptr) {
            (editors.*onGrid)(*view.Grid, ExportName, {});
        } else {
            (editors.*onTree)(*view.Tree, ExportName, {});
        }
    } catch (const EExportError& error) {
        QMessageBox::warning(&FView, QStringLiteral("quorin"), QString::fromUtf8(error.what()));
    }
}

void TGridActions::SaveCsv() {
    Save(&TEditorManager::ExportGridToCSV, &TEditorManager::ExportTreeToCSV);
}

void TGridActions::SaveXls() {
    Save(&TEditorManager::ExportGridToXLS, &TEditorManager::ExportTreeToXLS);
}

void TGridActions::SaveXlsx() {
    Save(&TEditorManager::ExportGridToXLSX, &TEditorManager::ExportTreeToXLSX);
}

void TGridActions::ToggleFavourite() {
    auto* list = dynamic_cast<TListForm*>(&FForm);
    if (list != nullptr) quorin::ToggleFavourite(*list, FView.currentIndex().row());
}

} // namespace quorin
