#pragma once

#include "embedded/PositionRecord.h"

namespace quorin {

// What a product trades at. 0.0 stands for what is not known.
struct TProductMarks {
    Double Last = 0.0;
    Double PreviousClose = 0.0;
    Double ContractSize = 0.0;
};

TProductMarks MarksOf(const TCustomSubItem& item);

// The last price, before the first one of the day the previous close; 0.0 without either.
Double NominalPrice(const TProductMarks& marks);
// Units of a contract; one where the product has no contract size.
Double UnitSize(const TProductMarks& marks);

// The quantity that the beginning of the day and the day's movements leave. A short record grows
// by what was sold.
Double QuantityFromDay(const TPositionFigures& figures);

// Works out what follows from the day's quantities and amounts and the product's marks: the
// nominal, the three parts of profit and loss, and the average prices. What stood in the account at
// the beginning of the day counts at its own price, without one at the previous close.
void ValuePosition(TPositionFigures& figures, const TProductMarks& marks);

} // namespace quorin
