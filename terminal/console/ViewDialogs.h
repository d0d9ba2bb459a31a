#pragma once

#include "platform/export/ViewExportLinks.h"
#include "platform/widgets/SaveDialog.h"
#include "viewdata/services/DialogRecords.h"

#include <optional>

namespace quorin {

class TConsoleHost;

// The dialogs about views, whose answers are known before they are asked for: the column chooser,
// the filter of a column, the name of a file. One that has no answer is cancelled. While it lives,
// save dialogs come here, and views are saved by the exporters of the program.
class TViewDialogs : public TSaveDialogHost {
public:
    // `host` asks the user about an existing file; it must live longer.
    explicit TViewDialogs(TConsoleHost& host);
    TViewDialogs(const TViewDialogs&) = delete;
    TViewDialogs& operator=(const TViewDialogs&) = delete;
    ~TViewDialogs() override;

    // As THost::ChannelMessage; False for messages that are about something else.
    Boolean Answer(Integer number, Pointer data);
    Boolean ChooseFile(TSaveDialog& dialog) override;

    // What the latest chooser and filter dialog were asked with.
    const TCustomColumnRecord& AskedColumns() const { return FAskedColumns; }
    const TCustomFilterRecord& AskedFilter() const { return FAskedFilter; }

    // The answers, each for one dialog. Of the columns AllColumns and VisibleColumns count, of the
    // filter Value and Operator.
    void AnswerColumns(const TCustomColumnRecord& choice) { FColumns = choice; }
    void AnswerFilter(const TCustomFilterRecord& filter) { FFilter = filter; }
    void AnswerFile(StringView name) { FFileName = name; }
    // Whether the file was named and not refused.
    bool WasFileChosen() const { return FWasFileChosen; }

private:
    TConsoleHost& FHost;
    TViewExportLinks FLinks;
    TCustomColumnRecord FAskedColumns;
    TCustomFilterRecord FAskedFilter;
    std::optional<TCustomColumnRecord> FColumns;
    std::optional<TCustomFilterRecord> FFilter;
    std::optional<String> FFileName;
    bool FWasFileChosen = false;
};

} // namespace quorin
