#pragma once

#include <QObject>
#include <QSet>

namespace quorin {

// Keeps a key that was held down before a dialog came from repeating into it: while this lives, a
// key repeats only once it has been pressed anew.
class TFreshKeys : public QObject {
    Q_OBJECT

public:
    TFreshKeys();

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    QSet<int> FPressed;
};

} // namespace quorin
