#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// The section of DefaultGroupDataMode alone. All other keys lie in the section that
// TCustomConfigManager::GetCurrentSection names.
inline constexpr StringView TradePlatformSection = u"QRN_TRADEPLATFORM";

// Keys of the settings, each with the operation that reads it.
namespace ConfigKey {
// Linking of fields.

// ReadString: -1 or none: groups are not kept apart; from 0 up they are, with bit 1 ungrouped
// symbol fields and with bit 2 ungrouped account fields follow what is offered outside groups.
inline constexpr StringView DefaultGroupDataMode = u"DefaultGroupDataMode";

// Input fields.

// ReadBool: the full stop multiplies a quantity by 1000; embedded: set and false, quantities show
// without group marks.
inline constexpr StringView QtyThousandPeriod = u"QtyThousandPeriod";
// ReadString: on unless it begins with N: the wheel steps prices.
inline constexpr StringView EnableMouseWheel = u"EnableMouseWheel";
// ReadString: on unless it begins with N: the wheel steps quantities.
inline constexpr StringView EnableQtyMouseWheel = u"EnableQtyMouseWheel";
// ReadString: on unless it begins with N: a held button goes on stepping prices.
inline constexpr StringView PrcEdtAutoInc = u"PrcEdtAutoInc";
// ReadString: on unless it begins with N: a held button goes on stepping quantities.
inline constexpr StringView QtyEdtAutoInc = u"QtyEdtAutoInc";
// ReadString: on unless it begins with N: fields show the name behind the symbol.
inline constexpr StringView DisplaySymbolName = u"DisplaySymbolName";
// ReadString: path of a library that converts typed symbols.
inline constexpr StringView SymbolmapDLL = u"SymbolmapDLL";

// Display of numbers.

// ReadInteger: form of bond prices; embedded: 1 as 99-5/64, 2 as 99 5/64.
inline constexpr StringView DenominatorModeValue = u"DenominatorModeValue";
// ReadString: fractions of a bond price, such as 64.
inline constexpr StringView BondPriceDenominator = u"BondPriceDenominator";
// ReadString: decimals of amounts.
inline constexpr StringView AmountPrecision = u"AmountPrecision";
// ReadString: decimals of quantities.
inline constexpr StringView QtyPrecision = u"QtyPrecision";
// ReadString: decimals of average prices.
inline constexpr StringView DefaultPrecision = u"DefaultPrecision";
// ReadString: decimals of currency ratios.
inline constexpr StringView CurrencyPrecision = u"CurrencyPrecision";
// ReadString: for concrete data sources; a change repaints the views.
inline constexpr StringView AvgPriceMode = u"AvgPriceMode";
// ReadBool: amounts keep zeros at the end.
inline constexpr StringView AmountDecimal = u"AmountDecimal";
// ReadBool: quantities keep zeros at the end.
inline constexpr StringView QtyDecimal = u"QtyDecimal";
// ReadBool: average prices keep zeros at the end.
inline constexpr StringView DefaultDecimal = u"DefaultDecimal";
// ReadBool: currency ratios keep zeros at the end.
inline constexpr StringView CurrencyDecimal = u"CurrencyDecimal";

// Files that views are saved as.

// ReadBool: CSV files begin with a byte order mark.
inline constexpr StringView CsvByteOrderMark = u"CsvByteOrderMark";
// ReadBool: an apostrophe stands before what a spreadsheet takes for a formula.
inline constexpr StringView CsvGuardFormula = u"CsvGuardFormula";

// Orders and positions.

// ReadBool: the application asks before a new order goes out.
inline constexpr StringView ConfirmationPlaceOrd = u"ConfirmationPlaceOrd";
// ReadBool: the application asks before a position is closed.
inline constexpr StringView ConfirmationClosePosition = u"ConfirmationClosePosition";
// ReadBool: what is free to sell counts deposits less withdrawals, see T1Market.
inline constexpr StringView IncludeStockSIMaxSell = u"IncludeStockSIMaxSell";
// ReadBool: quantities of short records show below zero.
inline constexpr StringView ShowNegForShortPos = u"ShowNegForShortPos";
// ReadInteger: average price of a position: 1 of what came in, 2 first in first netted, else mixed.
inline constexpr StringView PVAvgPriceMode = u"PVAvgPriceMode";
// ReadString: exchanges, by ",", where what was bought today is not free to sell.
inline constexpr StringView T1Market = u"T1Market";
// ReadBool: options in an open market are marked at the side that closes them.
inline constexpr StringView OptionsPLPrice = u"OptionsPLPrice";
// ReadBool: futures and options are marked at the median of last, close and that side.
inline constexpr StringView MiddlePLPrice = u"MiddlePLPrice";
// ReadBool: closed positions stay in the position view if they traded today.
inline constexpr StringView DisplayZeroQty = u"DisplayZeroQty";
// ReadBool: the position view follows the account's status.
inline constexpr StringView LoadAcctStatus = u"LoadAcctStatus";
} // namespace ConfigKey

} // namespace quorin
