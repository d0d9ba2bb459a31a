#pragma once

#include "terminal/forms/FormsHost.h"

class QWidget;

namespace quorin {

// The window as a host: messages and questions are boxes before it. A key that was down before a
// box came does nothing in it until it is let go.
class TDesktopHost : public TFormsHost {
public:
    // The window that messages stand before; nil to begin with.
    void SetWindow(QWidget* window) { FWindow = window; }

    void ShowMessage(StringView text) override;

protected:
    bool Ask(StringView text, bool isYesFirst) override;
    bool ShowCloseAll(TCloseAllForm& list, StringView question) override;

private:
    QWidget* FWindow = nullptr;
};

} // namespace quorin
