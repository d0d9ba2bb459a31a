#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "platform/rtl/Utf.h"
#include "platform/widgets/ExportLinks.h"
#include "terminal/console/ScriptAnswers.h"
#include "viewdata/editors/EditorManager.h"

#include <algorithm>
#include <filesystem>

namespace quorin {

namespace {

constexpr Char NameEnd = u',';
constexpr Char HiddenMark = u'-';
constexpr StringView Shown = u"shown   ";
constexpr StringView Hidden = u"hidden  ";
constexpr StringView Reserved = u", always";
constexpr StringView NoFilter = u"none";

TEditorManager& Manager() {
    return *TEditorManager::GetInstance();
}

TcxGrid& GridPlaceOf(const TFormView& view) {
    if (view.Grid == nullptr) Fail(u"what was shown last is no grid");
    return *view.Grid;
}

TcxGridTableView& GridOf(const TFormView& view) {
    return *GridPlaceOf(view).ActiveView();
}

TcxVirtualTreeList& TreeOf(const TFormView& view) {
    if (view.Tree == nullptr) Fail(u"what was shown last is no tree");
    return *view.Tree;
}

// Layouts.

void Layout(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream& out) {
    const TFormView view = screen.LastView();
    const bool isGrid = view.Grid != nullptr;
    if (arguments.Has(1)) {
        const String& layout = arguments.Word(1);
        PrintResult(out,
                    isGrid
                        ? Manager().SetGridColumnLayout(GridOf(view), layout, view.DefaultColumns)
                        : Manager().SetTreeColumnLayout(TreeOf(view), layout, view.DefaultColumns),
                    DoneText);
        return;
    }
    PrintAnswer(out, u"columns",
                isGrid ? Manager().GetGridColumnLayout(GridOf(view), view.DefaultColumns)
                       : Manager().GetTreeColumnLayout(TreeOf(view), view.DefaultColumns));
    PrintAnswer(out, u"sort",
                isGrid ? Manager().GetGridSortLayout(GridOf(view))
                       : Manager().GetTreeSortLayout(TreeOf(view)));
}

void SortLayout(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream&) {
    const TFormView view = screen.LastView();
    if (view.Grid != nullptr) {
        Manager().SetGridSortLayout(GridOf(view), arguments.Word(1));
    } else {
        Manager().SetTreeSortLayout(TreeOf(view), arguments.Word(1));
    }
}

// The column chooser.

bool Names(const std::vector<String>& captions, StringView caption) {
    return std::find(captions.begin(), captions.end(), caption) != captions.end();
}

void OpenChooser(const TFormView& view) {
    if (view.Grid != nullptr) {
        Manager().GridCustomColumn(GridOf(view), view.ReservedColumns, {});
    } else {
        Manager().TreeCustomColumn(TreeOf(view), view.ReservedColumns, {});
    }
}

// "Symbol,-Bid": the columns in this order, hidden where there is a minus in front.
TCustomColumnRecord ReadChoice(const TCustomColumnRecord& asked, StringView text) {
    TCustomColumnRecord choice;
    for (StringView caption : Split(text, NameEnd)) {
        caption = Trim(caption);
        const bool isHidden = !caption.empty() && caption.front() == HiddenMark;
        if (isHidden) caption.remove_prefix(1);
        if (!Names(asked.AllColumns, caption)) Fail(u"there is no column " + String(caption));
        if (Names(choice.AllColumns, caption)) {
            Fail(u"the column " + String(caption) + u" is named twice");
        }
        if (isHidden && Names(asked.ReservedColumns, caption)) {
            Fail(u"the column " + String(caption) + u" is always shown");
        }
        choice.AllColumns.emplace_back(caption);
        if (!isHidden) choice.VisibleColumns.emplace_back(caption);
    }
    return choice;
}

// What a chooser shows is known once one was opened, and that one is cancelled.
void Columns(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream& out) {
    const TFormView view = screen.LastView();
    TViewDialogs& dialogs = screen.ViewDialogs();
    OpenChooser(view);
    if (arguments.Has(1)) {
        dialogs.AnswerColumns(ReadChoice(dialogs.AskedColumns(), arguments.Word(1)));
        OpenChooser(view);
        return;
    }
    const TCustomColumnRecord& asked = dialogs.AskedColumns();
    for (const String& caption : asked.AllColumns) {
        const StringView state = Names(asked.VisibleColumns, caption) ? Shown : Hidden;
        const StringView note = Names(asked.ReservedColumns, caption) ? Reserved : StringView();
        PrintAnswer(out, u"column", String(state) + caption + String(note));
    }
}

// Filters.

struct TOperatorName {
    StringView Name;
    Byte Operator;
};

constexpr TOperatorName OperatorNames[] = {
    {u"contains", FilterOperator::Contains}, {u"not-contains", FilterOperator::NotContains},
    {u"=", FilterOperator::Equal},           {u"<>", FilterOperator::NotEqual},
    {u">", FilterOperator::Greater},         {u"<", FilterOperator::Less},
    {u"<=", FilterOperator::LessOrEqual},    {u">=", FilterOperator::GreaterOrEqual},
    {u"between", FilterOperator::Between},   {u"not-between", FilterOperator::NotBetween},
};

TcxGridColumn& ColumnOf(const TFormView& view, const String& name) {
    const Integer id = TEditorManager::GetColumnIDByKey(name, view.DefaultColumns);
    TcxGridTableView& grid = GridOf(view);
    for (Integer index = 0; index < grid.GetColumnCount(); ++index) {
        TcxGridColumn& column = *grid.GetColumn(index);
        if (id == NoColumnID ? column.Caption() == name : column.Tag() == id) return column;
    }
    Fail(u"there is no column " + name);
}

String RowsText(TcxGridTableView& grid) {
    return IntegerToText(grid.RowCount()) + u" rows";
}

// As a cancelled dialog shows it.
void PrintFilter(std::ostream& out, TScriptScreen& screen, TcxGridTableView& grid,
                 TcxGridColumn& column) {
    Manager().GridCustomFilter(grid, column);
    const TCustomFilterRecord& filter = screen.ViewDialogs().AskedFilter();
    String text(NoFilter);
    if (!filter.Value.empty()) {
        for (const TOperatorName& name : OperatorNames) {
            if (name.Operator == filter.Operator) text = String(name.Name) + u" " + filter.Value;
        }
    }
    PrintAnswer(out, u"filter", column.Caption() + u" " + text + u", " + RowsText(grid));
}

void ShowFilter(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream& out) {
    const TFormView view = screen.LastView();
    PrintFilter(out, screen, GridOf(view), ColumnOf(view, arguments.Word(1)));
}

void Filter(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream& out) {
    const TFormView view = screen.LastView();
    TcxGridTableView& grid = GridOf(view);
    TcxGridColumn& column = ColumnOf(view, arguments.Word(1));
    TCustomFilterRecord answer;
    for (const TOperatorName& name : OperatorNames) {
        if (arguments.Is(2, name.Name)) answer.Operator = name.Operator;
    }
    answer.Value = arguments.Word(3);
    screen.ViewDialogs().AnswerFilter(answer);
    Manager().GridCustomFilter(grid, column);
    PrintFilter(out, screen, grid, column);
}

void Find(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream& out) {
    TcxGridTableView& grid = GridOf(screen.LastView());
    TcxGridFindPanel& panel = grid.FindPanel();
    panel.Open();
    panel.SetText(arguments.Has(1) ? arguments.Word(1) : String());
    panel.PressFind();
    PrintAnswer(out, u"find",
                (panel.Text().empty() ? panel.InfoText() : panel.Text()) + u" [" +
                    panel.FindButtonCaption() + u"] [" + panel.ClearButtonCaption() + u"], " +
                    RowsText(grid));
}

// Files.

struct TExportName {
    StringView Name;
    void (TEditorManager::*OnGrid)(TcxGrid&, StringView, StringView);
    void (TEditorManager::*OnTree)(TcxVirtualTreeList&, StringView, StringView);
};

constexpr TExportName ExportNames[] = {
    {u"csv", &TEditorManager::ExportGridToCSV, &TEditorManager::ExportTreeToCSV},
    {u"xls", &TEditorManager::ExportGridToXLS, &TEditorManager::ExportTreeToXLS},
    {u"xlsx", &TEditorManager::ExportGridToXLSX, &TEditorManager::ExportTreeToXLSX},
};

template <class View>
void Save(TScriptScreen& screen, void (TEditorManager::*save)(View&, StringView, StringView),
          View& view, const String& path) {
    std::error_code ignored;
    const String folder = FromUtf8(std::filesystem::current_path(ignored).string());
    screen.ViewDialogs().AnswerFile(path);
    try {
        (Manager().*save)(view, path, folder);
    } catch (const EExportError& error) {
        Fail(FromUtf8(error.what()));
    }
}

void Export(TScriptScreen& screen, const TScriptArguments& arguments, std::ostream& out) {
    const TFormView view = screen.LastView();
    const String& path = arguments.Word(3);
    for (const TExportName& name : ExportNames) {
        if (!arguments.Is(2, name.Name)) continue;
        if (arguments.Is(1, u"grid")) {
            Save(screen, name.OnGrid, GridPlaceOf(view), path);
        } else {
            Save(screen, name.OnTree, TreeOf(view), path);
        }
    }
    PrintResult(out, screen.ViewDialogs().WasFileChosen(), u"saved");
}

constexpr TScriptCommand Commands[] = {
    {"layout [STRING]", "columns and sort of what was shown last, or puts the columns so", Layout},
    {"sortlayout STRING", "sorts what was shown last so, \"TAG,INDEX,ORDER;\"; 2 is descending",
     SortLayout},
    {"columns [CHOICE]", "the column chooser, answered with captions in order, -CAPTION hides one",
     Columns},
    {"filter COLUMN", "the filter of a column", ShowFilter},
    {"filter COLUMN contains|not-contains|=|<>|>|<|<=|>=|between|not-between VALUE",
     "filters the list by a column, named as in layouts; \"\" takes the filter away", Filter},
    {"find [TEXT]", "leaves the rows in which the text stands; without one all of them", Find},
    {"export grid|tree csv|xls|xlsx PATH", "saves what was shown last as a file", Export},
};

} // namespace

std::span<const TScriptCommand> LayoutCommands() {
    return Commands;
}

} // namespace quorin
