#pragma once

#include "afxcoll.h"

#include <functional>
#include <list>
#include <unordered_set>

// The framework's collection templates. They use containers of the standard library.

/// Returns a hash of a key; may be specialised.
template <typename Key>
UINT HashKey(Key key) {
    using Plain = std::remove_cvref_t<Key>;
    if constexpr (std::is_convertible_v<Plain, const wchar_t*>)
        return static_cast<UINT>(
            std::hash<std::wstring_view>()(std::wstring_view(static_cast<const wchar_t*>(key))));
    else
        return static_cast<UINT>(std::hash<Plain>()(key));
}

/// Returns whether two elements are equal; may be specialised.
template <typename Type, typename Other>
BOOL CompareElements(const Type* left, const Other* right) {
    return *left == *right ? TRUE : FALSE;
}

/// An array that grows on demand; an index out of range throws the invalid-argument exception.
template <typename Type, typename Argument = const Type&>
class CArray : public zuhost::FrameworkArray<Type> {};

/// A doubly linked list. A null position, and the head and the tail of an empty list, throw the
/// invalid-argument exception.
template <typename Type, typename Argument = const Type&>
class CList : public CObject {
public:
    explicit CList(int /*blockSize*/ = 10) {}

    [[nodiscard]] int GetCount() const { return static_cast<int>(nodes_.size()); }
    [[nodiscard]] int GetSize() const { return GetCount(); }
    [[nodiscard]] BOOL IsEmpty() const { return nodes_.empty() ? TRUE : FALSE; }

    [[nodiscard]] Type& GetHead() { return node(GetHeadPosition()).value; }
    [[nodiscard]] const Type& GetHead() const { return node(GetHeadPosition()).value; }
    [[nodiscard]] Type& GetTail() { return node(GetTailPosition()).value; }
    [[nodiscard]] const Type& GetTail() const { return node(GetTailPosition()).value; }
    Type RemoveHead() { return removed(GetHeadPosition()); }
    Type RemoveTail() { return removed(GetTailPosition()); }

    POSITION AddHead(Argument value) { return insert(nodes_.begin(), value); }
    POSITION AddTail(Argument value) { return insert(nodes_.end(), value); }
    // The other list may be this one: as many elements are added as it has before.
    void AddHead(CList* other) {
        POSITION place = other->GetTailPosition();
        for (int left = other->GetCount(); left > 0; --left)
            AddHead(other->GetPrev(place));
    }
    void AddTail(CList* other) {
        POSITION place = other->GetHeadPosition();
        for (int left = other->GetCount(); left > 0; --left)
            AddTail(other->GetNext(place));
    }
    void RemoveAll() { nodes_.clear(); }

    [[nodiscard]] POSITION GetHeadPosition() const {
        return nodes_.empty() ? nullptr : position(nodes_.front());
    }
    [[nodiscard]] POSITION GetTailPosition() const {
        return nodes_.empty() ? nullptr : position(nodes_.back());
    }
    /// Returns the element at the position and advances it; null after the last.
    Type& GetNext(POSITION& place) {
        Node& current = node(place);
        place = step(current, 1);
        return current.value;
    }
    const Type& GetNext(POSITION& place) const {
        const Node& current = node(place);
        place = step(current, 1);
        return current.value;
    }
    Type& GetPrev(POSITION& place) {
        Node& current = node(place);
        place = step(current, -1);
        return current.value;
    }
    const Type& GetPrev(POSITION& place) const {
        const Node& current = node(place);
        place = step(current, -1);
        return current.value;
    }
    [[nodiscard]] Type& GetAt(POSITION place) { return node(place).value; }
    [[nodiscard]] const Type& GetAt(POSITION place) const { return node(place).value; }
    void SetAt(POSITION place, Argument value) { node(place).value = value; }
    void RemoveAt(POSITION place) { nodes_.erase(node(place).self); }
    /// A null position inserts at the head or the tail.
    POSITION InsertBefore(POSITION place, Argument value) {
        return insert(place != nullptr ? node(place).self : nodes_.begin(), value);
    }
    POSITION InsertAfter(POSITION place, Argument value) {
        return insert(place != nullptr ? std::next(node(place).self) : nodes_.end(), value);
    }

    /// Returns the first position of an equal element after `startAfter`; null when there is none.
    [[nodiscard]] POSITION Find(Argument value, POSITION startAfter = nullptr) const {
        for (POSITION place = startAfter != nullptr ? step(node(startAfter), 1) : GetHeadPosition();
             place != nullptr; place = step(node(place), 1))
            if (CompareElements(&node(place).value, &value) != FALSE)
                return place;
        return nullptr;
    }
    [[nodiscard]] POSITION FindIndex(int index) const {
        if (index < 0 || index >= GetCount())
            return nullptr;
        return position(*std::next(nodes_.begin(), index));
    }

private:
    struct Node {
        Type value;
        typename std::list<Node>::iterator self;
    };

    static POSITION position(const Node& node) {
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): a position gives access to the element.
        return reinterpret_cast<POSITION>(const_cast<Node*>(&node));
    }
    static Node& node(POSITION place) {
        if (place == nullptr)
            AfxThrowInvalidArgException();
        return *reinterpret_cast<Node*>(place);
    }
    [[nodiscard]] POSITION step(const Node& from, int direction) const {
        typename std::list<Node>::const_iterator at = from.self;
        if (direction < 0)
            return at == nodes_.begin() ? nullptr : position(*std::prev(at));
        return ++at == nodes_.end() ? nullptr : position(*at);
    }
    POSITION insert(typename std::list<Node>::iterator before, const Type& value) {
        const auto added = nodes_.insert(before, Node{value, {}});
        added->self = added;
        return position(*added);
    }
    Type removed(POSITION place) {
        Node& last = node(place);
        Type value = std::move(last.value);
        nodes_.erase(last.self);
        return value;
    }

    std::list<Node> nodes_;
};

/// A hash table. Its order is not defined.
template <typename Key, typename KeyArgument, typename Value, typename ValueArgument>
class CMap : public CObject {
public:
    struct CPair {
        const Key key;
        mutable Value value;
    };

    explicit CMap(int /*blockSize*/ = 10) {}
    CMap(const CMap&) = delete;
    CMap& operator=(const CMap&) = delete;

    [[nodiscard]] int GetCount() const { return static_cast<int>(pairs_.size()); }
    [[nodiscard]] int GetSize() const { return GetCount(); }
    [[nodiscard]] BOOL IsEmpty() const { return pairs_.empty() ? TRUE : FALSE; }

    /// FALSE, with the value unchanged, when there is no such key.
    BOOL Lookup(KeyArgument key, Value& value) const {
        const CPair* const pair = PLookup(key);
        if (pair != nullptr)
            value = pair->value;
        return pair != nullptr ? TRUE : FALSE;
    }
    /// Null when there is no such key.
    [[nodiscard]] CPair* PLookup(KeyArgument key) const {
        const auto found = pairs_.find(Wanted{key});
        return found != pairs_.end() ? pairOf(*found) : nullptr;
    }
    /// Adds the key with a default value unless it is there.
    Value& operator[](KeyArgument key) {
        auto found = pairs_.find(Wanted{key});
        if (found == pairs_.end())
            found = pairs_.insert(CPair{Key(key), Value()}).first;
        return found->value;
    }
    void SetAt(KeyArgument key, ValueArgument value) { (*this)[key] = value; }
    BOOL RemoveKey(KeyArgument key) {
        const auto found = pairs_.find(Wanted{key});
        if (found == pairs_.end())
            return FALSE;
        pairs_.erase(found);
        return TRUE;
    }
    void RemoveAll() { pairs_.clear(); }
    void InitHashTable(UINT size, BOOL /*allocate*/ = TRUE) { pairs_.reserve(size); }
    [[nodiscard]] UINT GetHashTableSize() const { return static_cast<UINT>(pairs_.bucket_count()); }

    [[nodiscard]] POSITION GetStartPosition() const { return positionOf(pairs_.begin()); }
    /// Returns the pair at the position and advances it; null after the last. The pair may then be removed.
    void GetNextAssoc(POSITION& place, Key& key, Value& value) const {
        const CPair* const pair = pairAt(place);
        key = pair->key;
        value = pair->value;
        place = after(*pair);
    }
    [[nodiscard]] CPair* PGetFirstAssoc() const { return pairs_.empty() ? nullptr : pairOf(*pairs_.begin()); }
    [[nodiscard]] CPair* PGetNextAssoc(const CPair* pair) const {
        if (pair == nullptr)
            AfxThrowInvalidArgException();
        return reinterpret_cast<CPair*>(after(*pair));
    }

private:
    struct Wanted {
        KeyArgument key;
    };
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(const CPair& pair) const { return HashKey<KeyArgument>(pair.key); }
        std::size_t operator()(const Wanted& wanted) const { return HashKey<KeyArgument>(wanted.key); }
    };
    struct Equal {
        using is_transparent = void;
        bool operator()(const CPair& left, const CPair& right) const { return isEqual(left.key, right.key); }
        bool operator()(const CPair& left, const Wanted& right) const { return isEqual(left.key, right.key); }
        bool operator()(const Wanted& left, const CPair& right) const { return isEqual(right.key, left.key); }
        template <typename Other>
        static bool isEqual(const Key& left, const Other& right) {
            return CompareElements(&left, &right) != FALSE;
        }
    };
    using Pairs = std::unordered_set<CPair, Hash, Equal>;

    static CPair* pairOf(const CPair& pair) {
        return const_cast<CPair*>(
            &pair); // NOLINT(cppcoreguidelines-pro-type-const-cast): its key is constant.
    }
    [[nodiscard]] POSITION positionOf(typename Pairs::const_iterator at) const {
        return at != pairs_.end() ? reinterpret_cast<POSITION>(pairOf(*at)) : nullptr;
    }
    static CPair* pairAt(POSITION place) {
        if (place == nullptr)
            AfxThrowInvalidArgException();
        return reinterpret_cast<CPair*>(place);
    }
    [[nodiscard]] POSITION after(const CPair& pair) const {
        const auto at = pairs_.find(pair);
        return at != pairs_.end() ? positionOf(std::next(at)) : nullptr;
    }

    Pairs pairs_;
};

/// An array of pointers of one type over CPtrArray or CObArray.
template <typename Base, typename Type>
class CTypedPtrArray : public Base {
public:
    [[nodiscard]] Type GetAt(int index) const { return typed(Base::GetAt(index)); }
    [[nodiscard]] Type operator[](int index) const { return typed(Base::GetAt(index)); }
    [[nodiscard]] Type& ElementAt(int index) { return reinterpret_cast<Type&>(Base::ElementAt(index)); }
    [[nodiscard]] Type& operator[](int index) { return ElementAt(index); }
    void SetAt(int index, Type pointer) { Base::SetAt(index, pointer); }
    void SetAtGrow(int index, Type pointer) { Base::SetAtGrow(index, pointer); }
    int Add(Type pointer) { return Base::Add(pointer); }
    int Append(const CTypedPtrArray& other) { return Base::Append(other); }
    void Copy(const CTypedPtrArray& other) { Base::Copy(other); }
    void InsertAt(int index, Type pointer, int count = 1) { Base::InsertAt(index, pointer, count); }

private:
    template <typename Pointer>
    static Type typed(Pointer* pointer) {
        return static_cast<Type>(pointer);
    }
};

/// A list of pointers of one type over CPtrList or CObList.
template <typename Base, typename Type>
class CTypedPtrList : public Base {
public:
    [[nodiscard]] Type GetHead() const { return static_cast<Type>(Base::GetHead()); }
    [[nodiscard]] Type GetTail() const { return static_cast<Type>(Base::GetTail()); }
    Type RemoveHead() { return static_cast<Type>(Base::RemoveHead()); }
    Type RemoveTail() { return static_cast<Type>(Base::RemoveTail()); }
    POSITION AddHead(Type pointer) { return Base::AddHead(pointer); }
    POSITION AddTail(Type pointer) { return Base::AddTail(pointer); }
    Type GetNext(POSITION& place) const { return static_cast<Type>(Base::GetNext(place)); }
    Type GetPrev(POSITION& place) const { return static_cast<Type>(Base::GetPrev(place)); }
    [[nodiscard]] Type GetAt(POSITION place) const { return static_cast<Type>(Base::GetAt(place)); }
    void SetAt(POSITION place, Type pointer) { Base::SetAt(place, pointer); }
};

// Lists and tables without templates.

class CStringList : public CList<CString, const CString&> {
public:
    using CList::AddHead;
    using CList::AddTail;
    using CList::CList;
    using CList::Find;
    POSITION AddHead(const wchar_t* text) { return CList::AddHead(CString(text)); }
    POSITION AddTail(const wchar_t* text) { return CList::AddTail(CString(text)); }
    [[nodiscard]] POSITION Find(const wchar_t* text, POSITION startAfter = nullptr) const {
        return CList::Find(CString(text), startAfter);
    }
};
class CPtrList : public CList<void*, void*> {
public:
    using CList::CList;
};

class CMapStringToString : public CMap<CString, const wchar_t*, CString, const wchar_t*> {
public:
    using CMap::CMap;
    using CMap::Lookup;
};
class CMapStringToPtr : public CMap<CString, const wchar_t*, void*, void*> {
public:
    using CMap::CMap;
};
class CMapStringToOb : public CMap<CString, const wchar_t*, CObject*, CObject*> {
public:
    using CMap::CMap;
};
class CMapPtrToPtr : public CMap<void*, void*, void*, void*> {
public:
    using CMap::CMap;
};
class CMapPtrToWord : public CMap<void*, void*, WORD, WORD> {
public:
    using CMap::CMap;
};
class CMapWordToPtr : public CMap<WORD, WORD, void*, void*> {
public:
    using CMap::CMap;
};
class CMapWordToOb : public CMap<WORD, WORD, CObject*, CObject*> {
public:
    using CMap::CMap;
};
