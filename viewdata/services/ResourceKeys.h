#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// Tables of the language manager. The keys of the first are below; those of the others are data:
// a currency code, an exchange code, a market state. Controls with custom columns name a table of
// their own, whose keys are field numbers as decimal texts.
inline constexpr StringView Const_ResourceStringTag = u"ResourceString";

namespace ResourceTag {
inline constexpr StringView Currency = u"Currency";
inline constexpr StringView Exchange = u"Exchange";
inline constexpr StringView MarketState = u"MarketState";
} // namespace ResourceTag

// Attributes of a resource entry: the kind of a custom column's values.
namespace ResourceAttribute {
inline constexpr StringView Type = u"type";
} // namespace ResourceAttribute

// Keys of the user interface texts. A constant is called as its key; the case of a key counts.
namespace ResourceKey {
// Columns and labels.
inline constexpr StringView Res_Account = u"Res_Account";
inline constexpr StringView Res_Symbol = u"Res_Symbol";
inline constexpr StringView Res_SymbolName = u"Res_SymbolName";
inline constexpr StringView Res_Name = u"Res_Name";
inline constexpr StringView Res_Currency = u"Res_Currency";
inline constexpr StringView Res_Exchange = u"Res_Exchange";
inline constexpr StringView Res_Long = u"Res_Long";
inline constexpr StringView Res_Short = u"Res_Short";
inline constexpr StringView Res_Status = u"Res_Status";
inline constexpr StringView Res_ProdType = u"Res_ProdType";
inline constexpr StringView Res_TradingType = u"Res_TradingType";
inline constexpr StringView Res_Futures = u"Res_Futures";
inline constexpr StringView Res_Options = u"Res_Options";
inline constexpr StringView Res_Call = u"Res_Call";
inline constexpr StringView Res_Put = u"Res_Put";
inline constexpr StringView Res_StrikePrice = u"Res_StrikePrice";
inline constexpr StringView Res_ExpiryDate = u"Res_ExpiryDate";
inline constexpr StringView Res_LastTradingDay = u"Res_LastTradingDay";
inline constexpr StringView Res_SettlDay = u"Res_SettlDay";
inline constexpr StringView Res_ContractSize = u"Res_ContractSize";
inline constexpr StringView Res_TickSize = u"Res_TickSize";

// Account summary.
inline constexpr StringView Res_AcctStatus_Active = u"Res_AcctStatus_Active";
inline constexpr StringView Res_AcctStatus_Normal = u"Res_AcctStatus_Normal";
inline constexpr StringView Res_AcctStatus_Sell = u"Res_AcctStatus_Sell";
inline constexpr StringView Res_AcctStatus_Suspend = u"Res_AcctStatus_Suspend";
inline constexpr StringView Res_MarginType_Cash = u"Res_MarginType_Cash";
inline constexpr StringView Res_MarginType_Custodian = u"Res_MarginType_Custodian";
inline constexpr StringView Res_MarginType_DVP = u"Res_MarginType_DVP";
inline constexpr StringView Res_MarginType_Margin = u"Res_MarginType_Margin";
inline constexpr StringView Res_Principal_Arbitrage = u"Res_Principal_Arbitrage";
inline constexpr StringView Res_Principal_Hedge = u"Res_Principal_Hedge";
inline constexpr StringView Res_Principal_Speculation = u"Res_Principal_Speculation";
inline constexpr StringView Res_Tel = u"Res_Tel";
inline constexpr StringView Res_HomeTel = u"Res_HomeTel";
inline constexpr StringView Res_Mobile = u"Res_Mobile";
inline constexpr StringView Res_Gender = u"Res_Gender";
inline constexpr StringView Res_nationalID = u"Res_nationalID";
inline constexpr StringView res_MarginingBasis_Gross = u"res_MarginingBasis_Gross";
inline constexpr StringView res_ProfessionalInvestor = u"res_ProfessionalInvestor";

// Questions and messages.
inline constexpr StringView Res_Conf_ClosePos = u"Res_Conf_ClosePos";
inline constexpr StringView Res_BatchConf_ClosePos = u"Res_BatchConf_ClosePos";
inline constexpr StringView Res_MaxOrdQty = u"Res_MaxOrdQty";
inline constexpr StringView Res_NoPositionClose = u"Res_NoPositionClose";

// Filter dialog.
inline constexpr StringView Res_Filter_And = u"Res_Filter_And";
inline constexpr StringView Res_Filter_Or = u"Res_Filter_Or";
inline constexpr StringView Res_Filter_Equals = u"Res_Filter_Equals";
inline constexpr StringView Res_Filter_NotEqual = u"Res_Filter_NotEqual";
inline constexpr StringView Res_Filter_Less = u"Res_Filter_Less";
inline constexpr StringView Res_Filter_LessOrEqual = u"Res_Filter_LessOrEqual";
inline constexpr StringView Res_Filter_Greater = u"Res_Filter_Greater";
inline constexpr StringView Res_Filter_GreaterOrEqual = u"Res_Filter_GreaterOrEqual";
inline constexpr StringView Res_Filter_Between = u"Res_Filter_Between";
inline constexpr StringView Res_Filter_NotBetween = u"Res_Filter_NotBetween";
inline constexpr StringView Res_Filter_Contains = u"Res_Filter_Contains";
inline constexpr StringView Res_Filter_NotContain = u"Res_Filter_NotContain";

// Built-in texts of the widgets.
inline constexpr StringView Res_OK_Btn = u"Res_OK_Btn";
inline constexpr StringView Res_Cancel_Btn = u"Res_Cancel_Btn";
inline constexpr StringView Res_Clear = u"Res_Clear";
inline constexpr StringView Res_Now = u"Res_Now";
inline constexpr StringView Res_Today = u"Res_Today";
inline constexpr StringView Res_Find_Find = u"Res_Find_Find";
inline constexpr StringView Res_Find_Clear = u"Res_Find_Clear";
inline constexpr StringView Res_Search_Hints = u"Res_Search_Hints";

// Months.
inline constexpr StringView Res_Jan = u"Res_Jan";
inline constexpr StringView Res_Feb = u"Res_Feb";
inline constexpr StringView Res_Mar = u"Res_Mar";
inline constexpr StringView Res_Apr = u"Res_Apr";
inline constexpr StringView Res_May = u"Res_May";
inline constexpr StringView Res_Jun = u"Res_Jun";
inline constexpr StringView Res_Jul = u"Res_Jul";
inline constexpr StringView Res_Aug = u"Res_Aug";
inline constexpr StringView Res_Sep = u"Res_Sep";
inline constexpr StringView Res_Oct = u"Res_Oct";
inline constexpr StringView Res_Nov = u"Res_Nov";
inline constexpr StringView Res_Dec = u"Res_Dec";

// Days of the week.
inline constexpr StringView Res_Sun = u"Res_Sun";
inline constexpr StringView Res_Mon = u"Res_Mon";
inline constexpr StringView Res_Tue = u"Res_Tue";
inline constexpr StringView Res_Wed = u"Res_Wed";
inline constexpr StringView Res_Thur = u"Res_Thur";
inline constexpr StringView Res_Fri = u"Res_Fri";
inline constexpr StringView Res_Sat = u"Res_Sat";
} // namespace ResourceKey

} // namespace quorin
