#pragma once

#include "zuhost/input.h"

#include <deque>
#include <string>
#include <vector>

namespace zuhost {

/// One answer to a prompt.
struct Reply {
    enum class Kind { text, cancel, end };

    Kind kind = Kind::end;
    std::wstring text; ///< Empty for a plain Enter.
};

/// What the user typed and no command has used yet. A command that acedCommandS runs has replies of its own,
/// the innermost call's first; all others read the queue, then the input source.
class InputQueue {
public:
    static InputQueue& instance();

    void append(std::wstring_view text) { text_ += text; }
    void clear();
    [[nodiscard]] const std::wstring& pending();

    /// Returns the name of the next command of the queue and removes it with the blank or line end that
    /// terminates it; empty at the end.
    std::wstring takeCommand();
    /// Returns the next word, after removing the blanks before it, but does not ask the source; empty at the
    /// end.
    [[nodiscard]] std::wstring_view nextWord();
    void takeWord();
    /// Takes the answer to a prompt, which ends with a blank or a line end; with `wholeLine` only with a line
    /// end. An expression in parentheses may hold blanks.
    Reply takeReply(bool wholeLine);

    /// Sets the source of further lines and returns the previous one.
    InputSource setSource(InputSource source);

    /// The replies of a command that acedCommandS runs.
    using Replies = std::deque<std::wstring>;
    void pushReplies(Replies replies) { nested_.push_back(std::move(replies)); }
    /// Takes the next of the innermost replies as a command's name; nullopt at their end.
    std::optional<std::wstring> takeNestedCommand();
    /// Removes the innermost replies; returns true when a prompt found none left.
    bool popReplies();
    [[nodiscard]] bool isNested() const { return !nested_.empty(); }
    [[nodiscard]] std::size_t depth() const { return nested_.size(); }

private:
    /// Returns false when there is no more text.
    bool fill();
    [[nodiscard]] std::wstring_view left() const { return std::wstring_view(text_).substr(at_); }
    /// Removes characters and the single separator after them.
    void consume(std::size_t size);

    std::wstring text_;
    std::size_t at_ = 0; ///< Where the text that is left begins.
    std::vector<Replies> nested_;
    bool ranOut_ = false;
    InputSource source_;
};

} // namespace zuhost
