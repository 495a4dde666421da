#include "input_queue.h"

#include <algorithm>
#include <utility>

namespace zuhost {

namespace {

constexpr const wchar_t* kSeparators = L" \t\r\n";
constexpr const wchar_t* kLineEnds = L"\r\n";
constexpr const wchar_t* kBeforeCommands = L" \t\r\n\x03\x1b"; // cancelling without a command has no effect

bool isCancel(wchar_t c) {
    return c == L'\x03' || c == L'\x1b'; // Ctrl-C and Escape
}

/// Returns the size of the expression in parentheses at the start of the text; 0 when it is not closed.
std::size_t expressionSize(std::wstring_view text) {
    int depth = 0;
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'"')
            quoted = !quoted;
        else if (!quoted && text[i] == L'(')
            ++depth;
        else if (!quoted && text[i] == L')' && --depth == 0)
            return i + 1;
    }
    return 0;
}

std::size_t replySize(std::wstring_view text, bool wholeLine) {
    const std::size_t expression = !wholeLine && text.starts_with(L'(') ? expressionSize(text) : 0;
    return expression != 0 ? expression : text.find_first_of(wholeLine ? kLineEnds : kSeparators);
}

Reply asReply(std::wstring text) {
    Reply reply{Reply::Kind::text, std::move(text)};
    if (!reply.text.empty() && isCancel(reply.text.front()))
        reply.kind = Reply::Kind::cancel;
    return reply;
}

} // namespace

InputQueue& InputQueue::instance() {
    static auto* const queue = new InputQueue;
    return *queue;
}

void InputQueue::clear() {
    text_.clear();
    at_ = 0;
}

const std::wstring& InputQueue::pending() {
    text_.erase(0, std::exchange(at_, 0));
    return text_;
}

bool InputQueue::fill() {
    if (at_ < text_.size())
        return true;
    clear();
    const auto line = source_ ? source_() : std::nullopt;
    if (line)
        text_ = *line + L'\n';
    return line.has_value();
}

void InputQueue::consume(std::size_t size) {
    at_ += size;
    const bool pair = left().starts_with(L"\r\n");
    if (at_ < text_.size() && std::wstring_view(kSeparators).find(text_[at_]) != std::wstring_view::npos)
        at_ += pair ? 2 : 1;
}

std::wstring InputQueue::takeCommand() {
    at_ = std::min(text_.find_first_not_of(kBeforeCommands, at_), text_.size());
    std::wstring word(left().substr(0, left().find_first_of(kSeparators)));
    consume(word.size());
    return word;
}

std::wstring_view InputQueue::nextWord() {
    if (isNested())
        return nested_.back().empty() ? std::wstring_view() : nested_.back().front();
    at_ = std::min(text_.find_first_not_of(kSeparators, at_), text_.size());
    return left().substr(0, left().find_first_of(kSeparators));
}

void InputQueue::takeWord() {
    const std::size_t size = nextWord().size();
    if (!isNested())
        consume(size);
    else if (!nested_.back().empty())
        nested_.back().pop_front();
}

Reply InputQueue::takeReply(bool wholeLine) {
    if (!nested_.empty()) {
        Replies& replies = nested_.back();
        if (replies.empty()) {
            ranOut_ = true;
            return {};
        }
        std::wstring text = std::move(replies.front());
        replies.pop_front();
        return asReply(std::move(text));
    }
    if (!fill())
        return {};
    if (isCancel(left().front())) {
        ++at_;
        return {Reply::Kind::cancel, {}};
    }
    std::wstring text(left().substr(0, replySize(left(), wholeLine)));
    consume(text.size());
    return asReply(std::move(text));
}

InputSource InputQueue::setSource(InputSource source) {
    return std::exchange(source_, std::move(source));
}

std::optional<std::wstring> InputQueue::takeNestedCommand() {
    Replies& replies = nested_.back();
    while (!replies.empty()) {
        std::wstring word = std::move(replies.front());
        replies.pop_front();
        if (!word.empty())
            return word;
    }
    return std::nullopt;
}

bool InputQueue::popReplies() {
    nested_.pop_back();
    return std::exchange(ranOut_, false);
}

InputSource setInputSource(InputSource source) {
    return InputQueue::instance().setSource(std::move(source));
}

} // namespace zuhost
