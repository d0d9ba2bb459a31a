#pragma once

#include "platform/rtl/TList.h"
#include "platform/rtl/TObject.h"

#include <memory>

namespace quorin {

// Numbers from here up are custom columns: what is left after taking this off is a field number
// of a live item or record.
inline constexpr Integer FirstCustomColumn = 100000;

// One column as a control describes it to a view. Belongs to whoever built the list it is in.
class TColumnInfo : public TObject {
    QUORIN_CLASS(TColumnInfo, TObject)

    // Makes a filled column: attribute number, caption key, default width in pixels, name in saved
    // layouts (empty: the decimal text of `ID` stands for it), quantity column or not.
    static std::unique_ptr<TColumnInfo> AddColumn(Integer ID, StringView ResourceKey, Integer Width,
                                                  StringView Key, Boolean Flag);

    Integer ID() const { return FID; }
    const String& ResourceKey() const { return FResourceKey; }
    const String& Key() const { return FKey; }
    Integer Width() const { return FWidth; }
    Boolean Flag() const { return FFlag; }

private:
    Integer FID = 0;
    String FResourceKey;
    String FKey;
    Integer FWidth = 0;
    Boolean FFlag = false;
};

inline constexpr Integer NoColumnID = -1;

using TColumnList = TList<TColumnInfo*>;

// The column with that attribute number, or nil; `list` may be nil.
TColumnInfo* FindColumn(const TColumnList* list, Integer attribute);

// The number of the first column whose name in saved layouts is `key`, which for a column without a
// key of its own is the decimal text of its number. -1 where there is none, also for a nil list.
Integer ColumnIDByKey(StringView key, const TColumnList* list);
// The key of the first column with that number, which may be empty; empty where there is none.
String ColumnKeyByID(Integer id, const TColumnList* list);

// Caption of a column in the language in force: the resource of its caption key, for a custom
// column the entry of its field number in the table `customColumnTag`. Empty for an unknown one.
String ColumnCaption(const TColumnList* list, Integer attribute, StringView customColumnTag);

} // namespace quorin
