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
    // What holds without a word of the file: it is not written over what another terminal has
    // stored meanwhile.
    void SetFirst(const QString& key, const QString& value) { FFirst.insert(key, value); }

    // As chosen last; nothing before the first choice.
    std::optional<TAppLanguage> Language() const;
    void SetLanguage(TAppLanguage language);
    std::optional<TTheme> Theme() const;
    void SetTheme(TTheme theme);

    // Writes the changes; the file is replaced as a whole or not at all. A file that could not be
    // understood is kept beside it, with ".bad" behind its name, and one of another version with
    // ".version-N"; then all is written. False when it cannot be written.
    bool Store();
    // One line on a file that could not be read or written; empty when all went well.
    const QString& Problem() const { return FProblem; }

private:
    using TValues = QHash<QString, QString>;

    TValues Read();
    TValues Merged(TValues found) const;

    QString FFile;
    TValues FValues;
    TValues FStored; // as in the file when it was last read or written
    TValues FFirst;
    QString FProblem;
    QString FKeptAs;      // the name for a file of another kind that was read; else empty
    bool FIsRead = false; // there was a file, and it could be understood
};

} // namespace quorin
