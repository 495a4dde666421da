#pragma once

#include "keywords.h"

#include "adsdef.h"

#include <functional>
#include <string>

namespace zuhost {

/// What acedInitGet set for one input function.
struct InputRequest {
    int flags = 0;
    Keywords keywords;
};

/// Returns the request and resets it: it is for one function only.
InputRequest takeInputRequest();

/// Prints the prompt, takes the answer and prints it. RTNORM with the answer in `text`, which may be empty,
/// or RTCAN.
int takeAnswer(const ACHAR* prompt, bool wholeLine, std::wstring& text);

/// Interprets an answer. Returns null when it took the value, else why it can't, for the user.
using AnswerReader = std::function<const ACHAR*(const std::wstring& text)>;

/// Prompts until an answer can be read, is a keyword or empty, or the input ends; returns the code of the
/// input function.
int ask(const ACHAR* prompt, const InputRequest& request, const AnswerReader& read);

/// Returns why the flags refuse the number; null when they don't.
const ACHAR* refusal(double value, int flags);

/// Sets the keyword that acedGetInput returns.
void setLastKeyword(std::wstring keyword);

} // namespace zuhost
