#pragma once

#include "platform/rtl/TList.h"
#include "platform/rtl/TObject.h"

#include <memory>
#include <utility>

namespace quorin {

// The three kinds of rows of the account information tree. A view handles them as pointers only;
// the control that hands them out owns them.

// The attribute number of a row that has lost its parent.
inline constexpr Integer NoAttribute = -1;

// Another number for each node that is made: addresses come back, these do not.
using TNodeSerial = Int64;
inline TNodeSerial NextNodeSerial() {
    static TNodeSerial last = 0;
    return ++last;
}

// One attribute: a row of the first level.
class TAccountDataNode : public TObject {
    QUORIN_CLASS(TAccountDataNode, TObject)

    explicit TAccountDataNode(Integer Attribute) : FAttribute(Attribute) {}

    Integer Attribute() const { return FAttribute; }
    TNodeSerial Serial() const { return FSerial; }

private:
    Integer FAttribute;
    TNodeSerial FSerial = NextNodeSerial();
};

// One currency below an attribute.
class TAccountDataValueNode : public TObject {
    QUORIN_CLASS(TAccountDataValueNode, TObject)

    // `Parent` may be nil and must otherwise live longer; it is not owned.
    TAccountDataValueNode(TAccountDataNode* Parent, StringView Ccy)
        : FParent(Parent), FCurrency(Ccy) {}

    TAccountDataNode* Parent() const { return FParent; }
    // The parent's; NoAttribute without one.
    Integer GetAttribute() const { return FParent != nullptr ? FParent->Attribute() : NoAttribute; }
    const String& Currency() const { return FCurrency; }
    TNodeSerial Serial() const { return FSerial; }

private:
    TAccountDataNode* FParent;
    String FCurrency;
    TNodeSerial FSerial = NextNodeSerial();
};

// The same attribute in another currency, below a value row. Descendants of the control make such
// rows; the control shows and frees them.
class TConvertAccountDataValueNode : public TObject {
    QUORIN_CLASS(TConvertAccountDataValueNode, TObject)

    // As TAccountDataValueNode.
    TConvertAccountDataValueNode(TAccountDataValueNode* Parent, StringView Ccy)
        : FParent(Parent), FCurrency(Ccy) {}

    TAccountDataValueNode* Parent() const { return FParent; }
    Integer GetAttribute() const {
        return FParent != nullptr ? FParent->GetAttribute() : NoAttribute;
    }
    const String& Currency() const { return FCurrency; }
    TNodeSerial Serial() const { return FSerial; }

private:
    TAccountDataValueNode* FParent;
    String FCurrency;
    TNodeSerial FSerial = NextNodeSerial();
};

// The nodes of a tree in order, which it owns; and as an object the marker for the tree's root. It
// knows when it has changed, so that a view need not walk it to find out.
class TAccountNodeList : public TObject, private TList<std::unique_ptr<TObject>> {
    QUORIN_CLASS(TAccountNodeList, TObject)

    using TNodes = TList<std::unique_ptr<TObject>>;

    using TNodes::Count;
    using TNodes::Has;
    using TNodes::IsEmpty;
    const std::unique_ptr<TObject>& operator[](Integer index) const { return Nodes()[index]; }
    const TNodes& Nodes() const { return *this; }
    // For changes: each call counts as one.
    TNodes& Edit() {
        ++FVersion;
        return *this;
    }
    void Add(std::unique_ptr<TObject> node) { Edit().Add(std::move(node)); }
    void Clear() { Edit().Clear(); }
    // Another number after each change; never 0.
    Int64 Version() const { return FVersion; }

private:
    Int64 FVersion = 1;
};

} // namespace quorin
