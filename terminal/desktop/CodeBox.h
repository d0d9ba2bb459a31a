#pragma once

#include "platform/rtl/Types.h"

#include <QComboBox>

#include <vector>

namespace quorin {

// What a box has to choose from: a code, and what a person reads for it.
struct TCodeEntry {
    String Code;
    QString Text;
};

// A box to choose one of some codes with. It shows what it is told to: a choice of the person's is
// told to who listens, who then shows it, or something else.
class TCodeBox : public QComboBox {
    Q_OBJECT

public:
    explicit TCodeBox(QWidget* parent = nullptr);

    // Other entries, where they really differ; not while the person has the list open. The code
    // that is shown stays, also where it is none of them.
    void SetEntries(const std::vector<TCodeEntry>& entries);
    // Shows a code; one that there is no entry for shows as nothing chosen.
    void ShowCode(StringView code);
    // The code that the entry under the mouse or the arrow keys has; empty for none.
    String Code() const;

signals:
    // The person has chosen another entry.
    void CodeChosen();

private:
    bool HasEntries(const std::vector<TCodeEntry>& entries) const;
};

} // namespace quorin
