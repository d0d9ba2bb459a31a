#pragma once

namespace quorin {

// Writes the texts that widgets bring along, and the short names of days and months, in the
// language in force, for the whole process. A text that the language does not have becomes empty.
// No view is told.
void RefreshWidgetTexts();

} // namespace quorin
