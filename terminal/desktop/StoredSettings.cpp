#include "terminal/desktop/StoredSettings.h"

#include "terminal/desktop/QtText.h"
#include "terminal/forms/Favourites.h"

#include <QStringList>

namespace quorin {

namespace {

QString KeyOf(const TSetting& setting) {
    return QStringLiteral("setting.") + ToQt(setting.Key);
}

const QString FavouritesKey = QStringLiteral("favourites");
constexpr QChar SymbolEnd = u'\n';

// Each with its end, so that an empty list is no empty text.
QString FavouritesText() {
    QString text(SymbolEnd);
    for (const String& symbol : Favourites()) text += ToQt(symbol) + SymbolEnd;
    return text;
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

TStoredFavourites::TStoredFavourites(TWorkspace& workspace)
    : FWorkspace(workspace), FFirst(FavouritesText()) {
    const QString stored = FWorkspace.Value(FavouritesKey);
    if (stored.isEmpty() || stored == FFirst) return;
    TList<String> symbols;
    for (const QString& symbol : stored.split(SymbolEnd, Qt::SkipEmptyParts)) {
        symbols.Add(FromQt(symbol));
    }
    SetFavourites(symbols);
}

void TStoredFavourites::Store() {
    const QString text = FavouritesText();
    FWorkspace.Set(FavouritesKey, text == FFirst ? QString() : text);
}

} // namespace quorin
