#pragma once

#include <stdexcept>

namespace zu::app {

/// What was asked for was not found or failed: the program says why and ends with status 1.
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The drawing's file is not what it was when it was opened; nothing was saved.
class FileChanged : public Failure {
public:
    using Failure::Failure;
};

/// The call itself makes no sense: the program says why and ends with status 2.
class WrongUsage : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace zu::app
