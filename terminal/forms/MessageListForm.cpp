#include "terminal/forms/MessageListForm.h"

#include "embedded/TimeText.h"
#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

namespace quorin {

namespace {

namespace A = MessageAttribute;

constexpr TFormColumn Columns[] = {
    {A::Number, TerminalKey::Res_OrderNumber, 56, u"Number", false},
    {A::Time, TerminalKey::Res_Time, 72, u"Time", false},
    {A::Kind, TerminalKey::Res_Kind, 88, u"Kind", false},
    {A::Level, TerminalKey::Res_Level, 56, u"Level", false},
    {A::Text, TerminalKey::Res_Text, 480, u"Text", false},
};

constexpr StringView LineGap = u"; ";

} // namespace

TMessageControl::TMessageControl(TComponent* AOwner, const TMessageLog& log)
    : TGrowingControl(AOwner, Columns), FLog(log) {}

std::optional<Variant> TMessageControl::CellNumber(Integer record, Integer attribute) const {
    const TMessageEntry& entry = FLog[record];
    switch (attribute) {
    case A::Number: return entry.Number;
    case A::Level:
        return entry.Kind == TMessageKind::Log ? Variant(Integer{entry.Level}) : Variant();
    default: return {};
    }
}

String TMessageControl::CellText(Integer record, Integer attribute) const {
    const TMessageEntry& entry = FLog[record];
    switch (attribute) {
    case A::Time: {
        String time;
        AppendTimeOfDay(time, entry.TimeNanos / NanosPerSecond);
        return time;
    }
    case A::Kind: return InterfaceText(MessageKindKey(entry.Kind));
    case A::Text: return ReplaceAll(entry.Text, u"\n", LineGap);
    default: {
        const Variant number = CellNumber(record, attribute).value_or(Variant());
        return number.IsNull() ? String() : number.ToText();
    }
    }
}

TFormView TMessageListForm::FormView() {
    TFormView view = Inherited::FormView();
    view.ReservedColumns = {A::Text};
    return view;
}

bool TMessageListForm::IsText(Integer attribute) const {
    return attribute == A::Time || attribute == A::Kind || attribute == A::Text;
}

String TMessageListForm::Title() {
    return InterfaceText(TerminalKey::Res_Messages);
}

} // namespace quorin
