#include <zucomn/model/filter.h>

#include "condition.h"
#include "condition_tokens.h"
#include "frame/library_text.h"
#include "frame/plain_number.h"
#include "frame/resource_ids.h"

#include <afxstr.h>

#include <utility>

namespace zu {

namespace {

using Kind = ConditionToken::Kind;

/// Limits the recursion on conditions of hostile length.
constexpr int kDeepestNesting = 100;

/// Parses by recursive descent. The first error ends the parsing.
class ConditionParser {
public:
    explicit ConditionParser(std::wstring_view text) : tokens_(conditionTokens(text)) {}

    zucomn::ParsedCondition parse() {
        if (token().kind == Kind::end)
            return {};
        if (disjunction() && token().kind != Kind::end)
            fail(text::kExpectedConnective);
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

    bool fail(unsigned problem) {
        const unsigned id = token().kind == Kind::unclosedQuote ? text::kUnclosedQuote : problem;
        error_ = {token().place, std::wstring(libraryText(id).view())};
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
            return fail(text::kNestedTooDeeply);
        ++depth_;
        ++next_;
        if (!disjunction())
            return false;
        --depth_;
        return accept(Kind::closing) || fail(text::kExpectedConnectiveOrParenthesis);
    }

    bool comparison() {
        Comparison comparison;
        if (token().kind != Kind::text || token().text.empty())
            return fail(text::kExpectedAttributeId);
        comparison.attribute = tokens_[next_++].text;
        if (token().kind != Kind::comparison)
            return fail(text::kExpectedOperator);
        comparison.op = tokens_[next_++].op;
        if (token().kind != Kind::text)
            return fail(text::kExpectedValue);
        comparison.text = std::wstring(CString(tokens_[next_++].text).Trim(L" \t\u3000").view());
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
