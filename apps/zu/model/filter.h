#pragma once

#include "model/drawing_file.h"

#include <zucomn/model/filter.h>

#include <span>
#include <string>
#include <vector>

namespace zu::app {

/// The filter options of a command, as given.
struct FilterOptions {
    std::string layers;
    std::string blocks;
    std::vector<std::string> kinds;
    std::string group;
    std::string where;

    [[nodiscard]] bool isGiven() const;
};

/// Adds --layer, --block, --kind, --group and --where.
void addFilter(Command& command, FilterOptions& options);

/// Adds --layer, --block and --where, for a command that gives --kind and --group a meaning of its own.
void addNarrowFilter(Command& command, FilterOptions& options);

/// The elements that a command works on. Construct it before opening the drawing.
class Filter {
public:
    /// Throws WrongUsage when a condition or a kind cannot be parsed.
    explicit Filter(const FilterOptions& options);

    /// Returns the filter of the library. Throws Failure when the drawing has no such group.
    [[nodiscard]] zucomn::ElementFilter in(const DrawingFile& drawing) const;
    /// Returns those of the elements that pass, in their order. Throws as `in`.
    [[nodiscard]] std::vector<AcDbObjectId> pass(const DrawingFile& drawing,
                                                 std::span<const AcDbObjectId> elements) const;
    /// Returns the block references of model space that pass, in drawing order.
    [[nodiscard]] std::vector<AcDbObjectId> references(const DrawingFile& drawing) const;

private:
    zucomn::ElementFilter filter_;
    std::string group_;
};

} // namespace zu::app
