#include "embedded/OrderAudit.h"

#include "embedded/DataError.h"
#include "embedded/OrderKeys.h"
#include "embedded/TimeText.h"
#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"
#include "viewdata/services/ClientOrder.h"

#include <fstream>

namespace quorin {

namespace {

constexpr int NanoDigits = 9;
constexpr std::string_view LineEnd = "\r\n";
constexpr const char* Header =
    "sequence,time,kind,reason,order,account,symbol,side,quantity,price,text";

void AppendTime(String& text, Int64 nanos) {
    AppendTimeOfDay(text, nanos / NanosPerSecond);
    text.push_back(u'.');
    const String fraction = IntegerToText(nanos % NanosPerSecond);
    text.append(static_cast<std::size_t>(NanoDigits) - fraction.size(), u'0');
    text += fraction;
}

std::string Quoted(StringView text) {
    const std::string bytes = ToUtf8(text);
    if (bytes.find_first_of(",\"\r\n") == std::string::npos) return bytes;
    std::string quoted = "\"";
    for (const char byte : bytes) quoted.append(byte == '"' ? 2 : 1, byte);
    return quoted + '"';
}

std::string Line(const TOrderAuditEntry& entry) {
    String time;
    AppendTime(time, entry.TimeNanos);
    const bool isOfSymbol = !entry.Symbol.empty();
    const std::string_view side = entry.BuySell == OrderSide::Buy    ? "buy"
                                  : entry.BuySell == OrderSide::Sell ? "sell"
                                                                     : "";
    std::string line = std::to_string(entry.Sequence) + ',' + ToUtf8(time) + ',';
    line.append(AuditCode(entry.Kind)).append(",").append(ReasonCode(entry.Reason)).append(",");
    if (entry.OrderNumber != 0) line += std::to_string(entry.OrderNumber);
    line += ',' + Quoted(entry.Account) + ',' + Quoted(entry.Symbol) + ',';
    if (isOfSymbol) line.append(side);
    line += ',';
    if (isOfSymbol) line += ToUtf8(ShortestText(entry.Quantity));
    line += ',';
    if (isOfSymbol) line += ToUtf8(ShortestText(entry.Price));
    return line + ',' + Quoted(entry.Text);
}

} // namespace

std::string_view AuditCode(TOrderAuditKind kind) {
    switch (kind) {
    case TOrderAuditKind::Order: return "order";
    case TOrderAuditKind::Fill: return "fill";
    case TOrderAuditKind::Refusal: return "refusal";
    case TOrderAuditKind::Cancel: return "cancel";
    case TOrderAuditKind::Question: return "question";
    case TOrderAuditKind::Answer: return "answer";
    }
    return {};
}

std::string_view ReasonCode(TOrderReason reason) {
    switch (reason) {
    case TOrderReason::None: return {};
    case TOrderReason::NotAnOrder: return "not-an-order";
    case TOrderReason::NoSide: return "no-side";
    case TOrderReason::UnknownAccount: return "unknown-account";
    case TOrderReason::UnknownSymbol: return "unknown-symbol";
    case TOrderReason::Quantity: return "quantity";
    case TOrderReason::Lot: return "lot";
    case TOrderReason::Price: return "price";
    case TOrderReason::CrossesZero: return "crosses-zero";
    case TOrderReason::NothingOffered: return "nothing-offered";
    case TOrderReason::ByUser: return "by-user";
    }
    return {};
}

StringView AuditKey(TOrderAuditKind kind) {
    switch (kind) {
    case TOrderAuditKind::Order: return OrderKey::Res_Audit_Order;
    case TOrderAuditKind::Fill: return OrderKey::Res_Audit_Fill;
    case TOrderAuditKind::Refusal: return OrderKey::Res_Audit_Refusal;
    case TOrderAuditKind::Cancel: return OrderKey::Res_Audit_Cancel;
    case TOrderAuditKind::Question: return OrderKey::Res_Audit_Question;
    case TOrderAuditKind::Answer: return OrderKey::Res_Audit_Answer;
    }
    return {};
}

StringView ReasonKey(TOrderReason reason) {
    switch (reason) {
    case TOrderReason::None: return {};
    case TOrderReason::NotAnOrder: return OrderKey::Res_Reason_NotAnOrder;
    case TOrderReason::NoSide: return OrderKey::Res_Reason_NoSide;
    case TOrderReason::UnknownAccount: return OrderKey::Res_Reason_UnknownAccount;
    case TOrderReason::UnknownSymbol: return OrderKey::Res_Reason_UnknownSymbol;
    case TOrderReason::Quantity: return OrderKey::Res_Reason_Quantity;
    case TOrderReason::Lot: return OrderKey::Res_Reason_Lot;
    case TOrderReason::Price: return OrderKey::Res_Reason_Price;
    case TOrderReason::CrossesZero: return OrderKey::Res_Reason_CrossesZero;
    case TOrderReason::NothingOffered: return OrderKey::Res_Reason_NothingOffered;
    case TOrderReason::ByUser: return OrderKey::Res_Reason_ByUser;
    }
    return {};
}

void TOrderAudit::Add(TOrderAuditEntry entry) {
    entry.Sequence = static_cast<Int64>(FEntries.size()) + 1;
    FEntries.push_back(std::move(entry));
}

void TOrderAudit::Save(const std::filesystem::path& path) const {
    std::filesystem::path fresh = path;
    fresh += ".new";
    std::error_code error;
    std::ofstream file(fresh, std::ios::binary | std::ios::trunc);
    file << Header << LineEnd;
    for (const TOrderAuditEntry& entry : FEntries) file << Line(entry) << LineEnd;
    file.close();
    if (file) {
        std::filesystem::rename(fresh, path, error);
        if (!error) return;
    }
    std::filesystem::remove(fresh, error);
    throw EDataError(path.string(), 0, "cannot be written");
}

} // namespace quorin
