#include "terminal/desktop/KeysDialog.h"

#include "terminal/desktop/PaneKinds.h"
#include "terminal/desktop/QtText.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPointer>
#include <QPushButton>
#include <QSet>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace quorin {

namespace {

constexpr int DialogWidth = 460;
constexpr int DialogHeight = 520;
constexpr QChar MnemonicMark = u'&';

const TPane* PaneOf(const QWidget* widget) {
    while (widget != nullptr) {
        if (const auto* pane = qobject_cast<const TPane*>(widget)) return pane;
        widget = widget->parentWidget();
    }
    return nullptr;
}

TKeyEntry EntryOf(const QAction& action, const QString& form) {
    TKeyEntry entry{form, action.text().remove(MnemonicMark), {}};
    for (const QKeySequence& key : action.shortcuts()) {
        entry.Keys.append(key.toString(QKeySequence::NativeText));
    }
    return entry;
}

} // namespace

QList<TKeyEntry> KeysOf(QWidget& window) {
    QList<TKeyEntry> entries;
    QSet<const QAction*> seen;
    QSet<QString> listed;
    QList<QWidget*> widgets = window.findChildren<QWidget*>();
    widgets.prepend(&window);
    for (const QWidget* widget : widgets) {
        const TPane* pane = PaneOf(widget);
        const QString form =
            pane == nullptr ? QString() : ToQt(InterfaceText(PaneKindInfo(pane->Kind()).NameKey));
        for (const QAction* action : widget->actions()) {
            if (action->shortcuts().isEmpty() || seen.contains(action)) continue;
            seen.insert(action);
            const TKeyEntry entry = EntryOf(*action, form);
            const QString line = form + u'\n' + entry.Action + u'\n' + entry.Keys.join(u'\n');
            if (!entry.Action.isEmpty() && !listed.contains(line)) entries.append(entry);
            listed.insert(line);
        }
    }
    std::stable_sort(entries.begin(), entries.end(), [](const TKeyEntry& a, const TKeyEntry& b) {
        return a.Form < b.Form; // the window's own have no form and come first
    });
    return entries;
}

TKeysDialog::TKeysDialog(QWidget& window) : QDialog(&window) {
    setWindowTitle(ToQt(InterfaceText(TerminalKey::Res_Keys)));
    auto* tree = new QTreeWidget(this);
    tree->setAccessibleName(windowTitle());
    tree->setHeaderLabels(
        {ToQt(InterfaceText(TerminalKey::Res_Action)), ToQt(InterfaceText(TerminalKey::Res_Key))});
    tree->setRootIsDecorated(false);
    QTreeWidgetItem* group = nullptr;
    for (const TKeyEntry& entry : KeysOf(window)) {
        const QString form = entry.Form.isEmpty() ? window.windowTitle() : entry.Form;
        if (group == nullptr || group->text(0) != form) {
            group = new QTreeWidgetItem(tree, {form});
        }
        new QTreeWidgetItem(group, {entry.Action, entry.Keys.join(QStringLiteral(", "))});
    }
    tree->expandAll();
    tree->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    tree->header()->setStretchLastSection(false);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(ToQt(InterfaceText(ResourceKey::Res_OK_Btn)), QDialogButtonBox::AcceptRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tree);
    layout->addWidget(buttons);
    resize(DialogWidth, DialogHeight);
}

void TKeysDialog::Open(QWidget& window) {
    const QPointer<TKeysDialog> dialog = new TKeysDialog(window);
    dialog->exec();
    delete dialog;
}

QList<QKeySequence> TKeysDialog::Shortcuts() {
    return {QKeySequence(Qt::Key_F1), QKeySequence(Qt::CTRL | Qt::Key_Question)};
}

} // namespace quorin
