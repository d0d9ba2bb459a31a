#pragma once

#include "terminal/desktop/GridSkin.h"
#include "terminal/desktop/Pane.h"
#include "terminal/desktop/ShownLanguage.h"
#include "terminal/forms/AuditForm.h"

#include <filesystem>

class QLabel;
class QPushButton;

namespace quorin {

// Everything that happened to orders, and a button that saves the whole list. New lines stay in
// view as long as the last one was.
class TAuditPane : public TPane {
    Q_OBJECT

public:
    // `desk` must live longer.
    explicit TAuditPane(const TOrderDesk& desk, QWidget* parent = nullptr);
    ~TAuditPane() override;

    TAuditForm& Form() { return FForm; }
    TGridSkin& Grid() { return *FGrid; }
    // Saves the list there and says how that went below it. False when it could not be written.
    bool SaveAs(const std::filesystem::path& path);

    void Follow() override;
    QString Caption() override;
    TShownForm* Shown() override { return &FForm; }
    QAbstractItemView* ItemView() override { return FGrid; }
    QSize sizeHint() const override;
    bool IsAsking() const override { return FIsAsking; }

private:
    void AskAndSave();

    const TOrderDesk& FDesk;
    TAuditForm FForm;
    TGridSkin* FGrid;
    QPushButton* FSave;
    QLabel* FResult;
    TShownLanguage FLanguage;
    bool FIsAsking = false;
};

} // namespace quorin
