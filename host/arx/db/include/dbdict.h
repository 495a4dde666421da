#pragma once

#include "dbmain.h"

#include <zuhost/platform/export.h>

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace zuhost {

struct DictionaryEntry {
    std::wstring name;
    AcDbObjectId id;
};

} // namespace zuhost

/// Iterates over the entries of a dictionary in their order; skips erased objects.
class ZUHOST_API AcDbDictionaryIterator {
public:
    /// Null at the end.
    [[nodiscard]] const ACHAR* name() const { return done() ? nullptr : entries_[at_].name.c_str(); }
    [[nodiscard]] AcDbObjectId objectId() const { return done() ? AcDbObjectId() : entries_[at_].id; }
    /// Opens the entry's object; the caller closes it. eInvalidIndex at the end.
    Acad::ErrorStatus getObject(AcDbObject*& object, AcDb::OpenMode mode = AcDb::kForRead) const;
    [[nodiscard]] bool done() const { return at_ >= entries_.size(); }
    /// False at the end.
    bool next() { return !done() && ++at_ < entries_.size(); }
    /// Moves to the entry of the object; false when there is none, and the position stays.
    bool setPosition(AcDbObjectId id);

private:
    friend class AcDbDictionary;
    explicit AcDbDictionaryIterator(std::vector<zuhost::DictionaryEntry> entries)
        : entries_(std::move(entries)) {}

    std::vector<zuhost::DictionaryEntry> entries_;
    std::size_t at_ = 0;
};

/// Maps names to objects. Names are compared ignoring case; entries keep their order.
class ZUHOST_API AcDbDictionary : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDictionary);
    AcDbDictionary() = default;

    /// eKeyNotFound when there is no such entry, eWasErased when its object is erased, eInvalidInput for a
    /// null name.
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id) const;
    /// As above, and opens the object; the caller closes it. eNotThatKindOfClass (typed form).
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObject*& object, AcDb::OpenMode mode) const;
    template <typename T>
    Acad::ErrorStatus getAt(const ACHAR* name, T*& object, AcDb::OpenMode mode) const {
        object = nullptr;
        AcDbObjectId id;
        const Acad::ErrorStatus status = getAt(name, id);
        return status == Acad::eOk ? acdbOpenObject(object, id, mode) : status;
    }
    [[nodiscard]] bool has(const ACHAR* name) const;
    [[nodiscard]] bool has(AcDbObjectId id) const;
    /// Returns the name of the object's entry, which the caller of the first form frees with acutDelString;
    /// eKeyNotFound when it has none.
    Acad::ErrorStatus nameAt(AcDbObjectId id, ACHAR*& name) const;
    Acad::ErrorStatus nameAt(AcDbObjectId id, AcString& name) const;
    [[nodiscard]] Adesk::UInt32 numEntries() const;

    /// Adds an entry. An object in no database yet becomes owned by this one and stays open for write. An
    /// entry with the same name is replaced and its object erased. For a group, a name that begins with "*"
    /// stands for the next anonymous name "*A1", "*A2" ... eWrongObjectType for entities and tables' records.
    ///
    /// A dictionary that is in no database takes objects that are in none either, and owns them; they have no
    /// id until they are added to a database together with the dictionary. `has`, `numEntries` and `remove`
    /// find them by name; `remove` deletes them. eInvalidInput for an object that one owns
    /// already.
    Acad::ErrorStatus setAt(const ACHAR* name, AcDbObject* object, AcDbObjectId& id);
    /// Removes the entry but does not erase the object.
    Acad::ErrorStatus remove(const ACHAR* name);
    Acad::ErrorStatus remove(AcDbObjectId id);

    /// Returns whether the entries' pointers say that the dictionary needs its objects.
    [[nodiscard]] bool isTreatElementsAsHard() const;
    Acad::ErrorStatus setTreatElementsAsHard(bool isHard);

    /// The caller deletes the iterator.
    [[nodiscard]] AcDbDictionaryIterator* newIterator() const;

protected:
    void subAppended() override;

private:
    [[nodiscard]] zuhost::TagList newRecords() const override;
    friend struct zuhost::ObjectAccess;
    /// An entry of a dictionary that is in no database.
    struct EntryToCome {
        std::wstring name;
        zuhost::PendingPtr<AcDbObject> object;
    };
    [[nodiscard]] std::vector<EntryToCome>::const_iterator findToCome(const ACHAR* name) const;
    [[nodiscard]] bool holdsToCome(const AcDbObject* object) const;
    Acad::ErrorStatus setToCome(const ACHAR* name, AcDbObject* object);
    [[nodiscard]] std::vector<zuhost::DictionaryEntry> entries() const;
    [[nodiscard]] std::vector<std::wstring> danglingNames() const;
    void applyDeferred(zuhost::TagList& tags) const override;

    /// The places of entries by key, in order: the first in one map, any further ones as a chain in the
    /// other, because few keys have more than one.
    template <typename Key>
    class Places {
    public:
        /// Adds a place before the key's other places; entries are indexed from the last to the first.
        void addFront(const Key& key, std::size_t place) {
            const auto [entry, isNew] = first_.try_emplace(key, place);
            if (isNew)
                return;
            next_.emplace(place, entry->second);
            entry->second = place;
        }
        [[nodiscard]] std::optional<std::size_t> find(const Key& key) const {
            const auto entry = first_.find(key);
            return entry == first_.end() ? std::nullopt : std::optional(entry->second);
        }
        /// Drops the key's first places as long as they are removed ones.
        void drop(const Key& key, const std::unordered_set<std::size_t>& removed) {
            const auto entry = first_.find(key);
            while (entry != first_.end() && removed.contains(entry->second)) {
                const auto next = next_.find(entry->second);
                if (next == next_.end()) {
                    first_.erase(entry);
                    return;
                }
                entry->second = next->second;
            }
        }

    private:
        std::unordered_map<Key, std::size_t> first_;
        std::unordered_map<std::size_t, std::size_t>
            next_; ///< Maps a place to the next one with the same key.
    };
    struct Index {
        Places<std::wstring> byName; ///< Folded names to the places of their name records.
        Places<std::uint64_t> byHandle;
        std::multiset<int> anonymous; ///< Numbers of anonymous names.
    };
    /// Returns the index of the entries. Built on first use; the dictionary's own changes update it, others
    /// rebuild it.
    Index& index() const;
    [[nodiscard]] AcDbObjectId target(const zuhost::TagRef& pointer) const;
    [[nodiscard]] std::wstring anonymousName() const;
    template <typename Find>
    Acad::ErrorStatus removeFound(const Find& find);
    /// The place must be found after assertWriteEnabled, which can move the records.
    void removeEntry(std::size_t place);
    void addEntry(const std::wstring& name, std::uint64_t handle);

    std::vector<EntryToCome> entriesToCome_;
    mutable Index index_;
    mutable std::uint32_t indexVersion_ = ~std::uint32_t{0};
    mutable std::unordered_set<std::size_t>
        removed_; ///< Places of removed entries that are still in the records.
};
