#pragma once

#include "afx.h"
#include "afxplex_.h"
#include "zuhost/element_list.h"

#include <zuhost/platform/export.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <utility>

namespace zuhost {

/// Base of the framework's arrays: indexed from 0, growing on demand. Access out of range and a negative size
/// throw the invalid-argument exception.
template <typename Element>
class FrameworkArray : public CObject {
public:
    [[nodiscard]] int GetSize() const { return items_.size(); }
    [[nodiscard]] int GetCount() const { return GetSize(); }
    [[nodiscard]] bool IsEmpty() const { return GetSize() == 0; }
    [[nodiscard]] int GetUpperBound() const { return GetSize() - 1; }

    /// A positive `growBy` reserves room for that many more elements.
    void SetSize(int size, int growBy = -1) {
        if (size < 0 || growBy > std::numeric_limits<int>::max() - size)
            AfxThrowInvalidArgException();
        if (growBy > 0)
            items_.reserve(size + growBy);
        items_.resize(size);
    }
    void RemoveAll() { items_.clear(); }
    void FreeExtra() { items_.shrink(); }

    [[nodiscard]] const Element& GetAt(int index) const { return items_.begin()[checked(index)]; }
    [[nodiscard]] Element& ElementAt(int index) { return items_.begin()[checked(index)]; }
    const Element& operator[](int index) const { return GetAt(index); }
    Element& operator[](int index) { return ElementAt(index); }
    void SetAt(int index, const Element& element) { ElementAt(index) = element; }
    void SetAtGrow(int index, Element element) {
        if (index >= GetSize() && index < std::numeric_limits<int>::max())
            SetSize(index + 1);
        ElementAt(index) = std::move(element);
    }

    /// Returns the index of the new element.
    int Add(Element element) {
        items_.add(std::move(element));
        return GetUpperBound();
    }
    /// Returns the index of the first appended element.
    int Append(const FrameworkArray& other) {
        const int first = GetSize();
        const int count = other.GetSize();
        items_.makeRoom(count);
        items_.append(other.items_.begin(), other.items_.begin() + count);
        return first;
    }
    void Copy(const FrameworkArray& other) { items_ = other.items_; }

    /// Inserts `count` copies; for an index beyond the end, first fills the gap with default elements.
    void InsertAt(int index, const Element& element, int count = 1) {
        if (index < 0 || count < 0)
            AfxThrowInvalidArgException();
        items_.insert(index, count, element);
    }
    void RemoveAt(int index, int count = 1) {
        if (index < 0 || count < 0 || index > GetSize() || count > GetSize() - index)
            AfxThrowInvalidArgException();
        items_.erase(index, count);
    }

    [[nodiscard]] const Element* GetData() const { return items_.begin(); }
    [[nodiscard]] Element* GetData() { return items_.begin(); }

protected:
    FrameworkArray() = default;
    /// Uses external memory for the first elements; see ElementList.
    FrameworkArray(void* place, int room) : items_(place, room) {}

private:
    [[nodiscard]] int checked(int index) const {
        if (index < 0 || index >= GetSize())
            AfxThrowInvalidArgException();
        return index;
    }

    ElementList<Element> items_;
};

struct FrameworkPosition;

} // namespace zuhost

class CStringArray : public zuhost::FrameworkArray<CString> {
public:
    CStringArray() = default;

protected:
    using FrameworkArray::FrameworkArray;
};
class CPtrArray : public zuhost::FrameworkArray<void*> {};
class CObArray : public zuhost::FrameworkArray<CObject*> {};
class CUIntArray : public zuhost::FrameworkArray<UINT> {};
class CDWordArray : public zuhost::FrameworkArray<DWORD> {};
class CWordArray : public zuhost::FrameworkArray<WORD> {};
class CByteArray : public zuhost::FrameworkArray<BYTE> {};

/// A position in a list; null is the end.
using POSITION = zuhost::FrameworkPosition*;

/// A doubly linked list of object pointers; it does not own the objects. Allocates its nodes in blocks, which
/// it frees when it becomes empty.
class ZUHOST_API CObList : public CObject {
public:
    CObList() = default;
    ~CObList() override;
    CObList(const CObList&) = delete;
    CObList& operator=(const CObList&) = delete;

    [[nodiscard]] int GetCount() const { return count_; }
    [[nodiscard]] int GetSize() const { return count_; }
    [[nodiscard]] BOOL IsEmpty() const { return count_ == 0 ? TRUE : FALSE; }

    /// The head and the tail of an empty list throw the invalid-argument exception.
    [[nodiscard]] CObject* GetHead() const;
    [[nodiscard]] CObject* GetTail() const;
    CObject* RemoveHead();
    CObject* RemoveTail();
    POSITION AddHead(CObject* object);
    POSITION AddTail(CObject* object);
    void RemoveAll();

    [[nodiscard]] POSITION GetHeadPosition() const;
    [[nodiscard]] POSITION GetTailPosition() const;
    /// Returns the object at the position and advances it (null after the last).
    CObject* GetNext(POSITION& position) const;
    CObject* GetPrev(POSITION& position) const;
    [[nodiscard]] CObject* GetAt(POSITION position) const;
    void SetAt(POSITION position, CObject* object);
    void RemoveAt(POSITION position);
    POSITION InsertBefore(POSITION position, CObject* object);
    POSITION InsertAfter(POSITION position, CObject* object);

    /// Returns the first position of the object after `startAfter`; null when absent.
    [[nodiscard]] POSITION Find(CObject* object, POSITION startAfter = nullptr) const;
    [[nodiscard]] POSITION FindIndex(int index) const;

private:
    struct Node;
    static Node* node(POSITION position);
    static POSITION position(Node* node);
    Node* insert(Node* before, CObject* object);
    CObject* remove(Node* node);
    Node* freeNode();

    Node* head_ = nullptr;
    Node* tail_ = nullptr;
    Node* free_ = nullptr;    ///< Chain of freed nodes.
    CPlex* blocks_ = nullptr; ///< The newest first.
    Node* fresh_ = nullptr;   ///< First node of the newest block that was never used.
    int unused_ = 0;          ///< Number of such nodes.
    int allocated_ = 0;       ///< Nodes of all blocks.
    int count_ = 0;
};

#include "afxtempl.h"
