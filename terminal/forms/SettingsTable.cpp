#include "terminal/forms/SettingsTable.h"

#include "embedded/ConfigService.h"
#include "platform/rtl/Numbers.h"
#include "platform/rtl/Text.h"
#include "terminal/forms/TerminalKeys.h"
#include "viewdata/frame/ServiceTexts.h"
#include "viewdata/services/ConfigKeys.h"

#include <algorithm>

namespace quorin {

namespace {

using enum TSettingGroup;
using enum TSettingKind;

constexpr StringView CaptionPrefix = u"Res_Set_";
constexpr StringView HintSuffix = u"_Hint";
constexpr StringView Yes = u"Y";
constexpr StringView No = u"N";
constexpr StringView KeptApart = u"0"; // as a session begins with
constexpr Integer MostDecimals = 8;
constexpr bool Later = true;
constexpr bool AtOnce = false;

constexpr TSettingChoice GroupChoices[] = {{u"-1", TerminalKey::Res_Group_Together},
                                           {KeptApart, TerminalKey::Res_Group_Apart},
                                           {u"3", TerminalKey::Res_Group_Both}};
constexpr TSettingChoice ThousandChoices[] = {{u"", TerminalKey::Res_Thousands_Lists},
                                              {Yes, TerminalKey::Res_Thousands_Everywhere},
                                              {No, TerminalKey::Res_Thousands_Nowhere}};
constexpr TSettingChoice BondForms[] = {{u"", TerminalKey::Res_Bond_Decimals},
                                        {u"1", TerminalKey::Res_Bond_Dash},
                                        {u"2", TerminalKey::Res_Bond_Blank}};
constexpr TSettingChoice BondFractions[] = {{u"", TerminalKey::Res_Bond_Decimals},
                                            {u"2", {}},
                                            {u"4", {}},
                                            {u"8", {}},
                                            {u"16", {}},
                                            {u"32", {}},
                                            {u"64", {}}};
constexpr TSettingChoice AveragePrices[] = {{u"", TerminalKey::Res_AvgPrice_Mixed},
                                            {u"1", TerminalKey::Res_AvgPrice_Income},
                                            {u"2", TerminalKey::Res_AvgPrice_FIFN}};

constexpr TSetting Table[] = {
    {Fields, Choice, ConfigKey::DefaultGroupDataMode, AtOnce, GroupChoices, 0, TradePlatformSection,
     KeptApart},
    {Fields, Choice, ConfigKey::QtyThousandPeriod, AtOnce, ThousandChoices},
    {Fields, FlagUnlessNo, ConfigKey::EnableMouseWheel},
    {Fields, FlagUnlessNo, ConfigKey::EnableQtyMouseWheel},
    {Fields, FlagUnlessNo, ConfigKey::PrcEdtAutoInc},
    {Fields, FlagUnlessNo, ConfigKey::QtyEdtAutoInc},
    {Fields, FlagUnlessNo, ConfigKey::DisplaySymbolName, Later},
    {Numbers, Choice, ConfigKey::DenominatorModeValue, AtOnce, BondForms},
    {Numbers, Choice, ConfigKey::BondPriceDenominator, AtOnce, BondFractions},
    {Numbers, Number, ConfigKey::AmountPrecision, AtOnce, {}, MostDecimals},
    {Numbers, Flag, ConfigKey::AmountDecimal},
    {Numbers, Number, ConfigKey::QtyPrecision, AtOnce, {}, MostDecimals},
    {Numbers, Flag, ConfigKey::QtyDecimal},
    {Numbers, Number, ConfigKey::DefaultPrecision, AtOnce, {}, MostDecimals},
    {Numbers, Flag, ConfigKey::DefaultDecimal},
    {Numbers, Number, ConfigKey::CurrencyPrecision, AtOnce, {}, MostDecimals},
    {Numbers, Flag, ConfigKey::CurrencyDecimal},
    {Orders, Flag, ConfigKey::ConfirmationPlaceOrd, AtOnce, {}, 0, {}, Yes},
    {Orders, Flag, ConfigKey::ConfirmationClosePosition, AtOnce, {}, 0, {}, Yes},
    {Orders, Choice, ConfigKey::PVAvgPriceMode, AtOnce, AveragePrices},
    {Orders, Flag, ConfigKey::DisplayZeroQty},
    {Orders, Flag, ConfigKey::ShowNegForShortPos, Later},
    {Orders, Flag, ConfigKey::OptionsPLPrice, Later},
    {Orders, Flag, ConfigKey::MiddlePLPrice, Later},
    {Orders, Flag, ConfigKey::LoadAcctStatus, Later},
    {Orders, Text, ConfigKey::T1Market, Later},
    {Orders, Flag, ConfigKey::IncludeStockSIMaxSell, Later},
    {Files, Flag, ConfigKey::CsvByteOrderMark},
    {Files, Flag, ConfigKey::CsvGuardFormula},
};

StringView SectionOf(const TSetting& setting) {
    return setting.Section.empty() ? TCustomConfigManager::GetInstance()->GetCurrentSection()
                                   : setting.Section;
}

String CaptionKey(const TSetting& setting) {
    return String(CaptionPrefix).append(setting.Key);
}

bool IsAllowed(const TSetting& setting, StringView text) {
    if (text.empty()) return true;
    switch (setting.Kind) {
    case Flag:
    case FlagUnlessNo: return text == Yes || text == No;
    case Choice:
        return std::any_of(setting.Choices.begin(), setting.Choices.end(),
                           [text](const TSettingChoice& choice) { return choice.Value == text; });
    case Number: {
        Integer number = 0;
        return TryParseInteger(text, number) && number >= 0 && number <= setting.Highest;
    }
    case Text: return true;
    }
    return false;
}

} // namespace

std::span<const TSetting> Settings() {
    return Table;
}

String SettingCaption(const TSetting& setting) {
    return InterfaceText(CaptionKey(setting));
}

String SettingHint(const TSetting& setting) {
    String hint = InterfaceText(CaptionKey(setting).append(HintSuffix));
    if (setting.CountsLater) hint += u"\n" + InterfaceText(TerminalKey::Res_SettingLater);
    return hint;
}

String SettingGroupCaption(TSettingGroup group) {
    switch (group) {
    case Fields: return InterfaceText(TerminalKey::Res_SettingsFields);
    case Numbers: return InterfaceText(TerminalKey::Res_SettingsNumbers);
    case Orders: return InterfaceText(TerminalKey::Res_SettingsOrders);
    case Files: return InterfaceText(TerminalKey::Res_SettingsFiles);
    }
    return {};
}

String SettingChoiceCaption(const TSettingChoice& choice) {
    return choice.CaptionKey.empty() ? String(choice.Value) : InterfaceText(choice.CaptionKey);
}

String SettingText(const TSetting& setting) {
    return TCustomConfigManager::GetInstance()->ReadString(SectionOf(setting), setting.Key);
}

bool IsSettingDefault(const TSetting& setting) {
    return SettingText(setting) == setting.Default;
}

bool IsSettingOn(const TSetting& setting) {
    if (setting.Kind == FlagUnlessNo) return UpperCase(SettingText(setting)).substr(0, 1) != No;
    return TCustomConfigManager::GetInstance()->ReadBool(SectionOf(setting), setting.Key);
}

Integer SettingChoice(const TSetting& setting) {
    const String text = SettingText(setting);
    const auto found =
        std::find_if(setting.Choices.begin(), setting.Choices.end(),
                     [&text](const TSettingChoice& choice) { return choice.Value == text; });
    return found == setting.Choices.end() ? 0
                                          : static_cast<Integer>(found - setting.Choices.begin());
}

bool ChangeSetting(TEmbeddedConfigManager& config, const TSetting& setting, StringView text) {
    if (!IsAllowed(setting, text)) return false;
    config.Set(SectionOf(setting), setting.Key, text);
    config.Commit();
    return true;
}

bool TurnSetting(TEmbeddedConfigManager& config, const TSetting& setting, bool on) {
    return ChangeSetting(config, setting, on ? Yes : No);
}

void ResetSetting(TEmbeddedConfigManager& config, const TSetting& setting) {
    config.Set(SectionOf(setting), setting.Key, setting.Default);
    config.Commit();
}

void ResetSettings(TEmbeddedConfigManager& config) {
    for (const TSetting& setting : Table) {
        config.Set(SectionOf(setting), setting.Key, setting.Default);
    }
    config.Commit();
}

} // namespace quorin
