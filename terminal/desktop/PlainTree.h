#pragma once

#include "terminal/forms/TreeForm.h"

#include <QAbstractTableModel>
#include <QTableView>

namespace quorin {

// The rows of a tree that are on show, as a table of Qt. Holds nothing of what it shows but how
// many rows and columns Qt was told of.
class TPlainTreeModel : public QAbstractTableModel {
    Q_OBJECT

public:
    // `form` must live longer.
    explicit TPlainTreeModel(TTreeForm& form, QObject* parent = nullptr);

    // The headless column of one of Qt's; nil outside.
    TcxTreeListColumn* Column(int section) const;
    void FollowSize();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    int ViewColumnCount() const;
    Qt::Alignment AlignmentOf(const TcxTreeListColumn& column) const;

    TTreeForm& FForm;
    int FToldRows = 0;
    int FToldColumns = 0;
};

// A headless tree on the screen. A click on the sign before a row, or Left and Right, close and
// open it. Draws only in Follow.
class TPlainTree : public QTableView {
    Q_OBJECT

public:
    explicit TPlainTree(TTreeForm& form, QWidget* parent = nullptr);

    // To be called once per frame: repaints when the headless tree asks for it.
    void Follow();
    // The place of the sign that opens or closes the row.
    QRect SignRect(int row) const;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private:
    void FollowColumns();
    void SetExpanded(int row, bool expanded);

    TTreeForm& FForm;
    TPlainTreeModel FModel;
    bool FIsFollowing = false; // what Qt tells now comes from the headless tree itself
};

} // namespace quorin
