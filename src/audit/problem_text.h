#pragma once

#include <dbid.h>
#include <gepnt3d.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace zu {

/// A length in the text of a problem, rounded to 0.001.
struct Rounded {
    double value;
};

/// Composes the text of a problem in one piece: damaged drawings have many.
class ProblemText {
public:
    ProblemText() { text_.reserve(kUsualLength); }

    ProblemText& operator<<(std::wstring_view text) {
        text_ += text;
        return *this;
    }
    ProblemText& operator<<(int number);
    ProblemText& operator<<(Rounded number);
    ProblemText& operator<<(AcDbObjectId object);      ///< Its handle.
    ProblemText& operator<<(const AcGePoint3d& place); ///< In plan, rounded.

    [[nodiscard]] std::wstring take() { return std::move(text_); }

private:
    static constexpr std::size_t kUsualLength = 80;

    std::wstring text_;
};

} // namespace zu
