#include "terminal/desktop/Theme.h"

#include "viewdata/services/ClientOrder.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPalette>
#include <QStyleFactory>

namespace quorin {

namespace {

constexpr const char* StyleName = "Fusion";
constexpr int FontPixels = 13;
constexpr Double StrongestFlash = 0.35; // of the colour
// The first that is there writes Latin text and figures, the others what it lacks. All have figures
// of equal width.
constexpr const char* Families[] = {
    "DejaVu Sans",         "Noto Sans",         "Noto Sans CJK HK",   "Noto Sans CJK SC",
    "WenQuanYi Micro Hei", "WenQuanYi Zen Hei", "Droid Sans Fallback"};

struct TColors {
    QColor Window, Base, Alternate, Text, Quiet, Button, Highlight, HighlightedText, Line;
    QColor Up, Down, Buy, Sell, SideText;
};

const TColors LightColors = {
    0xF3F4F6, 0xFFFFFF, 0xF7F8FA, 0x1B1F24, 0x5B6470, 0xE9EBEE, 0xCFE2FA,
    0x10151B, 0xC3C8CF, 0x0A7A3E, 0xB3261E, 0x0A7A3E, 0xB3261E, 0xFFFFFF,
};
const TColors DarkColors = {
    0x1B1F26, 0x14171C, 0x191D23, 0xE4E7EB, 0x9AA3AF, 0x2A3038, 0x2C4A70,
    0xFFFFFF, 0x3A414B, 0x4CC38A, 0xFF7B72, 0x1D7A4F, 0xB03A33, 0xFFFFFF,
};

TTheme Current = TTheme::Light;

const TColors& Colors() {
    return Current == TTheme::Dark ? DarkColors : LightColors;
}

QPalette PaletteOf(const TColors& colors) {
    QPalette palette;
    palette.setColor(QPalette::Window, colors.Window);
    palette.setColor(QPalette::WindowText, colors.Text);
    palette.setColor(QPalette::Base, colors.Base);
    palette.setColor(QPalette::AlternateBase, colors.Alternate);
    palette.setColor(QPalette::Text, colors.Text);
    palette.setColor(QPalette::PlaceholderText, colors.Quiet);
    palette.setColor(QPalette::Button, colors.Button);
    palette.setColor(QPalette::ButtonText, colors.Text);
    palette.setColor(QPalette::Highlight, colors.Highlight);
    palette.setColor(QPalette::HighlightedText, colors.HighlightedText);
    palette.setColor(QPalette::ToolTipBase, colors.Alternate);
    palette.setColor(QPalette::ToolTipText, colors.Text);
    palette.setColor(QPalette::Mid, colors.Line);
    palette.setColor(QPalette::Dark, colors.Line);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, colors.Quiet);
    }
    return palette;
}

bool HasEvenFigures(const QFont& font) {
    const QFontMetricsF metrics(font);
    const qreal width = metrics.horizontalAdvance(u'0');
    for (char16_t figure = u'1'; figure <= u'9'; ++figure) {
        if (metrics.horizontalAdvance(figure) != width) return false;
    }
    return true;
}

QFont TerminalFont() {
    const QStringList installed = QFontDatabase::families();
    QStringList families;
    for (const char* family : Families) {
        if (installed.contains(QLatin1String(family))) families << QLatin1String(family);
    }
    QFont font;
    if (!families.isEmpty()) font.setFamilies(families);
    font.setPixelSize(FontPixels);
    if (!HasEvenFigures(font)) {
        font.setFamilies(QFontDatabase::systemFont(QFontDatabase::FixedFont).families() + families);
    }
    return font;
}

} // namespace

void ApplyTheme(QApplication& application, TTheme theme) {
    Current = theme;
    application.setStyle(QStyleFactory::create(QLatin1String(StyleName)));
    application.setPalette(PaletteOf(Colors()));
    application.setFont(TerminalFont());
}

TTheme CurrentTheme() {
    return Current;
}

QColor MoveColor(TPriceChangeState state) {
    switch (state) {
    case pcsUp: return Colors().Up;
    case pcsDown: return Colors().Down;
    case pcsNone: break;
    }
    return {};
}

QColor FlashColor(TPriceChangeState state, Double strength) {
    QColor color = MoveColor(state);
    color.setAlphaF(static_cast<float>(strength * StrongestFlash));
    return color;
}

QColor QuietTextColor() {
    return Colors().Quiet;
}

QColor SideColor(Integer side) {
    return side == OrderSide::Buy ? Colors().Buy : Colors().Sell;
}

QColor SideTextColor() {
    return Colors().SideText;
}

QColor GroupColor(Integer group) {
    constexpr Integer first = 1;
    return group == first ? QColor(0x1f, 0x6f, 0xb5) : QColor(0x8a, 0x4b, 0xa8);
}

QString MoveMark(TPriceChangeState state) {
    switch (state) {
    case pcsUp: return QStringLiteral("\u25B2");
    case pcsDown: return QStringLiteral("\u25BC");
    case pcsNone: break;
    }
    return QStringLiteral("=");
}

QString PartialMark() {
    return QStringLiteral("\u26A0");
}

QString MoveWord(TPriceChangeState state) {
    switch (state) {
    case pcsUp: return QStringLiteral("up");
    case pcsDown: return QStringLiteral("down");
    case pcsNone: break;
    }
    return QStringLiteral("unchanged");
}

} // namespace quorin
