#pragma once

#include "platform/rtl/Lifeline.h"
#include "platform/rtl/TComponent.h"
#include "platform/rtl/Variant.h"
#include "viewdata/frame/ColumnInfo.h"
#include "viewdata/frame/RowNaming.h"

namespace quorin {

// The view model of one grid or tree: owns the rows, answers raw values and display texts, listens
// to the services and tells its view when something changed. The base has no rows and does no
// trading work. Descendants set the protected fields that are only read here. Nothing raises for
// bad input; everything runs on the thread of the views.
class TBaseDataControl : public TComponent {
    QUORIN_CLASS(TBaseDataControl, TComponent)

    explicit TBaseDataControl(TComponent* AOwner = nullptr) : TComponent(AOwner) {}

    // Operations, in order

    // Number of records that the view shows.
    virtual Integer GetCount() { return 0; }
    // Fires the change signal with this control as its sender; nothing while none is set.
    virtual void Changed() { FireDataChanged(); }
    // The control's columns, nil by default. The list and its columns stay the control's.
    virtual const TColumnList* GetColList() { return nullptr; }
    // Raw value of a cell. Row-list controls answer it; a tree control has the node form instead
    // and answers null here.
    virtual Variant GetValue(Integer RecordIndex, Integer Attribute);
    // Display text of a cell; EmptyDisplayText where there is nothing to show.
    virtual String GetDisplayValue(Integer RecordIndex, Integer Attribute);
    // Always False; `Value` is left alone.
    virtual Boolean GetRowValue(Integer RecordIndex, Pointer& Value);
    virtual Boolean GetColValue(Integer ItemIndex, Pointer& Value);

    // For the data source that owns the control: the one receiver of the change signal (empty
    // unhooks it), and the source itself, which nothing here reads.
    void SetOnDataChanged(const TNotifyEvent& event) { OnDataChanged = event; }
    void SetDataSource(TObject* source) { DataSource = source; }
    // Inside the change signal: adds the rows to `rows` whose values have changed, where nothing
    // else has. False, with `rows` as they were, where anything may have changed, and to whoever
    // asks a second time.
    Boolean NameChangedRows(TList<Integer>& rows);

protected:
    void FireDataChanged();
    // Calls `signal`, which fires the change signal. `name` adds the rows that it is about to a
    // TChangedRows; it is called inside the signal, and only if somebody asks.
    template <class Name, class Signal>
    void SignalRows(const Name& name, const Signal& signal) {
        const TNaming<Name> naming(name);
        const TNamingScope scope(*this, naming);
        signal();
    }
    template <class Name>
    void FireRowsChanged(const Name& name) {
        SignalRows(name, [this] { FireDataChanged(); });
    }

    TNotifyEvent OnDataChanged;
    TObject* DataSource = nullptr;
    String EmptyDisplayText; // text of a cell that has nothing to show
    String GroupID;          // the control's group; empty: none

private:
    template <class Names>
    class TNaming final : public TRowNaming {
    public:
        explicit TNaming(const Names& names) : FNames(names) {}
        void Name(TChangedRows& rows) const override { FNames(rows); }

    private:
        const Names& FNames;
    };
    // The next signal is about what is named; ends with it, or with the control.
    class TNamingScope {
    public:
        TNamingScope(TBaseDataControl& control, const TRowNaming& naming);
        TNamingScope(const TNamingScope&) = delete;
        TNamingScope& operator=(const TNamingScope&) = delete;
        ~TNamingScope();

    private:
        TBaseDataControl& FControl;
        TLifeline::TWatch FWatch;
    };

    const TRowNaming* FNaming = nullptr;    // of the next signal
    const TRowNaming* FSignalled = nullptr; // of the signal under way
    TLifeline FSignalLine;
};

// A row-list control: follows the configuration for as long as it lives. A complete control gets
// one ConfigUpdate before any signal is hooked, so that stored settings count from the start.
class TCustomDataControl : public TBaseDataControl {
    QUORIN_CLASS(TCustomDataControl, TBaseDataControl)

    explicit TCustomDataControl(TComponent* AOwner = nullptr);
    ~TCustomDataControl() override;
    void AfterConstruction() override;

    // The configuration has changed; an override calls the inherited operation first.
    virtual void ConfigUpdate(Pointer Sender, Pointer Data);
};

// A control whose records are nodes: opaque pointers that it hands out and takes back. A node is
// always the address of a TObject; nil stands for no node.
class TBaseTreeDataControl : public TBaseDataControl {
    QUORIN_CLASS(TBaseTreeDataControl, TBaseDataControl)

    explicit TBaseTreeDataControl(TComponent* AOwner = nullptr) : TBaseDataControl(AOwner) {}
    using TBaseDataControl::GetDisplayValue;
    using TBaseDataControl::GetValue;

    // Operations, in order

    virtual Pointer GetParentNode(Pointer Node);
    virtual Pointer GetNode(Integer Index);
    virtual Pointer GetChildNode(Pointer Node, Integer Index);
    virtual Integer GetChildNodeCount(Pointer Node);
    virtual Pointer GetRootNode() { return nullptr; }
    // Raw value and display text of a node's cell; null and EmptyDisplayText by default.
    virtual Variant GetValue(Pointer Node, Integer ColumnID);
    virtual String GetDisplayValue(Pointer Node, Integer ColumnID);
    // The columns that the view shows; the list stays the caller's and must outlive its use.
    virtual void SetColumnList(const TColumnList* List);

    // Another number each time that nodes, their order or their parents have changed; 0, by
    // default, where the control cannot tell.
    virtual Int64 ShapeVersion() const { return 0; }
    // Tells a node from an earlier one at the same address; the default tells none apart.
    virtual String NodeIdentity(Pointer) const { return String(); }
};

// A tree control that follows the configuration, as TCustomDataControl does.
class TCustomTreeDataControl : public TBaseTreeDataControl {
    QUORIN_CLASS(TCustomTreeDataControl, TBaseTreeDataControl)

    explicit TCustomTreeDataControl(TComponent* AOwner = nullptr);
    ~TCustomTreeDataControl() override;
    void AfterConstruction() override;

    virtual void ConfigUpdate(Pointer Sender, Pointer Data);
};

} // namespace quorin
