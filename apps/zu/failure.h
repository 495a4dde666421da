#pragma once

#include <stdexcept>

namespace zu::app {

/// Something was not found or failed: the program prints why and ends with status 1.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The drawing's file has changed since it was opened; nothing was saved.
class FileChanged : public Failure {
public:
    using Failure::Failure;
};

/// The command line is invalid: the program prints why and ends with status 2.
class WrongUsage : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace zu::app
