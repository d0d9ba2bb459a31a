#include "terminal/forms/FieldListForm.h"

#include "platform/rtl/CaseMapping.h"
#include "platform/widgets/CustomDataSource.h"
#include "viewdata/frame/ServiceTexts.h"

#include <algorithm>
#include <utility>

namespace quorin {

namespace {

constexpr Char DecorationMark = u','; // behind a code a field shows more of it

// `sought` is in capital letters already. Compares unit by unit: a long list is searched with every
// key, so nothing is allocated.
std::size_t FindWithoutCase(StringView text, StringView sought) {
    const auto found = std::search(text.begin(), text.end(), sought.begin(), sought.end(),
                                   [](Char left, Char right) { return UpperCase(left) == right; });
    return found == text.end() && !sought.empty() ? StringView::npos
                                                  : static_cast<std::size_t>(found - text.begin());
}

} // namespace

// Hands the rows of a list to its grid.
class TFieldListForm::TSource : public TcxCustomDataSource {
public:
    explicit TSource(TFieldListForm& list) : FList(list) {}

    Integer GetRecordCount() override { return static_cast<Integer>(FList.Rows().size()); }
    Variant GetValue(TcxDataRecordHandle RecordHandle, TcxDataItemHandle ItemHandle) override {
        const auto& rows = FList.Rows();
        const auto row = static_cast<std::size_t>(IndexOfHandle(RecordHandle));
        if (row >= rows.size()) return Variant();
        return Variant(FList.CellOf(*rows[row], IndexOfHandle(ItemHandle)));
    }

private:
    TFieldListForm& FList;
};

TFieldListForm::TFieldListForm(TComponent* owner, std::span<const TColumn> columns)
    : TFrame(owner), FSource(std::make_unique<TSource>(*this)),
      FView(CreateComponent<TcxGridTableView>()) {
    FView->SetCustomDataSource(FSource.get());
    for (const TColumn& column : columns) {
        FCaptionKeys.push_back(column.CaptionKey);
        FView->AddColumn(FView->GetColumnCount()).SetWidth(column.Width);
    }
    TCustomLanguageManager::GetInstance()->RegisterLanguageCallback(
        MakeEvent<&TFieldListForm::LanguageChanged>(this), this);
    LanguageChanged(nullptr, nullptr);
}

TFieldListForm::~TFieldListForm() {
    BeginDestruction();
    TCustomLanguageManager::GetInstance()->RemoveLanguageCallback(this);
}

void TFieldListForm::LanguageChanged(Pointer, Pointer) {
    for (Integer index = 0; index < FView->GetColumnCount(); ++index) {
        TcxGridColumn& column = *FView->GetColumn(index);
        column.SetCaption(InterfaceText(FCaptionKeys[static_cast<std::size_t>(column.GetTag())]));
    }
    EntriesChanged(nullptr, nullptr);
}

void TFieldListForm::EntriesChanged(Pointer, Pointer) {
    FIsStale = true;
    FRows.clear(); // none of them may be touched any more
    FSource->DataChanged();
}

void TFieldListForm::SetFilter(StringView text) {
    String filter = UpperCase(Trim(text.substr(0, text.find(DecorationMark))));
    if (filter == FFilter) return;
    FFilter = std::move(filter);
    FView->SetTopRow(0);
    EntriesChanged(nullptr, nullptr);
}

const std::vector<TObject*>& TFieldListForm::Rows() {
    if (!std::exchange(FIsStale, false)) return FRows;
    std::vector<TObject*> entries;
    Collect(entries);
    std::vector<TObject*> within;
    std::vector<TObject*> inName;
    const Integer nameColumn = FView->GetColumnCount() - 1;
    FRows.clear();
    for (TObject* entry : entries) {
        const std::size_t place = FindWithoutCase(CodeOf(*entry), FFilter);
        if (place == 0) {
            FRows.push_back(entry);
        } else if (place != StringView::npos) {
            within.push_back(entry);
        } else if (FindWithoutCase(CellOf(*entry, nameColumn), FFilter) != StringView::npos) {
            inName.push_back(entry);
        }
    }
    FRows.insert(FRows.end(), within.begin(), within.end());
    FRows.insert(FRows.end(), inName.begin(), inName.end());
    return FRows;
}

String TFieldListForm::Code(Integer row) {
    const Integer record = FView->RecordIndex(row);
    return record == NoRow ? String() : CodeOf(*Rows()[static_cast<std::size_t>(record)]);
}

Integer TFieldListForm::RowOf(StringView code) {
    const auto& rows = Rows();
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [&](const TObject* entry) { return CodeOf(*entry) == code; });
    return found == rows.end() ? NoRow
                               : FView->RowOfRecord(static_cast<Integer>(found - rows.begin()));
}

void TFieldListForm::Choose(Integer row) {
    if (FIsStale) return;
    const Integer record = FView->RecordIndex(row);
    TObject* chosen = record == NoRow ? nullptr : Rows()[static_cast<std::size_t>(record)];
    const TDataCallbackEvent event = FOnChosen; // what it calls may free the list
    if (event) event(nullptr, AsPointer(chosen));
}

TFieldListForm* FieldListOf(TcxPopupEdit& edit) {
    return ObjectAs<TFieldListForm>(edit.Properties().PopupControl());
}

void FilterByTyping(TcxPopupEdit& edit) {
    TFieldListForm* list = FieldListOf(edit);
    if (list != nullptr) list->SetFilter(edit.IsEdited() ? StringView(edit.Text()) : StringView());
}

void ShowWholeList(TcxPopupEdit& edit) {
    if (TFieldListForm* list = FieldListOf(edit)) list->SetFilter({});
}

} // namespace quorin
