#pragma once

#include "terminal/desktop/DesktopSession.h"

#include <QElapsedTimer>
#include <QLabel>

namespace quorin {

// The state of the market in one line: exchange and its time, price updates and frames drawn each
// second, and how long ago the latest delivery came.
class TStatusLine : public QLabel {
    Q_OBJECT

public:
    // The session must live longer.
    explicit TStatusLine(TDesktopSession& session, QWidget* parent = nullptr);

    // Once per frame; `paints` counts the frames in which something was drawn.
    void Follow(Int64 paints);

private:
    void Measure(Int64 paints);

    TDesktopSession& FSession;
    QElapsedTimer FSinceMeasured;
    Int64 FMeasuredUpdates = 0;
    Int64 FMeasuredPaints = 0;
    int FFeedRate = 0;  // updates a second
    int FPaintRate = 0; // frames a second
};

} // namespace quorin
