#include "terminal/desktop/FreshKeys.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace quorin {

TFreshKeys::TFreshKeys() {
    QCoreApplication::instance()->installEventFilter(this);
}

bool TFreshKeys::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride: break;
    default: return false;
    }
    const auto& key = *static_cast<QKeyEvent*>(event);
    if (!key.isAutoRepeat()) {
        if (event->type() != QEvent::KeyRelease) FPressed.insert(key.key());
        return false;
    }
    return !FPressed.contains(key.key());
}

} // namespace quorin
