#pragma once

#include "terminal/desktop/CellFlashes.h"
#include "terminal/desktop/ViewAccess.h"
#include "terminal/forms/ShownForm.h"

#include <QAbstractTableModel>

#include <memory>

namespace quorin {

// A headless grid or tree list as a table of Qt: rows in view order, the visible columns. Holds
// nothing of what it shows but how many rows and columns Qt was told of; captions and cells are
// asked for when they are drawn.
class TViewModel : public QAbstractTableModel {
    Q_OBJECT

public:
    // The state of a move, as an Integer, in cells that have a mark.
    static constexpr int MarkRole = Qt::UserRole + 1;
    // Whether cells of the column have a mark behind their text.
    static constexpr int HasMarksRole = Qt::UserRole + 2;

    // The state of a flash as an Integer, and how strong it still is, from 1 down; nothing without.
    static constexpr int FlashRole = Qt::UserRole + 3;
    static constexpr int FlashStrengthRole = Qt::UserRole + 4;
    // Whether what the cell shows has become old.
    static constexpr int OldRole = Qt::UserRole + 5;
    // Whether the cell is a total that leaves something out.
    static constexpr int PartialRole = Qt::UserRole + 6;

    // `form` knows which columns are text and which have marks; nil where all are text. It and what
    // `view` gives access to must live longer.
    explicit TViewModel(std::unique_ptr<TViewAccess> view, TShownForm* form = nullptr,
                        QObject* parent = nullptr);

    TViewAccess& View() { return *FView; }
    // The headless column of one of Qt's; nil outside.
    TcxViewColumn* Column(int section) const;

    TCellFlashes& Flashes() { return FFlashes; }
    // Since when the feed has stopped, in words; empty while it has not.
    const QString& OldSince() const { return FOldSince; }
    void SetOldSince(const QString& since) { FOldSince = since; }

    // Tells Qt of rows and columns that have come or gone since it was told last. True when there
    // were any.
    bool FollowSize();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    int ViewColumnCount() const;
    StringView PartialReason(int row, const TcxViewColumn& column) const;
    QVariant Description(int row, const TcxViewColumn& column) const;
    bool HasMarks(const TcxViewColumn& column) const;
    Qt::Alignment AlignmentOf(const TcxViewColumn& column) const;

    std::unique_ptr<TViewAccess> FView;
    TShownForm* FForm;
    TCellFlashes FFlashes;
    QString FOldSince;
    int FToldRows = 0;
    int FToldColumns = 0;
};

} // namespace quorin
