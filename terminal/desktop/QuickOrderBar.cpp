#include "terminal/desktop/QuickOrderBar.h"

#include "terminal/desktop/QtText.h"
#include "terminal/desktop/Theme.h"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace quorin {

namespace {

constexpr int Gap = 4;
constexpr int ButtonHeight = 38; // of two lines
constexpr int SmallestButton = 48;
constexpr int RowWidth = 72;

// In the theme's colours; a button that is off keeps Qt's own.
void ShowSide(QPushButton& button, Integer side) {
    QPalette palette = button.palette();
    if (palette.color(QPalette::Active, QPalette::Button) == SideColor(side)) return;
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::Button, SideColor(side));
        palette.setColor(group, QPalette::ButtonText, SideTextColor());
    }
    button.setPalette(palette);
}

template <class Widget>
void ShowText(Widget& widget, const QString& text) {
    if (widget.text() != text) widget.setText(text);
}

// Where the focus is in a list of Qt's own the column is none of the list's.
Integer AttributeOf(TGridSkin& grid) {
    const TcxViewColumn* column = grid.Model().Column(grid.currentIndex().column());
    return column == nullptr ? PositionAttribute::SymbolCode : column->Tag();
}

} // namespace

bool IsTyping() {
    return qobject_cast<QLineEdit*>(QApplication::focusWidget()) != nullptr;
}

TQuickOrderBar::TQuickOrderBar(TListForm& form, TGridSkin& grid, TOrderDialog& dialog,
                               std::vector<TRowAction> actions, QWidget& pane)
    : QWidget(&pane), FForm(form), FGrid(grid), FActions(form, dialog, std::move(actions)),
      FRow(new QLabel(this)), FOutcome(new QLabel(this)) {
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(Gap, Gap, Gap, Gap);
    layout->setSpacing(Gap);
    FRow->setMinimumWidth(RowWidth);
    layout->addWidget(FRow);
    for (Integer index = 0; index < FActions.Count(); ++index) AddButton(index, *layout, pane);
    layout->addWidget(FOutcome, /*stretch=*/1);
    // The price of another row is shown before its key can be pressed.
    connect(grid.selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
        FActions.Note();
        ShowButtons();
    });
    ShowButtons();
}

void TQuickOrderBar::AddButton(Integer index, QHBoxLayout& layout, QWidget& pane) {
    auto* action = new QAction(&pane);
    action->setShortcut(QKeySequence(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + index)));
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    action->setAutoRepeat(false);
    pane.addAction(action);
    auto* button = new QPushButton(this);
    button->setAutoDefault(false);
    button->setFocusPolicy(Qt::TabFocus); // a click leaves the focus in the list
    button->setFixedHeight(ButtonHeight);
    button->setMinimumWidth(SmallestButton);
    layout.addWidget(button);
    connect(action, &QAction::triggered, this, [this, index] {
        if (!IsTyping()) Take(index);
    });
    connect(button, &QPushButton::clicked, this, [this, index] { Take(index); });
    FKeys.push_back(action);
    FButtons.push_back(button);
}

void TQuickOrderBar::AddKey(Integer action, const QKeySequence& key) {
    QList<QKeySequence> keys = Action(action).shortcuts();
    keys.append(key);
    Action(action).setShortcuts(keys);
}

void TQuickOrderBar::Take(Integer index) {
    FActions.Take(index, AttributeOf(FGrid));
    ShowButtons();
}

void TQuickOrderBar::Follow() {
    FForm.NoteVisible();
    FActions.Note();
    ShowButtons();
}

void TQuickOrderBar::ShowButtons() {
    for (Integer index = 0; index < FActions.Count(); ++index) {
        const QString text = ToQt(FActions.Text(index));
        const QString price = ToQt(FActions.ShownPrice(index));
        ShowText(Action(index), text);
        ShowText(Button(index), price.isEmpty() ? text : text + u'\n' + price);
        const Integer side = FActions.Action(index).Side;
        if (side != NoSide) ShowSide(Button(index), side);
        Button(index).setEnabled(FActions.CanTake(index));
        Button(index).setAccessibleName(price.isEmpty() ? text : text + u' ' + price);
        Button(index).setToolTip(Action(index).shortcut().toString(QKeySequence::NativeText));
    }
    ShowText(*FRow, ToQt(FActions.ShownRow()));
    ShowText(*FOutcome, ToQt(FActions.Outcome()));
}

} // namespace quorin
