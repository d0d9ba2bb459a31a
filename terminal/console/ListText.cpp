#include "terminal/console/ListText.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "terminal/console/TextWidth.h"

namespace quorin {

namespace {

constexpr Integer PixelsPerColumn = 8;
constexpr StringView UpMark = u"\u25B2";
constexpr StringView DownMark = u"\u25BC";
constexpr StringView EqualMark = u"=";
constexpr StringView NoMark = u" ";

StringView MarkText(std::optional<TPriceChangeState> state) {
    if (!state.has_value()) return NoMark;
    switch (*state) {
    case pcsUp: return UpMark;
    case pcsDown: return DownMark;
    case pcsNone: break;
    }
    return EqualMark;
}

} // namespace

String ListLine(TListForm& list, Integer row) {
    String line;
    TcxGridTableView& view = list.View();
    for (Integer index = 0; index < view.GetColumnCount(); ++index) {
        TcxGridColumn& column = *view.GetColumn(index);
        if (!column.GetVisible()) continue;
        const Integer attribute = column.GetTag();
        const String text = row == HeaderRow ? column.Caption() : view.CellText(row, column);
        if (!line.empty()) line += u' ';
        const TAlign align = list.IsText(attribute) ? TAlign::Left : TAlign::Right;
        line += FitText(text, column.GetWidth() / PixelsPerColumn, align);
        if (!list.HasMarks(attribute)) continue;
        line += u' ';
        line += row == HeaderRow ? NoMark : MarkText(list.Mark(row, attribute));
    }
    return String(TrimRight(line));
}

String Quoted(StringView text) {
    return u"\"" + String(text) + u"\"";
}

String KindText(const Variant& value) {
    switch (value.Kind()) {
    case Variant::TKind::Null: return u"null";
    case Variant::TKind::Whole: return u"whole " + value.ToText();
    case Variant::TKind::LongWhole: return u"long " + value.ToText();
    case Variant::TKind::Real: return u"real " + ShortestText(value.ToDouble());
    case Variant::TKind::Text: return u"text " + Quoted(value.ToText());
    case Variant::TKind::Array: break;
    }
    String text = u"array [";
    for (const Variant& element : value.Elements()) {
        if (text.back() != u'[') text += u", ";
        text += KindText(element);
    }
    return text + u"]";
}

} // namespace quorin
