#include "terminal/console/AuditText.h"

#include "embedded/ReplayFile.h"
#include "platform/rtl/Numbers.h"
#include "terminal/console/FrameText.h"
#include "terminal/console/TextWidth.h"
#include "terminal/forms/AuditForm.h"
#include "terminal/forms/OrderText.h"
#include "viewdata/frame/ServiceTexts.h"

namespace quorin {

namespace {

constexpr Integer NumberWidth = 4;
constexpr Integer KindWidth = 12;
constexpr StringView OrderMark = u"#";
constexpr StringView PriceMark = u" @ ";
constexpr StringView ReasonMark = u": ";

} // namespace

String AuditLine(const TOrderAuditEntry& entry, const TOrderDesk& desk) {
    const Double seconds =
        static_cast<Double>(entry.TimeNanos) / static_cast<Double>(NanosPerSecond);
    String line = FitText(IntegerToText(entry.Sequence), NumberWidth, TAlign::Right);
    const auto append = [&line](StringView text) {
        line += u' ';
        line += text;
    };
    append(ClockText(seconds));
    append(FitText(InterfaceText(AuditKey(entry.Kind)), KindWidth));
    if (entry.OrderNumber > 0) append(String(OrderMark) + IntegerToText(entry.OrderNumber));
    if (!entry.Symbol.empty()) {
        append(entry.Account);
        append(SideText(entry.BuySell));
        append(QuantityText(entry.Quantity, entry.Symbol));
        append(entry.Symbol);
        line += String(PriceMark) + AuditPriceText(entry, desk);
    }
    if (entry.Reason != TOrderReason::None) line += String(ReasonMark) + ReasonText(entry.Reason);
    if (!entry.Text.empty()) append(entry.Text);
    return line;
}

} // namespace quorin
