#include "terminal/desktop/StoredSettings.h"

#include "terminal/desktop/QtText.h"

namespace quorin {

namespace {

QString KeyOf(const TSetting& setting) {
    return QStringLiteral("setting.") + ToQt(setting.Key);
}

} // namespace

TStoredSettings::TStoredSettings(TEmbeddedConfigManager& config, TWorkspace& workspace)
    : FWorkspace(workspace) {
    for (const TSetting& setting : Settings()) {
        FFirst.push_back(SettingText(setting));
        const String stored = FromQt(FWorkspace.Value(KeyOf(setting)));
        if (!stored.empty()) ChangeSetting(config, setting, stored);
    }
}

void TStoredSettings::Store() {
    std::size_t place = 0;
    for (const TSetting& setting : Settings()) {
        const String text = SettingText(setting);
        const bool isFirst = text == FFirst[place++];
        FWorkspace.Set(KeyOf(setting), isFirst ? QString() : ToQt(text));
    }
}

} // namespace quorin
