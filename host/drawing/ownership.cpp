#include "ownership.h"

#include "object_tags.h"

#include <unordered_map>
#include <unordered_set>

namespace zuhost {
namespace {

std::string upperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper)
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return upper;
}

/// Finds the owner of the entities of a block. Filled on first use, because few drawings need it.
class BlockOwners {
public:
    explicit BlockOwners(const DrawingState& state) : state_(state) {}

    AcDbStub* ownerOf(const Container& block) {
        fill();
        const auto record = records_.find(upperCase(block.name));
        return record != records_.end() ? record->second : block.head;
    }

    AcDbStub* ownerOfSpace(bool paper) {
        for (const Container& container : state_.containers) {
            if (container.kind != Container::Kind::block)
                continue;
            const std::string name = upperCase(container.name).substr(container.name.empty() ? 0 : 1);
            if (name == (paper ? "PAPER_SPACE" : "MODEL_SPACE"))
                return ownerOf(container);
        }
        return nullptr;
    }

private:
    void fill() {
        if (filled_)
            return;
        filled_ = true;
        for (const Container& container : state_.containers)
            if (container.kind == Container::Kind::table && container.name == "BLOCK_RECORD")
                for (AcDbStub* member : container.members)
                    addRecord(member);
    }

    void addRecord(AcDbStub* record) {
        if (const auto name = objectView(state_, *record).text(2))
            records_.emplace(upperCase(*name), record);
    }

    const DrawingState& state_;
    bool filled_ = false;
    std::unordered_map<std::string, AcDbStub*> records_;
};

class OwnerResolver {
public:
    OwnerResolver(DrawingState& state, const std::vector<OwnerHint>& hints)
        : state_(state), hints_(hints), blocks_(state) {}

    void run() {
        resolveByHandle();
        for (Container& container : state_.containers)
            complete(container);
    }

private:
    void resolveByHandle() {
        std::uint64_t lastHandle = 0;
        AcDbStub* lastOwner = nullptr;
        std::size_t i = 0;
        for (AcDbStub& stub : state_.stubs) {
            const OwnerHint& hint = hints_[i++];
            if (hint.inPaperSpace)
                inPaperSpace_.insert(&stub);
            if (stub.owner || hint.handle == 0)
                continue;
            // Neighbours usually have the same owner.
            if (hint.handle != lastHandle) {
                lastHandle = hint.handle;
                lastOwner = state_.handles.find(hint.handle);
            }
            stub.owner = lastOwner;
        }
    }

    void complete(Container& container) {
        switch (container.kind) {
        case Container::Kind::table:
            for (AcDbStub* member : container.members)
                if (!member->owner)
                    member->owner = container.head;
            break;
        case Container::Kind::block:
            completeBlock(container);
            break;
        case Container::Kind::entities:
            completeEntities(container);
            break;
        case Container::Kind::objects:
            break;
        }
    }

    void completeBlock(Container& block) {
        AcDbStub* owner = block.head->owner;
        if (!owner) {
            owner = blocks_.ownerOf(block);
            block.head->owner = owner == block.head ? nullptr : owner;
        }
        if (block.tail && !block.tail->owner)
            block.tail->owner = block.head->owner;
        for (AcDbStub* member : block.members)
            if (!member->owner)
                member->owner = owner;
    }

    void completeEntities(Container& entities) {
        AcDbStub* spaces[2] = {nullptr, nullptr};
        bool known[2] = {false, false};
        for (AcDbStub* member : entities.members) {
            if (member->owner)
                continue;
            const bool paper = inPaperSpace_.contains(member);
            if (!known[paper]) {
                spaces[paper] = blocks_.ownerOfSpace(paper);
                known[paper] = true;
            }
            member->owner = spaces[paper];
            if (!member->owner && !paper)
                state_.spaceless.push_back(member);
        }
    }

    DrawingState& state_;
    const std::vector<OwnerHint>& hints_;
    BlockOwners blocks_;
    std::unordered_set<const AcDbStub*> inPaperSpace_;
};

} // namespace

void resolveOwners(DrawingState& state, const std::vector<OwnerHint>& hints) {
    OwnerResolver(state, hints).run();
}

} // namespace zuhost
