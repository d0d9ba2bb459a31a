#include "embedded/SeriesComparer.h"

namespace quorin {

void TEmbeddedSeriesComparer::SortSeries(StringView, TList<String>& List) const {
    List.Sort([this](const String& left, const String& right) { return Compare(left, right) < 0; });
}

} // namespace quorin
