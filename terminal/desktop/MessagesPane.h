#pragma once

#include "terminal/desktop/GridSkin.h"
#include "terminal/desktop/Pane.h"
#include "terminal/desktop/ShownLanguage.h"
#include "terminal/forms/MessageListForm.h"

namespace quorin {

// What the program logged, showed and asked. New lines stay in view as long as the last one was.
class TMessagesPane : public TPane {
    Q_OBJECT

public:
    // `log` must live longer.
    explicit TMessagesPane(const TMessageLog& log, QWidget* parent = nullptr);
    ~TMessagesPane() override;

    TMessageListForm& Form() { return FForm; }
    TGridSkin& Grid() { return *FGrid; }

    void Follow() override;
    QString Caption() override;
    TShownForm* Shown() override { return &FForm; }
    QAbstractItemView* ItemView() override { return FGrid; }
    QSize sizeHint() const override;

private:
    TMessageListForm FForm;
    TGridSkin* FGrid;
    TShownLanguage FLanguage;
};

// Draws a list whose newest row is its last: it stays in view if it was.
void FollowTail(TGrowingListForm& form, TGridSkin& grid);

} // namespace quorin
