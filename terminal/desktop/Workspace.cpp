#include "terminal/desktop/Workspace.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
#include <QSaveFile>

namespace quorin {

namespace {

constexpr int Version = 1;
constexpr int LockPatience = 2000; // milliseconds
const QString VersionKey = QStringLiteral("version");
const QString ValuesKey = QStringLiteral("values");

const QString LanguageKey = QStringLiteral("language");
const QString ThemeKey = QStringLiteral("theme");

// One of the names, in the order of their values; nothing for any other text.
template <class Choice, std::size_t Count>
std::optional<Choice> ChoiceOf(const QString& text, const char* const (&names)[Count]) {
    for (std::size_t index = 0; index < Count; ++index) {
        if (text == QLatin1String(names[index])) return static_cast<Choice>(index);
    }
    return {};
}

constexpr const char* LanguageNames[] = {"en", "zh-Hant", "zh-Hans"};
constexpr const char* ThemeNames[] = {"light", "dark"};

} // namespace

TWorkspace::TWorkspace(const QString& file) : FFile(file) {
    FValues = Read();
    FStored = FValues;
}

void TWorkspace::Set(const QString& key, const QString& value) {
    if (value.isEmpty()) {
        FValues.remove(key);
    } else {
        FValues.insert(key, value);
    }
}

std::optional<TAppLanguage> TWorkspace::Language() const {
    return ChoiceOf<TAppLanguage>(Value(LanguageKey), LanguageNames);
}

void TWorkspace::SetLanguage(TAppLanguage language) {
    Set(LanguageKey, QLatin1String(LanguageNames[static_cast<int>(language)]));
}

std::optional<TTheme> TWorkspace::Theme() const {
    return ChoiceOf<TTheme>(Value(ThemeKey), ThemeNames);
}

void TWorkspace::SetTheme(TTheme theme) {
    Set(ThemeKey, QLatin1String(ThemeNames[static_cast<int>(theme)]));
}

// Another version's values are taken as far as they are texts: what they mean is up to the key.
TWorkspace::TValues TWorkspace::Read() {
    TValues values;
    FKeptAs.clear();
    FIsRead = false;
    QFile file(FFile);
    if (FFile.isEmpty() || !file.exists()) return values;
    if (!file.open(QIODevice::ReadOnly)) {
        FProblem = FFile + QStringLiteral(": cannot be read");
        return values;
    }
    const QJsonObject document = QJsonDocument::fromJson(file.readAll()).object();
    if (!document.value(ValuesKey).isObject()) {
        FKeptAs = FFile + QStringLiteral(".bad");
        FProblem = FFile + QStringLiteral(": is no workspace; it will be kept as ") + FKeptAs;
        return values;
    }
    FIsRead = true;
    const int version = document.value(VersionKey).toInt();
    if (version != Version) {
        FKeptAs = FFile + QStringLiteral(".version-") + QString::number(version);
        FProblem = FFile + QStringLiteral(": is of another version; it will be kept as ") + FKeptAs;
    }
    const QJsonObject stored = document.value(ValuesKey).toObject();
    for (auto entry = stored.begin(); entry != stored.end(); ++entry) {
        if (entry.value().isString()) values.insert(entry.key(), entry.value().toString());
    }
    return values;
}

TWorkspace::TValues TWorkspace::Merged(TValues found) const {
    if (!FIsRead) return FValues;
    for (auto entry = FValues.cbegin(); entry != FValues.cend(); ++entry) {
        const bool isFirst = !FStored.contains(entry.key()) && found.contains(entry.key()) &&
                             FFirst.value(entry.key()) == entry.value();
        const bool isChanged = FStored.value(entry.key()) != entry.value();
        if (isChanged && !isFirst) found.insert(entry.key(), entry.value());
    }
    for (auto entry = FStored.cbegin(); entry != FStored.cend(); ++entry) {
        if (!FValues.contains(entry.key())) found.remove(entry.key());
    }
    return found;
}

// Another terminal may have put the file right, or broken it, since it was read here.
bool TWorkspace::Store() {
    if (FFile.isEmpty() || FValues == FStored) return true;
    QDir().mkpath(QFileInfo(FFile).absolutePath());
    QLockFile lock(FFile + QStringLiteral(".lock"));
    lock.tryLock(LockPatience); // without it the file is still replaced as a whole
    const TValues merged = Merged(Read());
    if (!FKeptAs.isEmpty()) {
        QFile::remove(FKeptAs);
        QFile::copy(FFile, FKeptAs);
    }

    QJsonObject values;
    for (auto entry = merged.cbegin(); entry != merged.cend(); ++entry) {
        values.insert(entry.key(), entry.value());
    }
    QSaveFile file(FFile);
    const QByteArray text =
        QJsonDocument(QJsonObject{{VersionKey, Version}, {ValuesKey, values}}).toJson();
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit()) {
        FProblem = FFile + QStringLiteral(": cannot be written");
        return false;
    }
    FStored = FValues;
    return true;
}

} // namespace quorin
