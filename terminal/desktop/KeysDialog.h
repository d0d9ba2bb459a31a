#pragma once

#include <QDialog>
#include <QKeySequence>
#include <QList>
#include <QStringList>

namespace quorin {

// An action with its keys, as the list of keys shows it.
struct TKeyEntry {
    QString Form; // the caption of its form; empty for the window's own
    QString Action;
    QStringList Keys;
};

// Every action of the window that has a key, in the order of the window's widgets: first the
// window's own, then form by form. A form that is open twice is listed once.
QList<TKeyEntry> KeysOf(QWidget& window);

// The list of keys, as they are when it opens.
class TKeysDialog : public QDialog {
    Q_OBJECT

public:
    explicit TKeysDialog(QWidget& window);

    // Shows the list; modal.
    static void Open(QWidget& window);
    // F1 and Ctrl+?.
    static QList<QKeySequence> Shortcuts();
};

} // namespace quorin
