#pragma once

#include "terminal/forms/FormView.h"

#include <QObject>

#include <memory>
#include <vector>

namespace quorin {

// The columns and the sorting of a form as one text, and the way back through what the user has
// changed of them and of the filter. The form must live longer.
class TLayoutKeeper : public QObject {
    Q_OBJECT

public:
    explicit TLayoutKeeper(const TFormView& view, QObject* parent = nullptr);

    String Layout() const;
    // Puts columns and sorting as the text tells, as far as it makes sense; filters stay. What was
    // done before can't be undone any more.
    void Restore(StringView layout);
    // To be called after changes: they become one step, if there are any.
    void Note();
    // Takes the latest step back; False where there is none.
    bool Undo();

signals:
    void Changed();

private:
    struct TState {
        String Layout;
        std::shared_ptr<const TcxFilterCriteriaItemList> Filter; // nil for a tree
    };

    TState Now() const;
    void Apply(StringView layout);
    void ApplyFilter(const TcxFilterCriteriaItemList& filter);

    TFormView FView;
    TState FKnown; // as it was noted last
    std::vector<TState> FSteps;
};

} // namespace quorin
