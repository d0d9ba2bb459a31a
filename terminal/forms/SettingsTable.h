#pragma once

#include "platform/rtl/Types.h"

#include <span>

namespace quorin {

class TEmbeddedConfigManager;

enum class TSettingGroup : Byte { Fields, Numbers, Orders, Files };
inline constexpr TSettingGroup SettingGroups[] = {TSettingGroup::Fields, TSettingGroup::Numbers,
                                                  TSettingGroup::Orders, TSettingGroup::Files};

enum class TSettingKind : Byte {
    Flag,         // off unless it says yes
    FlagUnlessNo, // on unless it says no
    Choice,       // one of several texts
    Number,       // a whole number from 0 to Highest; without one the product's own
    Text,
};

struct TSettingChoice {
    StringView Value;
    StringView CaptionKey; // empty: shown as it is
};

// One setting that a person may change.
struct TSetting {
    TSettingGroup Group;
    TSettingKind Kind;
    StringView Key; // of ConfigKeys.h
    // Counts only for what is opened after a change.
    bool CountsLater = false;
    std::span<const TSettingChoice> Choices = {};
    Integer Highest = 0;
    StringView Section = {}; // empty: the running application's
    StringView Default = {}; // what a terminal begins with, and a reset stores; empty for nothing
};

// Every setting that a person may change, group by group.
std::span<const TSetting> Settings();

// Texts in the language in force: what it is called, and what it does in a sentence or two.
String SettingCaption(const TSetting& setting);
String SettingHint(const TSetting& setting);
String SettingGroupCaption(TSettingGroup group);
String SettingChoiceCaption(const TSettingChoice& choice);

// As it is stored; empty for nothing.
String SettingText(const TSetting& setting);
bool IsSettingDefault(const TSetting& setting);
// Of the two kinds of flag: what is in force.
bool IsSettingOn(const TSetting& setting);
// Of a choice: the index of the one in force, 0 for a text that is none of them.
Integer SettingChoice(const TSetting& setting);

// Stores the text, empty for nothing, and tells everybody. False, and nothing changes, for what the
// kind does not allow.
bool ChangeSetting(TEmbeddedConfigManager& config, const TSetting& setting, StringView text);
bool TurnSetting(TEmbeddedConfigManager& config, const TSetting& setting, bool on);
// Takes one setting, or all, back to the default and tells everybody once.
void ResetSetting(TEmbeddedConfigManager& config, const TSetting& setting);
void ResetSettings(TEmbeddedConfigManager& config);

} // namespace quorin
