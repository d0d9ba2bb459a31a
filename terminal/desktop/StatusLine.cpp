#include "terminal/desktop/StatusLine.h"

#include "terminal/desktop/QtText.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

namespace quorin {

namespace {

constexpr Int64 MeasureInterval = 1000; // milliseconds
constexpr Double MillisecondsPerSecond = 1000.0;
constexpr const char* Gap = "   ";

QString Figure(StringView key, const QString& value) {
    return QLatin1String(Gap) + ToQt(FormatText(InterfaceText(key), {FromQt(value)}));
}

} // namespace

TStatusLine::TStatusLine(TDesktopSession& session, QWidget* parent)
    : QLabel(parent), FSession(session), FMeasuredUpdates(session.Updates()) {
    FSinceMeasured.start();
}

void TStatusLine::Measure(Int64 paints) {
    const Int64 elapsed = FSinceMeasured.elapsed();
    if (elapsed < MeasureInterval) return;
    const auto rate = [elapsed](Int64 count) {
        return static_cast<int>(static_cast<Double>(count) * MillisecondsPerSecond /
                                static_cast<Double>(elapsed));
    };
    FFeedRate = rate(FSession.Updates() - FMeasuredUpdates);
    FPaintRate = rate(paints - FMeasuredPaints);
    FMeasuredUpdates = FSession.Updates();
    FMeasuredPaints = paints;
    FSinceMeasured.restart();
}

void TStatusLine::Follow(Int64 paints) {
    Measure(paints);
    const QString text =
        ToQt(FSession.Exchange()) + QLatin1String(Gap) + ToQt(FSession.Clock()) +
        QLatin1String(Gap) + u'#' + QString::number(FSession.Deliveries()) +
        Figure(TerminalKey::Res_StatusFeed, QString::number(FFeedRate)) +
        Figure(TerminalKey::Res_StatusPaint, QString::number(FPaintRate)) +
        Figure(TerminalKey::Res_StatusAge, QString::number(FSession.DeliveryAge(), 'f', 1));
    if (this->text() != text) setText(text);
}

} // namespace quorin
