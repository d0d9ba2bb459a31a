#pragma once

#include "platform/rtl/TComponent.h"
#include "platform/widgets/CustomEdit.h"

#include <memory>

namespace quorin {

// What gives one input field its trading behaviour: takes over the field's events, passes each on
// to the handler that the form had set, and gives them back at its end. A form may take the field
// out of the manager inside such a handler: the record then lets the field go at once and dies when
// its outermost handler has returned.
class TEditorRecord : public TComponent {
    QUORIN_CLASS(TEditorRecord, TComponent)

    explicit TEditorRecord(TComponent* AOwner = nullptr) : TComponent(AOwner) {}

    // The field has died: its events are not given back, and a handler that has called out must not
    // pass the event on with it.
    virtual void ForgetEditor() = 0;
    // Gives the field's events back and ends all registrations, as the destructor does.
    virtual void Unhook() = 0;

    // Frees the record, at once or when its handlers have returned.
    static void Retire(std::unique_ptr<TEditorRecord> record);

protected:
    // Keeps the record alive while one of its handlers runs. To be the first in each of them, so
    // that it is the last to go.
    class TRun {
    public:
        explicit TRun(TEditorRecord& record) : FRecord(record) { ++FRecord.FRuns; }
        TRun(const TRun&) = delete;
        TRun& operator=(const TRun&) = delete;
        ~TRun() {
            if (--FRecord.FRuns == 0 && FRecord.FIsRetired) delete &FRecord;
        }

    private:
        TEditorRecord& FRecord;
    };

    Boolean IsRetired() const { return FIsRetired; }

private:
    Integer FRuns = 0;
    Boolean FIsRetired = false;
};

// The events of a field that a record takes over. A record names them all in one place,
// VisitEvents(field, visit), which calls `visit(saved, field, reader, writer, handler)` for each,
// so that none is saved without being installed and given back.

struct TSaveEvents {
    template <class Event, class Widget, class Reader, class Writer>
    void operator()(Event& saved, Widget& widget, Reader reader, Writer, const Event&) const {
        saved = (widget.*reader)();
    }
};

struct TInstallEvents {
    template <class Event, class Widget, class Reader, class Writer>
    void operator()(Event&, Widget& widget, Reader, Writer writer, const Event& handler) const {
        (widget.*writer)(handler);
    }
};

struct TGiveBackEvents {
    template <class Event, class Widget, class Reader, class Writer>
    void operator()(Event& saved, Widget& widget, Reader, Writer writer, const Event&) const {
        (widget.*writer)(saved);
        saved = nullptr;
    }
};

// Places the caret behind the last character.
inline void CaretBehindText(TcxCustomEdit& editor) {
    editor.SetSelStart(static_cast<Integer>(editor.Text().size()));
}

// The first click after the field was entered selects all of it.
inline void SelectAllOnEntry(TcxCustomEdit* editor, Boolean& focusEnter) {
    if (focusEnter && editor != nullptr && editor->CanFocus()) editor->SelectAll();
    focusEnter = false;
}

// Swallows the wheel.
inline void SwallowWheel(Boolean& handled) {
    handled = true;
}

} // namespace quorin
