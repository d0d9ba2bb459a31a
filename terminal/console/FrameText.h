#pragma once

#include "terminal/forms/MarketWatchForm.h"
#include "terminal/forms/ProductForm.h"
#include "terminal/forms/TradesForm.h"

#include <vector>

namespace quorin {

// What a frame tells beside its forms.
struct TFrameHead {
    Double PollTime = 0.0; // seconds after midnight of the latest delivery
    Integer Deliveries = 0;
    String Exchange; // or what else the watch shows
};

// Lines of a frame beside the visible rows of the watch.
inline constexpr Integer FrameLinesBesideRows = 18;

// Everything on the screen as lines without line ends: the head with what is not as it normally is,
// the visible rows of the watch with their marks, the latest trades, and beside them the product.
// Subscribes the visible rows before it reads them.
std::vector<String> FrameLines(const TFrameHead& head, TMarketWatchForm& watch,
                               const TTradesForm& trades, TProductForm& product);

// The same of another form: the head, whose market is what the form says of itself, its first
// `height` rows at most, and below them its summary.
std::vector<String> FormLines(TFrameHead head, TShownForm& form, Integer height);
// Lines of such a frame beside the rows.
Integer FormLinesBesideRows(TShownForm& form);

// The head alone: what is shown, when, and what a user must know because it is not as it normally
// is.
String HeadText(const TFrameHead& head);

// "HH:MM:SS.mmm"; the hours may have more digits.
String ClockText(Double secondsAfterMidnight);

} // namespace quorin
