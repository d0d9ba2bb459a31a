#include "terminal/desktop/PaneLayout.h"

#include "terminal/desktop/QtText.h"

namespace quorin {

namespace {

const QString ChoiceKey = QStringLiteral(".choice");
const QString GroupKey = QStringLiteral(".group");
const QString LayoutKey = QStringLiteral(".layout");

template <class Call>
void EachValue(TPaneDock& dock, const Call& call) {
    const QString code = dock.objectName();
    call(code + ChoiceKey, ToQt(dock.Pane().Choice()));
    call(code + GroupKey, QString::number(dock.Pane().Group()));
    if (dock.Actions() != nullptr) call(code + LayoutKey, ToQt(dock.Actions()->Keeper().Layout()));
}

} // namespace

void StorePane(TPaneDock& dock, TWorkspace& workspace) {
    EachValue(dock, [&workspace](const QString& key, const QString& value) {
        workspace.Set(key, value);
    });
}

void NoteFirst(TPaneDock& dock, TWorkspace& workspace) {
    EachValue(dock, [&workspace](const QString& key, const QString& value) {
        workspace.SetFirst(key, value);
    });
}

void RestorePane(TPaneDock& dock, const TWorkspace& workspace) {
    const QString code = dock.objectName();
    const String choice = FromQt(workspace.Value(code + ChoiceKey));
    if (!choice.empty()) dock.Pane().SetChoice(choice);
    const String layout = FromQt(workspace.Value(code + LayoutKey));
    if (dock.Actions() != nullptr && !layout.empty()) dock.Actions()->Keeper().Restore(layout);
    bool isNumber = false;
    const Integer group = workspace.Value(code + GroupKey).toInt(&isNumber);
    if (isNumber) dock.Pane().SetGroup(group);
}

} // namespace quorin
