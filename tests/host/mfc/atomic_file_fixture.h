#pragma once

#include "temporary_folder.h"

#include <zuhost/atomic_file.h>
#include <zuhost/file_ops.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <functional>

inline std::size_t filesIn(const TemporaryFolder& folder) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder.path()),
                                                  std::filesystem::directory_iterator()));
}

/// Runs `at` before each operation with its number, from 1, on a system with or without unnamed files.
inline zuhost::file_ops::Interceptor counting(bool unnamedFiles, std::function<int(std::uint64_t n)> at) {
    return [unnamedFiles, at = std::move(at), n = std::uint64_t{0}](zuhost::file_ops::Operation operation,
                                                                    const std::string&) mutable {
        const bool isLacking = !unnamedFiles && operation == zuhost::file_ops::Operation::openUnnamed;
        return isLacking ? EOPNOTSUPP : at(++n);
    };
}

class AtomicFile : public testing::TestWithParam<bool> {
protected:
    int replace(const std::string& bytes, std::function<int(std::uint64_t)> at) const {
        const zuhost::file_ops::Interception interception(counting(GetParam(), std::move(at)));
        return zuhost::replaceFile(path, bytes);
    }
    int replace(const std::string& bytes) const {
        return replace(bytes, [](std::uint64_t) { return 0; });
    }

    TemporaryFolder folder;
    std::string path = folder.write("f", "old");
};
