#pragma once

#include "adsdef.h"
#include "dbid.h"

#include <string>
#include <vector>

namespace zuhost {

/// A filter of acedSSGet.
class SelectionFilter {
public:
    /// Keeps a pointer to the chain, which must live as long; null admits all.
    explicit SelectionFilter(const resbuf* chain);

    /// Returns false when the groups of the filter do not match, or an operator is unknown.
    [[nodiscard]] bool isValid() const { return isValid_; }
    /// Returns whether the entity, in model space or not, passes.
    [[nodiscard]] bool admits(AcDbObjectId entity) const;

private:
    enum class Group { all, any, one, none };

    /// A test of a value, or a group of nodes.
    struct Node {
        const resbuf* item = nullptr; ///< Null for a group.
        std::wstring relation;        ///< Empty for equality with wildcards.
        Group group = Group::all;
        std::vector<Node> nodes;
    };
    struct Subject;

    bool parse(const resbuf*& item, Node& group, const std::wstring& end, int depth);
    bool parseItem(const resbuf*& item, Node& group, std::wstring& relation);
    static bool passes(const Node& node, const Subject& subject);
    static bool passesTest(const Node& test, const Subject& subject);

    Node root_;
    bool isValid_ = false;
};

} // namespace zuhost
