#include "condition_tokens.h"

#include "frame/text_view.h"

#include <afxstr.h>

#include <algorithm>
#include <array>

namespace zu {

namespace {

using Kind = ConditionToken::Kind;

constexpr std::wstring_view kBlanks = L" \t\r\n\u3000";
constexpr std::wstring_view kWordEnds = L" \t\r\n\u3000=!<>()'\"";

struct Symbol {
    std::wstring_view text;
    Kind kind;
    Operator op = Operator::equal;
};

/// A symbol stands before the shorter ones that it begins with.
constexpr std::array kSymbols{
    Symbol{L"!=", Kind::comparison, Operator::notEqual},
    Symbol{L"<=", Kind::comparison, Operator::lessOrEqual},
    Symbol{L">=", Kind::comparison, Operator::greaterOrEqual},
    Symbol{L"=", Kind::comparison, Operator::equal},
    Symbol{L"<", Kind::comparison, Operator::less},
    Symbol{L">", Kind::comparison, Operator::greater},
    Symbol{L"(", Kind::opening},
    Symbol{L")", Kind::closing},
};

constexpr std::array kWords{
    Symbol{L"and", Kind::conjunction},
    Symbol{L"or", Kind::disjunction},
    Symbol{L"not", Kind::negation},
};

class Tokenizer {
public:
    explicit Tokenizer(std::wstring_view text) : text_(text) {}

    ConditionToken next() {
        place_ = std::min(text_.find_first_not_of(kBlanks, place_), text_.size());
        if (place_ == text_.size())
            return {Kind::end, place_, {}};
        for (const Symbol& symbol : kSymbols)
            if (rest().starts_with(symbol.text))
                return {symbol.kind, advance(symbol.text.size()), {}, symbol.op};
        if (text_[place_] == L'\'' || text_[place_] == L'"')
            return quoted();
        const std::size_t length = std::min(rest().find_first_of(kWordEnds), rest().size());
        return length == 0 ? ConditionToken{Kind::unknown, place_, {}} : word(rest().substr(0, length));
    }

private:
    [[nodiscard]] std::wstring_view rest() const { return text_.substr(place_); }

    /// Returns the place before.
    std::size_t advance(std::size_t count) {
        const std::size_t before = place_;
        place_ += count;
        return before;
    }

    ConditionToken word(std::wstring_view text) {
        const CString wanted = zu::textOf(text);
        const auto* const found = std::find_if(kWords.begin(), kWords.end(), [&](const Symbol& symbol) {
            return wanted.CompareNoCase(symbol.text.data()) == 0;
        });
        return {found != kWords.end() ? found->kind : Kind::text, advance(text.size()), std::wstring(text)};
    }

    ConditionToken quoted() {
        ConditionToken token{Kind::text, place_, {}};
        const wchar_t quote = text_[place_];
        for (;;) {
            const std::size_t end = text_.find(quote, place_ + 1);
            if (end == std::wstring_view::npos)
                return {Kind::unclosedQuote, token.place, {}};
            token.text += text_.substr(place_ + 1, end - place_ - 1);
            place_ = end + 1;
            if (!rest().starts_with(quote))
                return token;
            token.text += quote;
        }
    }

    std::wstring_view text_;
    std::size_t place_ = 0;
};

} // namespace

std::vector<ConditionToken> conditionTokens(std::wstring_view text) {
    Tokenizer tokenizer(text);
    std::vector<ConditionToken> tokens;
    do
        tokens.push_back(tokenizer.next());
    while (tokens.back().kind != Kind::end && tokens.back().kind != Kind::unclosedQuote &&
           tokens.back().kind != Kind::unknown);
    return tokens;
}

} // namespace zu
