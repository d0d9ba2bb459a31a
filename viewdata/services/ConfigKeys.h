#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// The section of DefaultGroupDataMode alone. All other keys lie in the section that
// TCustomConfigManager::GetCurrentSection names.
inline constexpr StringView TradePlatformSection = u"QRN_TRADEPLATFORM";

// Keys of the settings, each with the operation that reads it.
namespace ConfigKey {
// Linking of fields.
inline constexpr StringView DefaultGroupDataMode = u"DefaultGroupDataMode"; // ReadString

// Input fields.
inline constexpr StringView QtyThousandPeriod = u"QtyThousandPeriod";     // ReadBool
inline constexpr StringView EnableMouseWheel = u"EnableMouseWheel";       // ReadString
inline constexpr StringView EnableQtyMouseWheel = u"EnableQtyMouseWheel"; // ReadString
inline constexpr StringView PrcEdtAutoInc = u"PrcEdtAutoInc";             // ReadString
inline constexpr StringView QtyEdtAutoInc = u"QtyEdtAutoInc";             // ReadString
inline constexpr StringView DisplaySymbolName = u"DisplaySymbolName";     // ReadString
inline constexpr StringView SymbolmapDLL = u"SymbolmapDLL";               // ReadString

// Display of numbers.
inline constexpr StringView DenominatorModeValue = u"DenominatorModeValue"; // ReadInteger
inline constexpr StringView BondPriceDenominator = u"BondPriceDenominator"; // ReadString
inline constexpr StringView AmountPrecision = u"AmountPrecision";           // ReadString
inline constexpr StringView QtyPrecision = u"QtyPrecision";                 // ReadString
inline constexpr StringView DefaultPrecision = u"DefaultPrecision";         // ReadString
inline constexpr StringView CurrencyPrecision = u"CurrencyPrecision";       // ReadString
inline constexpr StringView AvgPriceMode = u"AvgPriceMode";                 // ReadString
inline constexpr StringView AmountDecimal = u"AmountDecimal";               // ReadBool
inline constexpr StringView QtyDecimal = u"QtyDecimal";                     // ReadBool
inline constexpr StringView DefaultDecimal = u"DefaultDecimal";             // ReadBool
inline constexpr StringView CurrencyDecimal = u"CurrencyDecimal";           // ReadBool

// Files that views are saved as.
inline constexpr StringView CsvByteOrderMark = u"CsvByteOrderMark"; // ReadBool
inline constexpr StringView CsvGuardFormula = u"CsvGuardFormula";   // ReadBool

// Orders and positions.
inline constexpr StringView ConfirmationPlaceOrd = u"ConfirmationPlaceOrd";           // ReadBool
inline constexpr StringView ConfirmationClosePosition = u"ConfirmationClosePosition"; // ReadBool
inline constexpr StringView IncludeStockSIMaxSell = u"IncludeStockSIMaxSell";         // ReadBool
inline constexpr StringView ShowNegForShortPos = u"ShowNegForShortPos";               // ReadBool
inline constexpr StringView PVAvgPriceMode = u"PVAvgPriceMode";                       // ReadInteger
inline constexpr StringView T1Market = u"T1Market";             // ReadString: exchanges, by ","
inline constexpr StringView OptionsPLPrice = u"OptionsPLPrice"; // ReadBool
inline constexpr StringView MiddlePLPrice = u"MiddlePLPrice";   // ReadBool
inline constexpr StringView DisplayZeroQty = u"DisplayZeroQty"; // ReadBool
inline constexpr StringView LoadAcctStatus = u"LoadAcctStatus"; // ReadBool
} // namespace ConfigKey

} // namespace quorin
