#pragma once

#include "platform/rtl/Types.h"

namespace quorin {

// Keys of the texts that tell people of orders, in the table of resource strings.
namespace OrderKey {
inline constexpr StringView Res_Audit_Order = u"Res_Audit_Order";
inline constexpr StringView Res_Audit_Fill = u"Res_Audit_Fill";
inline constexpr StringView Res_Audit_Refusal = u"Res_Audit_Refusal";
inline constexpr StringView Res_Audit_Cancel = u"Res_Audit_Cancel";
inline constexpr StringView Res_Audit_Question = u"Res_Audit_Question";
inline constexpr StringView Res_Audit_Answer = u"Res_Audit_Answer";
inline constexpr StringView Res_Reason_NotAnOrder = u"Res_Reason_NotAnOrder";
inline constexpr StringView Res_Reason_NoSide = u"Res_Reason_NoSide";
inline constexpr StringView Res_Reason_UnknownAccount = u"Res_Reason_UnknownAccount";
inline constexpr StringView Res_Reason_UnknownSymbol = u"Res_Reason_UnknownSymbol";
inline constexpr StringView Res_Reason_Quantity = u"Res_Reason_Quantity";
inline constexpr StringView Res_Reason_Lot = u"Res_Reason_Lot";
inline constexpr StringView Res_Reason_Price = u"Res_Reason_Price";
inline constexpr StringView Res_Reason_CrossesZero = u"Res_Reason_CrossesZero";
inline constexpr StringView Res_Reason_NothingOffered = u"Res_Reason_NothingOffered";
inline constexpr StringView Res_Reason_ByUser = u"Res_Reason_ByUser";
inline constexpr StringView Res_OrderState_Working = u"Res_OrderState_Working";
inline constexpr StringView Res_OrderState_Filled = u"Res_OrderState_Filled";
inline constexpr StringView Res_OrderState_Cancelled = u"Res_OrderState_Cancelled";
inline constexpr StringView Res_OrderState_Refused = u"Res_OrderState_Refused";
} // namespace OrderKey

} // namespace quorin
