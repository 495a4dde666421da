#include "afxcoll.h"

#include <algorithm>

struct CObList::Node {
    CObject* object;
    Node* previous;
    Node* next;
};

namespace {

/// Returns the nodes of the next block: doubles their number in small blocks; long lists use blocks on pages.
int nextBlock(int allocated, std::size_t nodeSize) {
    constexpr int kFirst = 4;
    constexpr int kMostOfSmallBlock = 4096;
    constexpr std::size_t kManyBytes = std::size_t{384} * 1024;
    constexpr std::size_t kBlockOnPages = std::size_t{127} * 1024;
    if (static_cast<std::size_t>(allocated) * nodeSize >= kManyBytes)
        return static_cast<int>(kBlockOnPages / nodeSize);
    return std::clamp(allocated, kFirst, kMostOfSmallBlock);
}

} // namespace

CObList::Node* CObList::node(POSITION position) {
    return reinterpret_cast<Node*>(position);
}
POSITION CObList::position(Node* node) {
    return reinterpret_cast<POSITION>(node);
}

CObList::~CObList() {
    RemoveAll();
}

CObList::Node* CObList::freeNode() {
    if (free_ != nullptr)
        return std::exchange(free_, free_->next);
    if (unused_ == 0) {
        const int count = nextBlock(allocated_, sizeof(Node));
        CPlex* const block = CPlex::Create(blocks_, static_cast<std::size_t>(count), sizeof(Node));
        fresh_ = static_cast<Node*>(block->data());
        unused_ = count;
        allocated_ += count;
    }
    --unused_;
    return fresh_++;
}

CObList::Node* CObList::insert(Node* before, CObject* object) {
    Node* previous = before != nullptr ? before->previous : tail_;
    Node* const created = ::new (freeNode()) Node{object, previous, before};
    (previous != nullptr ? previous->next : head_) = created;
    (before != nullptr ? before->previous : tail_) = created;
    ++count_;
    return created;
}

CObject* CObList::remove(Node* removed) {
    if (removed == nullptr)
        AfxThrowInvalidArgException();
    (removed->previous != nullptr ? removed->previous->next : head_) = removed->next;
    (removed->next != nullptr ? removed->next->previous : tail_) = removed->previous;
    CObject* const object = removed->object;
    if (--count_ == 0) {
        RemoveAll();
        return object;
    }
    removed->next = free_;
    free_ = removed;
    return object;
}

CObject* CObList::GetHead() const {
    return GetAt(position(head_));
}
CObject* CObList::GetTail() const {
    return GetAt(position(tail_));
}
CObject* CObList::RemoveHead() {
    return remove(head_);
}
CObject* CObList::RemoveTail() {
    return remove(tail_);
}
POSITION CObList::AddHead(CObject* object) {
    return position(insert(head_, object));
}
POSITION CObList::AddTail(CObject* object) {
    Node* const created = ::new (freeNode()) Node{object, tail_, nullptr};
    (tail_ != nullptr ? tail_->next : head_) = created;
    tail_ = created;
    ++count_;
    return position(created);
}

void CObList::RemoveAll() {
    if (blocks_ != nullptr)
        blocks_->FreeDataChain();
    blocks_ = nullptr;
    head_ = tail_ = free_ = fresh_ = nullptr;
    count_ = unused_ = allocated_ = 0;
}

POSITION CObList::GetHeadPosition() const {
    return position(head_);
}
POSITION CObList::GetTailPosition() const {
    return position(tail_);
}

CObject* CObList::GetNext(POSITION& place) const {
    CObject* object = GetAt(place);
    place = position(node(place)->next);
    return object;
}

CObject* CObList::GetPrev(POSITION& place) const {
    CObject* object = GetAt(place);
    place = position(node(place)->previous);
    return object;
}

CObject* CObList::GetAt(POSITION place) const {
    if (place == nullptr)
        AfxThrowInvalidArgException();
    return node(place)->object;
}

void CObList::SetAt(POSITION place, CObject* object) {
    if (place == nullptr)
        AfxThrowInvalidArgException();
    node(place)->object = object;
}

void CObList::RemoveAt(POSITION place) {
    remove(node(place));
}

POSITION CObList::InsertBefore(POSITION place, CObject* object) {
    return position(insert(place != nullptr ? node(place) : head_, object));
}

POSITION CObList::InsertAfter(POSITION place, CObject* object) {
    return position(insert(place != nullptr ? node(place)->next : nullptr, object));
}

POSITION CObList::Find(CObject* object, POSITION startAfter) const {
    for (Node* n = startAfter != nullptr ? node(startAfter)->next : head_; n != nullptr; n = n->next)
        if (n->object == object)
            return position(n);
    return nullptr;
}

POSITION CObList::FindIndex(int index) const {
    if (index < 0 || index >= count_)
        return nullptr;
    Node* n = head_;
    while (index-- > 0)
        n = n->next;
    return position(n);
}
