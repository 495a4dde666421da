#pragma once

#include "test_drawing.h"

#include <span>

/// One row of a table of idioms: its line, and its code, which returns whether the values are as expected.
struct Idiom {
    int line;
    bool (*run)();
};

/// Runs every row, each on a new drawing that is the working database.
inline void expectAll(const char* file, std::span<const Idiom> idioms) {
    for (const Idiom& idiom : idioms) {
        if (idiom.run == nullptr)
            continue;
        const TestDrawing drawing;
        EXPECT_TRUE(idiom.run()) << file << ':' << idiom.line;
    }
}
