#include "platform/export/XlsGlobals.h"

#include <string>

namespace quorin {

namespace {

constexpr StringView SheetName = u"Sheet1";
constexpr StringView FontName = u"Arial";
constexpr unsigned FontHeight = 200; // twentieths of a point
constexpr unsigned NormalWeight = 400;
constexpr unsigned BoldWeight = 700;
constexpr unsigned NormalFont = 0;
constexpr unsigned BoldFont = 1;
constexpr unsigned LastUsualFont = 3; // a workbook has four before its own
constexpr unsigned AutomaticColour = 0x7FFF;

constexpr unsigned GeneralFormat = 0;
constexpr unsigned FirstOwnFormat = 164;
constexpr unsigned Unicode = 1200;
constexpr unsigned Version8 = 0x0600;

void AppendFont(TBytes& bytes, unsigned weight) {
    const TRecord record(bytes, TBiff::Font);
    bytes.U16(FontHeight).U16(0).U16(AutomaticColour).U16(weight).U16(0).Fill(4, 0);
    bytes.U8(static_cast<unsigned>(FontName.size())).U8(0).Units(FontName, /*wide=*/false);
}

void AppendFormat(TBytes& bytes, unsigned number, const std::string& format) {
    const TRecord record(bytes, TBiff::Format);
    bytes.U16(number).U16(static_cast<unsigned>(format.size())).U8(0);
    for (const char unit : format) bytes.U8(static_cast<unsigned char>(unit));
}

struct TXf {
    unsigned Font = NormalFont;
    unsigned Format = GeneralFormat;
    unsigned Indent = 0;
    bool IsBase = false; // a style that cells' ones derive from
};

void AppendXf(TBytes& bytes, const TXf& xf) {
    constexpr unsigned BaseKind = 0xFFF5, CellKind = 0x0001; // locked, with its parent's number
    constexpr unsigned BottomAligned = 0x20, LeftAligned = 0x01;
    constexpr unsigned OwnFormat = 0x04, OwnFont = 0x08, OwnAlignment = 0x10;
    constexpr unsigned PlainPattern = 0x20C0;
    unsigned own = 0;
    if (xf.Format != GeneralFormat) own |= OwnFormat;
    if (xf.Font != NormalFont) own |= OwnFont;
    if (xf.Indent > 0) own |= OwnAlignment;
    const TRecord record(bytes, TBiff::Xf);
    bytes.U16(xf.Font).U16(xf.Format).U16(xf.IsBase ? BaseKind : CellKind);
    bytes.U8(BottomAligned | (xf.Indent > 0 ? LeftAligned : 0)).U8(0).U8(xf.Indent).U8(own);
    bytes.U32(0).U32(0).U16(PlainPattern); // no borders
}

// The formats that the styles need, each once, and behind them what refers to them by number.
void AppendFormatsAndStyles(TBytes& bytes, const std::vector<TCellStyle>& styles) {
    std::vector<TXf> xfs(DefaultXf, TXf{NormalFont, GeneralFormat, 0, /*IsBase=*/true});
    xfs.push_back({});
    std::vector<TNumberShape> formats;
    for (const TCellStyle& style : styles) {
        TXf xf;
        xf.Font = style.IsCaption ? BoldFont : NormalFont;
        xf.Indent = static_cast<unsigned>(style.Indent);
        if (style.Kind == TCellKind::Number) {
            std::size_t place = 0;
            while (place < formats.size() && formats[place] != style.Shape) ++place;
            xf.Format = FirstOwnFormat + static_cast<unsigned>(place);
            if (place == formats.size()) {
                formats.push_back(style.Shape);
                AppendFormat(bytes, xf.Format, NumberFormat(style.Shape));
            }
        }
        xfs.push_back(xf);
    }
    for (const TXf& xf : xfs) AppendXf(bytes, xf);

    constexpr unsigned BuiltIn = 0x8000, Normal = 0, NoLevel = 0xFF;
    const TRecord record(bytes, TBiff::Style);
    bytes.U16(BuiltIn).U8(Normal).U8(NoLevel);
}

void AppendWindow(TBytes& bytes) {
    constexpr unsigned ScrollBarsAndTabs = 0x0038, TabRatio = 600;
    constexpr unsigned Width = 0x3A5C, Height = 0x23BE;
    const TRecord record(bytes, TBiff::Window1);
    bytes.U16(0).U16(0).U16(Width).U16(Height).U16(ScrollBarsAndTabs);
    bytes.U16(0).U16(0).U16(1).U16(TabRatio); // the one sheet is active, first and selected
}

void AppendU16Record(TBytes& bytes, TBiff number, unsigned value) {
    const TRecord record(bytes, number);
    bytes.U16(value);
}

// Where in the bytes the sheet's place has to be put in.
std::size_t AppendBoundSheet(TBytes& bytes) {
    const TRecord record(bytes, TBiff::BoundSheet);
    const std::size_t place = bytes.Size();
    bytes.U32(0).U16(0); // a visible worksheet
    bytes.U8(static_cast<unsigned>(SheetName.size())).U8(0).Units(SheetName, /*wide=*/false);
    return place;
}

} // namespace

void AppendBof(TBytes& bytes, TSubstream kind) {
    constexpr unsigned Build = 0x0DBB, Year = 0x07CC;
    const TRecord record(bytes, TBiff::Bof);
    bytes.U16(Version8).U16(static_cast<unsigned>(kind)).U16(Build).U16(Year);
    bytes.U32(0).U32(Version8 >> 8);
}

void AppendEof(TBytes& bytes) {
    const TRecord record(bytes, TBiff::Eof);
}

TBytes XlsGlobals(const std::vector<TCellStyle>& styles, const TSharedStrings& texts) {
    TBytes bytes;
    AppendBof(bytes, TSubstream::Globals);
    AppendU16Record(bytes, TBiff::CodePage, Unicode);
    AppendWindow(bytes);
    AppendU16Record(bytes, TBiff::DateMode, 0);
    for (unsigned font = 0; font <= LastUsualFont; ++font) {
        AppendFont(bytes, font == BoldFont ? BoldWeight : NormalWeight);
    }
    AppendFormatsAndStyles(bytes, styles);
    const std::size_t sheetPlace = AppendBoundSheet(bytes);
    texts.WriteTo(bytes);
    AppendEof(bytes);
    bytes.PatchU32(sheetPlace, static_cast<std::uint32_t>(bytes.Size()));
    return bytes;
}

unsigned XfOfStyle(Integer style) {
    return DefaultXf + 1 + static_cast<unsigned>(style);
}

} // namespace quorin
