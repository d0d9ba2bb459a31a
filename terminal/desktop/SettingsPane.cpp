#include "terminal/desktop/SettingsPane.h"

#include "embedded/ConfigService.h"
#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "terminal/desktop/QtText.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace quorin {

namespace {

constexpr int ProductsOwn = -1; // the place below 0 of a number that is not set
constexpr int Margin = 8;
constexpr int UsualHeight = 480;
constexpr Char ResetSign = u'\u21BA';

enum TColumn : int { LabelColumn, EditorColumn, ResetColumn };

bool IsFlag(const TSetting& setting) {
    return setting.Kind == TSettingKind::Flag || setting.Kind == TSettingKind::FlagUnlessNo;
}

String NumberText(int value) {
    return value == ProductsOwn ? String() : IntegerToText(value);
}

} // namespace

TSettingsPane::TSettingsPane(TEmbeddedConfigManager& config, QWidget* parent)
    : TPane(TPaneKind::Settings, parent), FConfig(config), FArea(new QScrollArea(this)),
      FResetAll(new QPushButton(this)) {
    auto* content = new QWidget;
    auto* groups = new QVBoxLayout(content);
    groups->setContentsMargins(Margin, Margin, Margin, Margin);
    for (const TSettingGroup group : SettingGroups) groups->addWidget(MakeGroup(group));
    groups->addStretch();
    FArea->setWidgetResizable(true);
    FArea->setFrameShape(QFrame::NoFrame);
    FArea->setFocusPolicy(Qt::NoFocus);
    FArea->setWidget(content);
    auto* line = new QHBoxLayout;
    line->setContentsMargins(Margin, 0, Margin, Margin);
    line->addStretch();
    line->addWidget(FResetAll);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(FArea);
    layout->addLayout(line);
    FResetAll->setAutoDefault(false);
    connect(FResetAll, &QPushButton::clicked, this, [this] { ResetSettings(FConfig); });
    FConfig.RegisterConfigCallback(MakeEvent<&TSettingsPane::ConfigChanged>(this), &FOwner);
    Follow();
}

TSettingsPane::~TSettingsPane() {
    FConfig.RemoveConfigCallback(&FOwner);
}

QWidget* TSettingsPane::MakeGroup(TSettingGroup group) {
    auto* box = new QGroupBox;
    auto* grid = new QGridLayout(box);
    grid->setColumnStretch(LabelColumn, 1);
    int line = 0;
    for (const TSetting& setting : Settings()) {
        if (setting.Group != group) continue;
        const TRow row = MakeRow(setting, box);
        if (row.Label == nullptr) {
            grid->addWidget(row.Editor, line, LabelColumn, 1, 2);
        } else {
            grid->addWidget(row.Label, line, LabelColumn);
            grid->addWidget(row.Editor, line, EditorColumn);
        }
        grid->addWidget(row.Reset, line++, ResetColumn);
        FRows.push_back(row);
    }
    FGroups.push_back(box);
    return box;
}

TSettingsPane::TRow TSettingsPane::MakeRow(const TSetting& setting, QWidget* parent) {
    TRow row{&setting, nullptr, MakeEditor(setting, parent), new QToolButton(parent)};
    if (!IsFlag(setting)) {
        row.Label = new QLabel(parent);
        row.Label->setBuddy(row.Editor);
    }
    row.Reset->setText(QString(QChar(ResetSign)));
    row.Reset->setAutoRaise(true);
    connect(row.Reset, &QToolButton::clicked, this,
            [this, &setting] { ResetSetting(FConfig, setting); });
    return row;
}

// The wheel scrolls the pane, unless the person is in the field.
QWidget* TSettingsPane::MakeEditor(const TSetting& setting, QWidget* parent) {
    switch (setting.Kind) {
    case TSettingKind::Flag:
    case TSettingKind::FlagUnlessNo: {
        auto* box = new QCheckBox(parent);
        connect(box, &QCheckBox::clicked, this,
                [this, &setting](bool on) { TurnSetting(FConfig, setting, on); });
        return box;
    }
    case TSettingKind::Choice: {
        auto* box = new QComboBox(parent);
        box->setFocusPolicy(Qt::StrongFocus);
        box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
        for (std::size_t index = 0; index < setting.Choices.size(); ++index) box->addItem({});
        connect(box, &QComboBox::activated, this, [this, &setting](int index) {
            ChangeSetting(FConfig, setting, setting.Choices[static_cast<std::size_t>(index)].Value);
        });
        return box;
    }
    case TSettingKind::Number: {
        auto* box = new QSpinBox(parent);
        box->setFocusPolicy(Qt::StrongFocus);
        box->setRange(ProductsOwn, setting.Highest);
        box->setKeyboardTracking(false);
        connect(box, &QSpinBox::valueChanged, this, [this, &setting](int value) {
            ChangeSetting(FConfig, setting, NumberText(value));
        });
        return box;
    }
    case TSettingKind::Text: break;
    }
    auto* edit = new QLineEdit(parent);
    connect(edit, &QLineEdit::editingFinished, this, [this, &setting, edit] {
        edit->setModified(false);
        ChangeSetting(FConfig, setting, Trim(FromQt(edit->text())));
        FIsStale = true;
    });
    return edit;
}

const TSettingsPane::TRow* TSettingsPane::RowOf(StringView key) const {
    const auto found = std::find_if(FRows.begin(), FRows.end(),
                                    [key](const TRow& row) { return row.Setting->Key == key; });
    return found == FRows.end() ? nullptr : &*found;
}

QWidget* TSettingsPane::Editor(StringView key) {
    const TRow* row = RowOf(key);
    return row == nullptr ? nullptr : row->Editor;
}

QToolButton* TSettingsPane::ResetButton(StringView key) {
    const TRow* row = RowOf(key);
    return row == nullptr ? nullptr : row->Reset;
}

void TSettingsPane::ConfigChanged(Pointer, Pointer) {
    FIsStale = true;
}

void TSettingsPane::Follow() {
    if (FLanguage.TakeChange()) ShowTexts();
    if (!FIsStale) return;
    FIsStale = false;
    for (const TRow& row : FRows) ShowValue(row);
}

void TSettingsPane::ShowTexts() {
    setAccessibleName(Caption());
    for (std::size_t group = 0; group < FGroups.size(); ++group) {
        FGroups[group]->setTitle(ToQt(SettingGroupCaption(SettingGroups[group])));
    }
    for (const TRow& row : FRows) ShowTexts(row);
    FResetAll->setText(ToQt(InterfaceText(TerminalKey::Res_DefaultAll)));
    FResetAll->setAccessibleName(FResetAll->text());
    // The texts decide how wide it is.
    FArea->setMinimumWidth(FArea->widget()->minimumSizeHint().width() +
                           FArea->verticalScrollBar()->sizeHint().width());
}

void TSettingsPane::ShowTexts(const TRow& row) {
    const TSetting& setting = *row.Setting;
    const String caption = SettingCaption(setting);
    const QString hint = ToQt(SettingHint(setting));
    row.Editor->setAccessibleName(ToQt(caption));
    row.Editor->setAccessibleDescription(hint);
    row.Editor->setToolTip(hint);
    row.Reset->setToolTip(ToQt(FormatText(InterfaceText(TerminalKey::Res_DefaultOf), {caption})));
    row.Reset->setAccessibleName(row.Reset->toolTip());
    if (row.Label != nullptr) {
        row.Label->setText(ToQt(caption));
        row.Label->setToolTip(hint);
    }
    if (auto* box = qobject_cast<QCheckBox*>(row.Editor)) box->setText(ToQt(caption));
    if (auto* box = qobject_cast<QComboBox*>(row.Editor)) {
        for (int index = 0; index < box->count(); ++index) {
            const TSettingChoice& choice = setting.Choices[static_cast<std::size_t>(index)];
            box->setItemText(index, ToQt(SettingChoiceCaption(choice)));
        }
    }
    if (auto* box = qobject_cast<QSpinBox*>(row.Editor)) {
        const QSignalBlocker blocker(box);
        box->setSpecialValueText(ToQt(InterfaceText(TerminalKey::Res_Default)));
    }
}

void TSettingsPane::ShowValue(const TRow& row) {
    const TSetting& setting = *row.Setting;
    const QSignalBlocker blocker(row.Editor);
    const String text = SettingText(setting);
    row.Reset->setEnabled(!IsSettingDefault(setting));
    switch (setting.Kind) {
    case TSettingKind::Flag:
    case TSettingKind::FlagUnlessNo:
        static_cast<QCheckBox*>(row.Editor)->setChecked(IsSettingOn(setting));
        return;
    case TSettingKind::Choice:
        static_cast<QComboBox*>(row.Editor)->setCurrentIndex(SettingChoice(setting));
        return;
    case TSettingKind::Number: {
        auto* box = static_cast<QSpinBox*>(row.Editor);
        const int value = ToIntegerOr(text, ProductsOwn);
        if (box->value() != value) box->setValue(value);
        return;
    }
    case TSettingKind::Text: {
        auto* edit = static_cast<QLineEdit*>(row.Editor);
        if (!edit->isModified() && edit->text() != ToQt(text)) edit->setText(ToQt(text));
        return;
    }
    }
}

QString TSettingsPane::Caption() {
    return ToQt(InterfaceText(TerminalKey::Res_Settings));
}

QSize TSettingsPane::sizeHint() const {
    return {QWidget::sizeHint().width(), UsualHeight};
}

} // namespace quorin
