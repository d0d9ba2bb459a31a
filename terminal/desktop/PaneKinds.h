#pragma once

#include "terminal/desktop/DesktopSession.h"
#include "terminal/desktop/Pane.h"

#include <span>

namespace quorin {

// A kind of form: its word on the command line and in files, and the key of its name.
struct TPaneKindInfo {
    TPaneKind Kind;
    const char* Code;
    StringView NameKey;
};

// In the order of the menu.
std::span<const TPaneKindInfo> PaneKinds();
const TPaneKindInfo& PaneKindInfo(TPaneKind kind);
// Nil for a word that is none.
const TPaneKindInfo* FindPaneKind(StringView code);

// A new form of the kind, the session's usual exchange and account in it. The session must live
// longer.
TPane* MakePane(TPaneKind kind, TDesktopSession& session, QWidget* parent = nullptr);

} // namespace quorin
