#include "afxcoll.h"

struct CObList::Node {
    CObject* object;
    Node* previous;
    Node* next;
};

CObList::Node* CObList::node(POSITION position) {
    return reinterpret_cast<Node*>(position);
}
POSITION CObList::position(Node* node) {
    return reinterpret_cast<POSITION>(node);
}

CObList::~CObList() {
    RemoveAll();
}

CObList::Node* CObList::insert(Node* before, CObject* object) {
    Node* previous = before != nullptr ? before->previous : tail_;
    Node* created = new Node{object, previous, before};
    (previous != nullptr ? previous->next : head_) = created;
    (before != nullptr ? before->previous : tail_) = created;
    ++count_;
    return created;
}

CObject* CObList::remove(Node* removed) {
    if (removed == nullptr)
        AfxThrowInvalidArgException();
    const std::unique_ptr<Node> owner(removed);
    (removed->previous != nullptr ? removed->previous->next : head_) = removed->next;
    (removed->next != nullptr ? removed->next->previous : tail_) = removed->previous;
    --count_;
    return removed->object;
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
    return position(insert(nullptr, object));
}

void CObList::RemoveAll() {
    for (Node* n = head_; n != nullptr;) {
        const std::unique_ptr<Node> owner(n);
        n = n->next;
    }
    head_ = tail_ = nullptr;
    count_ = 0;
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
