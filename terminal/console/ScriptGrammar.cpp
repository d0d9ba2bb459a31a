#include "terminal/console/ScriptGrammar.h"

#include "platform/rtl/Numbers.h"
#include "platform/rtl/Utf.h"

#include <algorithm>

namespace quorin {

namespace {

constexpr Char CommentMark = u'#';
constexpr Char QuotationMark = u'"';

bool IsBlank(Char unit) {
    return unit <= u' ';
}

struct TNumberKind {
    std::string_view Name;
    Integer Smallest;
};

constexpr TNumberKind NumberKinds[] = {
    {"ROW", 0}, {"FROM", 0}, {"TO", 0}, {"N", 0}, {"ATTRIBUTE", 0}, {"COUNT", 1}, {"NUMBER", 1},
};

bool IsValueKind(std::string_view place) {
    return place.front() >= 'A' && place.front() <= 'Z';
}

bool IsOfKind(std::string_view kind, const String& word) {
    const auto* known =
        std::find_if(std::begin(NumberKinds), std::end(NumberKinds),
                     [&](const TNumberKind& number) { return number.Name == kind; });
    if (known == std::end(NumberKinds)) return true;
    Integer number = 0;
    return TryParseInteger(word, number) && number >= known->Smallest;
}

bool IsOneOf(std::string_view alternatives, const String& word) {
    for (;;) {
        const std::size_t end = alternatives.find('|');
        if (word == FromUtf8(alternatives.substr(0, end))) return true;
        if (end == alternatives.npos) return false;
        alternatives.remove_prefix(end + 1);
    }
}

struct TPlace {
    std::string_view Text; // a kind or alternatives
    bool IsOptional = false;
};

std::vector<TPlace> PlacesOf(std::string_view pattern) {
    std::vector<TPlace> places;
    while (!pattern.empty()) {
        const std::size_t end = std::min(pattern.find(' '), pattern.size());
        std::string_view text = pattern.substr(0, end);
        pattern.remove_prefix(std::min(end + 1, pattern.size()));
        const bool isOptional = text.front() == '[';
        if (isOptional) text = text.substr(1, text.size() - 2);
        places.push_back({text, isOptional});
    }
    return places;
}

bool Fits(const TPlace& place, const String& word) {
    return IsValueKind(place.Text) ? IsOfKind(place.Text, word) : IsOneOf(place.Text, word);
}

} // namespace

Integer TScriptArguments::Number(std::size_t place) const {
    return ToIntegerOr(Word(place), 0);
}

std::optional<std::vector<String>> ScriptWords(StringView line) {
    std::vector<String> words;
    for (std::size_t at = 0; at < line.size();) {
        if (IsBlank(line[at])) {
            ++at;
            continue;
        }
        if (line[at] == CommentMark) break;
        String& word = words.emplace_back();
        bool isQuoted = false;
        for (; at < line.size() && (isQuoted || !IsBlank(line[at])); ++at) {
            if (line[at] == QuotationMark) {
                isQuoted = !isQuoted;
            } else {
                word += line[at];
            }
        }
        if (isQuoted) return std::nullopt;
    }
    return words;
}

class TScriptMatcher {
public:
    static std::optional<TScriptArguments> Match(const std::vector<TPlace>& places,
                                                 const std::vector<String>& words) {
        TScriptArguments arguments;
        std::size_t next = 0;
        for (std::size_t index = 0; index < places.size(); ++index) {
            const bool isTaken =
                next < words.size() && Fits(places[index], words[next]) &&
                !(places[index].IsOptional && IsNamedLater(places, index, words[next]));
            if (!isTaken && !places[index].IsOptional) return std::nullopt;
            arguments.FWords.push_back(isTaken ? std::optional(words[next++]) : std::nullopt);
        }
        if (next < words.size()) return std::nullopt;
        return arguments;
    }

private:
    static bool IsNamedLater(const std::vector<TPlace>& places, std::size_t index,
                             const String& word) {
        return std::any_of(places.begin() + static_cast<std::ptrdiff_t>(index) + 1, places.end(),
                           [&](const TPlace& later) {
                               return !IsValueKind(later.Text) && IsOneOf(later.Text, word);
                           });
    }
};

std::optional<TScriptArguments> MatchPattern(std::string_view pattern,
                                             const std::vector<String>& words) {
    return TScriptMatcher::Match(PlacesOf(pattern), words);
}

bool MatchesFirstWord(std::string_view pattern, const String& word) {
    return Fits(PlacesOf(pattern).front(), word);
}

} // namespace quorin
