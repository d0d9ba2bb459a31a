#pragma once

#include "terminal/forms/FormView.h"

#include <QObject>

#include <vector>

namespace quorin {

// The columns and the sorting of a form as one text, and the way back through what the user has
// changed of them. The form must live longer.
class TLayoutKeeper : public QObject {
    Q_OBJECT

public:
    explicit TLayoutKeeper(const TFormView& view, QObject* parent = nullptr);

    String Layout() const;
    // Puts columns and sorting as the text tells, as far as it makes sense. What was done before
    // can't be undone any more.
    void Restore(StringView layout);
    // To be called after changes: they become one step, if there are any.
    void Note();
    // Takes the latest step back; False where there is none.
    bool Undo();

signals:
    void Changed();

private:
    void Apply(StringView layout);

    TFormView FView;
    String FKnown; // as it was noted last
    std::vector<String> FSteps;
};

} // namespace quorin
