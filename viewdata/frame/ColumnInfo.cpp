#include "viewdata/frame/ColumnInfo.h"

#include "platform/rtl/Numbers.h"
#include "viewdata/services/LanguageManager.h"
#include "viewdata/services/ResourceKeys.h"

namespace quorin {

std::unique_ptr<TColumnInfo> TColumnInfo::AddColumn(Integer ID, StringView ResourceKey,
                                                    Integer Width, StringView Key, Boolean Flag) {
    auto column = std::make_unique<TColumnInfo>();
    column->FID = ID;
    column->FResourceKey = ResourceKey;
    column->FKey = Key;
    column->FWidth = Width;
    column->FFlag = Flag;
    return column;
}

TColumnInfo* FindColumn(const TColumnList* list, Integer attribute) {
    if (list == nullptr) return nullptr;
    for (TColumnInfo* column : *list) {
        if (column->ID() == attribute) return column;
    }
    return nullptr;
}

Integer ColumnIDByKey(StringView key, const TColumnList* list) {
    if (list == nullptr) return NoColumnID;
    for (const TColumnInfo* column : *list) {
        const String& own = column->Key();
        const Boolean isNamed = own.empty() ? IntegerToText(column->ID()) == key : own == key;
        if (isNamed) return column->ID();
    }
    return NoColumnID;
}

String ColumnKeyByID(Integer id, const TColumnList* list) {
    const TColumnInfo* column = FindColumn(list, id);
    return column != nullptr ? column->Key() : String();
}

String ColumnCaption(const TColumnList* list, Integer attribute, StringView customColumnTag) {
    const TColumnInfo* column = FindColumn(list, attribute);
    if (column == nullptr) return String();
    const TCustomLanguageManager& language = *TCustomLanguageManager::GetInstance();
    if (attribute < FirstCustomColumn) {
        return language.GetResourceString(Const_ResourceStringTag, column->ResourceKey(),
                                          TAppLanguage::None, 0, nullptr);
    }
    return language.GetResourceString(customColumnTag, IntegerToText(attribute - FirstCustomColumn),
                                      TAppLanguage::None, 0, nullptr);
}

} // namespace quorin
