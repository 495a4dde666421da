#pragma once

#include <stdexcept>
#include <string>

namespace zu::app {

/// Something was not found or failed: the program prints why and ends with kStatus.
class Failure : public std::runtime_error {
public:
    static constexpr int kStatus = 1;
    using std::runtime_error::runtime_error;
};

/// The drawing's file has changed since it was opened; nothing was saved.
class FileChanged : public Failure {
public:
    using Failure::Failure;
};

/// The command line is invalid: the program prints why and ends with kStatus.
class WrongUsage : public std::runtime_error {
public:
    static constexpr int kStatus = 2;
    using std::runtime_error::runtime_error;
};

/// The command did its work, and its result asks for a status of its own, without a message or with one.
class EndWithStatus : public std::runtime_error {
public:
    explicit EndWithStatus(int status, const std::string& message = {})
        : std::runtime_error(message), status_(status) {}

    [[nodiscard]] int status() const { return status_; }

private:
    int status_;
};

} // namespace zu::app
