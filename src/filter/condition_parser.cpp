#include <zucomn/model/filter.h>

#include "condition.h"
#include "condition_tokens.h"
#include "frame/plain_number.h"
#include "frame/text_view.h"

#include <afxstr.h>

#include <utility>

namespace zu {

namespace {

using Kind = ConditionToken::Kind;

/// Limits the recursion on conditions of hostile length.
constexpr int kDeepestNesting = 100;

constexpr const wchar_t* kExpectedAttributeId = L"expected an attribute id such as S501, \"not\" or \"(\"";
constexpr const wchar_t* kExpectedOperator = L"expected one of = != < <= > >=";
constexpr const wchar_t* kExpectedValue =
    L"expected a text or a number; quote a text that holds blanks or operators";
constexpr const wchar_t* kExpectedConnective = L"expected \"and\" or \"or\"; quote a text that holds blanks";
constexpr const wchar_t* kExpectedConnectiveOrParenthesis = L"expected \"and\", \"or\" or \")\"";
constexpr const wchar_t* kUnclosedQuote = L"the quote is not closed";
constexpr const wchar_t* kNestedTooDeeply = L"parentheses are nested too deeply (more than 100)";

/// Parses by recursive descent. The first error ends the parsing.
class ConditionParser {
public:
    explicit ConditionParser(std::wstring_view text) : tokens_(conditionTokens(text)) {}

    zucomn::ParsedCondition parse() {
        if (token().kind == Kind::end)
            return {};
        if (disjunction() && token().kind != Kind::end)
            fail(kExpectedConnective);
        if (error_)
            return {nullptr, std::move(error_)};
        return {std::make_shared<const Condition>(std::move(condition_)), std::nullopt};
    }

private:
    [[nodiscard]] const ConditionToken& token() const { return tokens_[next_]; }

    bool accept(Kind kind) {
        if (token().kind != kind)
            return false;
        ++next_;
        return true;
    }

    bool fail(const wchar_t* problem) {
        error_ = {token().place, token().kind == Kind::unclosedQuote ? kUnclosedQuote : problem};
        return false;
    }

    bool disjunction() {
        if (!conjunction())
            return false;
        while (accept(Kind::disjunction)) {
            if (!conjunction())
                return false;
            condition_.steps.emplace_back(Connective::disjunction);
        }
        return true;
    }

    bool conjunction() {
        if (!operand())
            return false;
        while (accept(Kind::conjunction)) {
            if (!operand())
                return false;
            condition_.steps.emplace_back(Connective::conjunction);
        }
        return true;
    }

    bool operand() {
        bool isNegated = false;
        while (accept(Kind::negation))
            isNegated = !isNegated;
        if (token().kind == Kind::opening ? !nested() : !comparison())
            return false;
        if (isNegated)
            condition_.steps.emplace_back(Connective::negation);
        return true;
    }

    bool nested() {
        if (depth_ == kDeepestNesting)
            return fail(kNestedTooDeeply);
        ++depth_;
        ++next_;
        if (!disjunction())
            return false;
        --depth_;
        return accept(Kind::closing) || fail(kExpectedConnectiveOrParenthesis);
    }

    bool comparison() {
        Comparison comparison;
        if (token().kind != Kind::text || token().text.empty())
            return fail(kExpectedAttributeId);
        comparison.attribute = tokens_[next_++].text;
        if (token().kind != Kind::comparison)
            return fail(kExpectedOperator);
        comparison.op = tokens_[next_++].op;
        if (token().kind != Kind::text)
            return fail(kExpectedValue);
        comparison.text = std::wstring(zu::view(zu::textOf(tokens_[next_++].text).Trim(L" \t\u3000")));
        comparison.number = plainNumber(comparison.text);
        condition_.steps.emplace_back(std::move(comparison));
        return true;
    }

    std::vector<ConditionToken> tokens_;
    std::size_t next_ = 0;
    int depth_ = 0;
    Condition condition_;
    std::optional<zucomn::ConditionError> error_;
};

} // namespace

} // namespace zu

zucomn::ParsedCondition zucomn::parseCondition(std::wstring_view text) {
    return zu::ConditionParser(text).parse();
}
