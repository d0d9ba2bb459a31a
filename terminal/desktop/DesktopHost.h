#pragma once

#include "platform/widgets/SaveDialog.h"
#include "terminal/desktop/SaveProgress.h"
#include "terminal/forms/FormsHost.h"

class QWidget;

namespace quorin {

// The window as a host: messages and questions are boxes before it. A key that was down before a
// box came does nothing in it until it is let go. While it lives, save dialogs come here and views
// are saved by the exporters of the program, which say how far they are.
class TDesktopHost : public TFormsHost, public TSaveDialogHost {
public:
    TDesktopHost();
    TDesktopHost(const TDesktopHost&) = delete;
    TDesktopHost& operator=(const TDesktopHost&) = delete;
    ~TDesktopHost() override;

    // The window that messages stand before; nil to begin with.
    void SetWindow(QWidget* window) {
        FWindow = window;
        FSaveProgress.SetWindow(window);
    }
    TSaveProgress& SaveProgress() { return FSaveProgress; }
    // An export runs: what it reads must hold still.
    bool IsSaving() const { return FLinks.IsSaving(); }

    void ShowMessage(StringView text) override;
    // The column chooser and the filter of a column as well.
    Boolean ChannelMessage(Integer number, Pointer data) override;
    Boolean ChooseFile(TSaveDialog& dialog) override;

protected:
    bool Ask(StringView text, bool isYesFirst) override;
    bool ShowCloseAll(TCloseAllForm& list, StringView question) override;

private:
    TViewExportLinks FLinks;
    TSaveProgress FSaveProgress{FLinks};
    QWidget* FWindow = nullptr;
};

} // namespace quorin
