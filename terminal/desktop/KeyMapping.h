#pragma once

#include "platform/widgets/InputEvents.h"

#include <QKeyEvent>

namespace quorin {

// The headless number of the event's key; 0 for one that a field has no use for.
Word KeyOfEvent(const QKeyEvent& event);
TShiftState ShiftOf(Qt::KeyboardModifiers modifiers);
// What the key types into a field; empty for a command.
String TypedText(const QKeyEvent& event);

} // namespace quorin
