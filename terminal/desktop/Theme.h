#pragma once

#include "viewdata/market/MarketDataControl.h"

#include <QColor>
#include <QFont>

class QApplication;

namespace quorin {

enum class TTheme : Byte { Light, Dark };

// Gives the program one look on every machine: colours, style and a font that writes figures of
// equal width and Chinese, as far as the machine has one.
void ApplyTheme(QApplication& application, TTheme theme);

TTheme CurrentTheme();
// The colour of a move and of its mark; an invalid one for no move, which has the text's.
QColor MoveColor(TPriceChangeState state);
// What lies over the row of a cell that flashes; the texts of rows can be read on it. `strength` is
// from 1 down to 0.
QColor FlashColor(TPriceChangeState state, Double strength);
// A second, quieter shade of the rows.
QColor QuietTextColor();
// Colours of the two sides of an order, behind text in the colour given last.
QColor SideColor(Integer side);
QColor SideTextColor();

// The colour of a linked group, from 1, behind text in the colour for sides.
QColor GroupColor(Integer group);

// The mark of a move, which says without colour what the colour says.
QString MoveMark(TPriceChangeState state);
// The mark of a total that leaves something out.
QString PartialMark();
// What a person is told who cannot see the mark.
QString MoveWord(TPriceChangeState state);

} // namespace quorin
