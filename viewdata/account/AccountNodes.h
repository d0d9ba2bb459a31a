#pragma once

#include "platform/rtl/TList.h"
#include "platform/rtl/TObject.h"

#include <memory>

namespace quorin {

// The three kinds of rows of the account information tree. A view handles them as pointers only;
// the control that hands them out owns them.

// The attribute number of a row that has lost its parent.
inline constexpr Integer NoAttribute = -1;

// One attribute: a row of the first level.
class TAccountDataNode : public TObject {
    QUORIN_CLASS(TAccountDataNode, TObject)

    explicit TAccountDataNode(Integer Attribute) : FAttribute(Attribute) {}

    Integer Attribute() const { return FAttribute; }

private:
    Integer FAttribute;
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

private:
    TAccountDataNode* FParent;
    String FCurrency;
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

private:
    TAccountDataValueNode* FParent;
    String FCurrency;
};

// The nodes of a tree in order, which it owns; and as an object the marker for the tree's root.
class TAccountNodeList : public TObject, public TList<std::unique_ptr<TObject>> {
    QUORIN_CLASS(TAccountNodeList, TObject)
};

} // namespace quorin
