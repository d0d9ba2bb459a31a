#include "terminal/desktop/CodeBox.h"

#include "terminal/desktop/QtText.h"

#include <QAbstractItemView>
#include <QSignalBlocker>

namespace quorin {

TCodeBox::TCodeBox(QWidget* parent) : QComboBox(parent) {
    setSizeAdjustPolicy(QComboBox::AdjustToContents);
    setMaxVisibleItems(20);
    connect(this, &QComboBox::activated, this, &TCodeBox::CodeChosen);
}

bool TCodeBox::HasEntries(const std::vector<TCodeEntry>& entries) const {
    if (count() != static_cast<int>(entries.size())) return false;
    for (int index = 0; index < count(); ++index) {
        const TCodeEntry& entry = entries[static_cast<std::size_t>(index)];
        if (itemText(index) != entry.Text || FromQt(itemData(index).toString()) != entry.Code) {
            return false;
        }
    }
    return true;
}

void TCodeBox::SetEntries(const std::vector<TCodeEntry>& entries) {
    if (view()->isVisible() || HasEntries(entries)) return;
    const QSignalBlocker blocker(this);
    const String code = Code();
    clear();
    for (const TCodeEntry& entry : entries) addItem(entry.Text, ToQt(entry.Code));
    setCurrentIndex(-1);
    ShowCode(code);
}

void TCodeBox::ShowCode(StringView code) {
    if (view()->isVisible()) return;
    const int index = findData(ToQt(code));
    if (index != currentIndex()) setCurrentIndex(index);
}

String TCodeBox::Code() const {
    return FromQt(currentData().toString());
}

} // namespace quorin
