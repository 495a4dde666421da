#pragma once

#include <cstddef>
#include <string>

namespace zuhost {

/// Lives while a command runs: locks the current document.
class CommandLock {
public:
    explicit CommandLock(const wchar_t* command);
    ~CommandLock();
    CommandLock(const CommandLock&) = delete;
    CommandLock& operator=(const CommandLock&) = delete;

private:
    std::size_t depth_; ///< Number of locks outside this one.
    std::wstring command_;
};

} // namespace zuhost
