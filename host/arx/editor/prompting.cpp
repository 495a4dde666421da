#include "prompting.h"

#include "acedads.h"
#include "input_queue.h"

#include <utility>

namespace zuhost {

namespace {

constexpr int kKnownFlags = 0xFFFF;
/// After so many answers without use the input is taken for endless.
constexpr int kMaxRejected = 100;

InputRequest& nextRequest() {
    static InputRequest request;
    return request;
}

std::wstring& lastKeyword() {
    static std::wstring keyword;
    return keyword;
}

int keywordEntered(std::wstring keyword) {
    setLastKeyword(std::move(keyword));
    return RTKWORD;
}

} // namespace

InputRequest takeInputRequest() {
    return std::exchange(nextRequest(), {});
}

int takeAnswer(const ACHAR* prompt, bool wholeLine, std::wstring& text) {
    if (prompt != nullptr)
        printToCommandLine(prompt);
    Reply reply = InputQueue::instance().takeReply(wholeLine);
    const bool answered = reply.kind == Reply::Kind::text;
    printToCommandLine(answered ? reply.text + L"\n" : L"*Cancel*\n");
    text = std::move(reply.text);
    return answered ? RTNORM : RTCAN;
}

int ask(const ACHAR* prompt, const InputRequest& request, const AnswerReader& read) {
    for (int rejected = 0; rejected < kMaxRejected; ++rejected) {
        std::wstring text;
        if (takeAnswer(prompt, false, text) != RTNORM)
            return RTCAN;
        if (text.empty() && (request.flags & RSG_NONULL) == 0)
            return RTNONE;
        if (auto keyword = request.keywords.find(text))
            return keywordEntered(std::move(*keyword));
        const ACHAR* const problem = text.empty() ? L"A value is required.\n" : read(text);
        if (problem == nullptr)
            return RTNORM;
        if (!text.empty() && (request.flags & RSG_OTHER) != 0)
            return keywordEntered(std::move(text));
        printToCommandLine(problem);
    }
    printToCommandLine(L"Too many invalid answers.\n");
    return RTERROR;
}

const ACHAR* refusal(double value, int flags) {
    if (value == 0.0 && (flags & RSG_NOZERO) != 0)
        return L"The value must not be zero.\n";
    return value < 0.0 && (flags & RSG_NONEG) != 0 ? L"The value must not be negative.\n" : nullptr;
}

void setLastKeyword(std::wstring keyword) {
    lastKeyword() = std::move(keyword);
}

} // namespace zuhost

int acedInitGet(int flags, const ACHAR* keywords) {
    zuhost::nextRequest() = {};
    if (flags < 0 || flags > zuhost::kKnownFlags)
        return RTERROR;
    zuhost::nextRequest() = {flags, zuhost::Keywords(keywords != nullptr ? keywords : L"")};
    return RTNORM;
}

int acedGetInput(ACHAR* keyword, std::size_t size) {
    return zuhost::copyToBuffer(zuhost::lastKeyword(), keyword, size) ? RTNORM : RTERROR;
}
