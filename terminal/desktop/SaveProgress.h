#pragma once

#include "platform/export/ViewExportLinks.h"

#include <QPointer>
#include <QProgressDialog>

namespace quorin {

// Shows how far an export is once it takes a while, and lets the person break it off.
class TSaveProgress {
public:
    // Is told by `links` for as long as it lives; they must live longer.
    explicit TSaveProgress(TViewExportLinks& links);
    TSaveProgress(const TSaveProgress&) = delete;
    TSaveProgress& operator=(const TSaveProgress&) = delete;
    ~TSaveProgress();

    // The window that it stands before; nil to begin with.
    void SetWindow(QWidget* window) { FWindow = window; }
    // How long an export takes before it is shown.
    void SetPatience(int milliseconds) { FPatience = milliseconds; }

private:
    Boolean Told(Integer done, Integer all);
    void Ended();

    TViewExportLinks& FLinks;
    QWidget* FWindow = nullptr;
    int FPatience = 400;               // milliseconds
    QPointer<QProgressDialog> FDialog; // of the export that runs
};

} // namespace quorin
