#pragma once

#include "terminal/desktop/Theme.h"
#include "viewdata/services/LanguageManager.h"

#include <QHash>
#include <QString>

#include <optional>

namespace quorin {

// What a terminal remembers from one start to the next: open forms, their layouts, language and
// theme, as texts by key in a JSON file. Several terminals may share a file: storing writes what
// this one has changed since it read it, and leaves all else as the file has it by then, also keys
// that it does not know.
class TWorkspace {
public:
    // Reads the file; an empty name stores nothing, and a file that is not there yet is an empty
    // one.
    explicit TWorkspace(const QString& file = {});

    // Empty for what is not there.
    QString Value(const QString& key) const { return FValues.value(key); }
    // An empty value takes the key away.
    void Set(const QString& key, const QString& value);

    // As chosen last; nothing before the first choice.
    std::optional<TAppLanguage> Language() const;
    void SetLanguage(TAppLanguage language);
    std::optional<TTheme> Theme() const;
    void SetTheme(TTheme theme);

    // Writes the changes; the file is replaced as a whole or not at all. A file that could not be
    // understood is kept beside it, with ".bad" behind its name. False when it cannot be written.
    bool Store();
    // One line on a file that could not be read or written; empty when all went well.
    const QString& Problem() const { return FProblem; }

private:
    using TValues = QHash<QString, QString>;

    TValues Read();

    QString FFile;
    TValues FValues;
    TValues FStored; // as in the file when it was last read or written
    QString FProblem;
    bool FIsDamaged = false;
};

} // namespace quorin
