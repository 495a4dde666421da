#include "differences.h"

#include <zucomn/model/elements.h>
#include <zucomn/model/joints.h>

#include <algorithm>

namespace zu {

namespace {

using zucomn::Joint;

/// Elements that are recorded as joined at one point; more of them are damage.
constexpr std::size_t kMostJoined = 16;

struct JointHash {
    std::size_t operator()(const Joint& joint) const noexcept {
        const std::hash<AcDbObjectId> hash;
        return hash(joint.first) * 31 + hash(joint.second);
    }
};
using Joints = std::unordered_set<Joint, JointHash>;

/// The same for both orders of the elements.
Joint unordered(const Joint& joint) {
    return joint.second < joint.first ? Joint(joint.second, joint.first) : joint;
}

/// Returns each pair of joined elements once, in drawing order.
std::vector<Joint> jointsOf(const AcDbDatabase& drawing) {
    const std::vector<AcDbObjectId> elements = zucomn::modelSpaceReferences(drawing);
    std::unordered_map<AcDbObjectId, std::size_t> ranks;
    for (const AcDbObjectId id : elements)
        ranks.emplace(id, ranks.size());
    const std::vector<zucomn::ConnectionPoint> points = zucomn::connectionPoints(elements);
    const auto joined = zucomn::joinedElements(points, kMostJoined);
    std::vector<Joint> joints;
    Joints known;
    for (std::size_t i = 0; i < points.size(); ++i)
        for (const AcDbObjectId other : joined[i]) {
            Joint joint(points[i].element, other);
            if (ranks.at(joint.second) < ranks.at(joint.first))
                std::swap(joint.first, joint.second);
            if (known.insert(joint).second)
                joints.push_back(joint);
        }
    std::sort(joints.begin(), joints.end(), [&](const Joint& a, const Joint& b) {
        return std::pair(ranks.at(a.first), ranks.at(a.second)) <
               std::pair(ranks.at(b.first), ranks.at(b.second));
    });
    return joints;
}

} // namespace

void compareJoints(const AcDbDatabase& before, const AcDbDatabase& after, const EntityPairs& pairs,
                   zucomn::DrawingDifferences& differences) {
    const std::vector<Joint> now = jointsOf(after);
    Joints kept;
    for (const Joint& joint : now)
        kept.insert(unordered(joint));
    Joints old;
    for (const Joint& joint : jointsOf(before)) {
        const Joint named(pairs.named(joint.first), pairs.named(joint.second));
        old.insert(unordered(named));
        if (!kept.contains(unordered(named)))
            differences.broken.push_back(named);
    }
    for (const Joint& joint : now)
        if (!old.contains(unordered(joint)))
            differences.made.push_back(joint);
}

} // namespace zu
