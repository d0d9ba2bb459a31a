#pragma once

#include "platform/rtl/Types.h"

#include <optional>
#include <string_view>
#include <vector>

namespace quorin {

// The words of one line: apart by blanks, "..." holds blanks, "#" where a word could begin ends
// the line. Nothing when a quotation mark is left open.
std::optional<std::vector<String>> ScriptWords(StringView line);

// What the words of a line say, by the place in the command's pattern; nothing for an optional
// place that was left out.
class TScriptArguments {
public:
    bool Has(std::size_t place) const { return FWords[place].has_value(); }
    const String& Word(std::size_t place) const { return *FWords[place]; }
    bool Is(std::size_t place, StringView word) const { return FWords[place] == word; }
    // Of a place whose kind is a number.
    Integer Number(std::size_t place) const;

private:
    friend class TScriptMatcher;
    std::vector<std::optional<String>> FWords;
};

// The words by a pattern such as "buy|sell ROW [NAME]": lower case stands for itself, "|" between
// what it may be; upper case stands for a value of that kind, "[...]" for what may be left out.
// ROW, FROM, TO, N and ATTRIBUTE are whole numbers from 0 up, COUNT and NUMBER from 1 up, MONTH and
// the rest are any word; a word is taken for a later place that names it rather than for a value
// that may be left out. Nothing when they do not fit.
std::optional<TScriptArguments> MatchPattern(std::string_view pattern,
                                             const std::vector<String>& words);

// Whether a line that begins with this word is meant for the pattern.
bool MatchesFirstWord(std::string_view pattern, const String& word);

} // namespace quorin
