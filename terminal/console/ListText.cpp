#include "terminal/console/ListText.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "terminal/console/TextWidth.h"

namespace quorin {

namespace {

constexpr Integer PixelsPerColumn = 8;
constexpr Integer IndentPerLevel = 2;
constexpr StringView UpMark = u"\u25B2";
constexpr StringView DownMark = u"\u25BC";
constexpr StringView EqualMark = u"=";
constexpr StringView NoMark = u" ";

String Indent(Integer depth) {
    return String(static_cast<std::size_t>(depth * IndentPerLevel), u' ');
}

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

String ListLine(TShownForm& form, Integer row) {
    String line;
    for (Integer index = 0; index < form.ColumnCount(); ++index) {
        const TcxViewColumn& column = form.Column(index);
        if (!column.GetVisible()) continue;
        const Integer attribute = column.Tag();
        String text = row == HeaderRow ? column.Caption() : form.CellText(row, index);
        if (!line.empty()) {
            line += u' ';
        } else if (row != HeaderRow) {
            text = Indent(form.Depth(row)) + text;
        }
        const TAlign align = form.IsText(attribute) ? TAlign::Left : TAlign::Right;
        line += FitText(text, column.GetWidth() / PixelsPerColumn, align);
        if (!form.HasMarks(attribute)) continue;
        line += u' ';
        line += row == HeaderRow ? NoMark : MarkText(form.Mark(row, attribute));
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
