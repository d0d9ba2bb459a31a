#pragma once

#include "platform/rtl/TObject.h"
#include "terminal/desktop/Pane.h"
#include "terminal/desktop/ShownLanguage.h"
#include "terminal/forms/SettingsTable.h"

#include <vector>

class QGroupBox;
class QLabel;
class QPushButton;
class QScrollArea;
class QToolButton;

namespace quorin {

class TEmbeddedConfigManager;

// Every setting that a person may change, each applied as soon as it is changed. Shows what is in
// force, whoever changed it; a number or a text that is being typed is left alone until it is
// finished.
class TSettingsPane : public TPane {
    Q_OBJECT

public:
    // `config` must live longer.
    explicit TSettingsPane(TEmbeddedConfigManager& config, QWidget* parent = nullptr);
    ~TSettingsPane() override;

    // What a setting is changed with: a check box, a combo box, a spin box or a line edit. Nil for
    // a key that is not shown. And the button that takes it back to its default.
    QWidget* Editor(StringView key);
    QToolButton* ResetButton(StringView key);
    QPushButton& ResetAllButton() { return *FResetAll; }

    void Follow() override;
    QString Caption() override;
    QSize sizeHint() const override;

private:
    struct TRow {
        const TSetting* Setting;
        QLabel* Label; // nil for a check box, which has its own
        QWidget* Editor;
        QToolButton* Reset;
    };

    QWidget* MakeGroup(TSettingGroup group);
    TRow MakeRow(const TSetting& setting, QWidget* parent);
    QWidget* MakeEditor(const TSetting& setting, QWidget* parent);
    const TRow* RowOf(StringView key) const;
    void ShowTexts();
    void ShowTexts(const TRow& row);
    void ShowValue(const TRow& row);
    void ConfigChanged(Pointer Sender, Pointer Data);

    TEmbeddedConfigManager& FConfig;
    TObject FOwner; // of the registration
    std::vector<TRow> FRows;
    std::vector<QGroupBox*> FGroups; // as SettingGroups
    QScrollArea* FArea;
    QPushButton* FResetAll;
    TShownLanguage FLanguage;
    bool FIsStale = true; // settings have changed since they were shown
};

} // namespace quorin
