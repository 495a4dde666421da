#pragma once

#include "dbmain.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

/// Goes through the entries of a dictionary in their order, erased objects left out.
class AcDbDictionaryIterator {
public:
    struct Entry {
        std::wstring name;
        AcDbObjectId id;
    };
    explicit AcDbDictionaryIterator(std::vector<Entry> entries) : entries_(std::move(entries)) {}

    /// Null at the end.
    [[nodiscard]] const ACHAR* name() const { return done() ? nullptr : entries_[at_].name.c_str(); }
    [[nodiscard]] AcDbObjectId objectId() const { return done() ? AcDbObjectId() : entries_[at_].id; }
    [[nodiscard]] bool done() const { return at_ >= entries_.size(); }
    /// False at the end.
    bool next() { return !done() && ++at_ < entries_.size(); }

private:
    std::vector<Entry> entries_;
    std::size_t at_ = 0;
};

/// Objects by name; names are compared without regard to case, entries keep their order.
class AcDbDictionary : public AcDbObject {
public:
    ACRX_DECLARE_MEMBERS(AcDbDictionary);
    AcDbDictionary();

    /// eKeyNotFound when there is no such entry, eWasErased when its object is erased, eInvalidInput for
    /// null.
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id) const;
    /// Opens the object; the caller closes it.
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObject*& object, AcDb::OpenMode mode) const;
    [[nodiscard]] bool has(const ACHAR* name) const;
    [[nodiscard]] bool has(AcDbObjectId id) const;
    /// Name of the object's entry; eKeyNotFound when it has none.
    Acad::ErrorStatus nameAt(AcDbObjectId id, std::wstring& name) const;
    [[nodiscard]] Adesk::UInt32 numEntries() const;

    /// Enters an object under the name; one that is in no database yet is taken over and left open for write.
    /// An object under that name is replaced and erased. In the group dictionary a name that begins with "*"
    /// stands for the next free anonymous name "*A1", "*A2" ...
    Acad::ErrorStatus setAt(const ACHAR* name, AcDbObject* object, AcDbObjectId& id);
    /// Takes the entry out; the object itself stays.
    Acad::ErrorStatus remove(const ACHAR* name);
    Acad::ErrorStatus remove(AcDbObjectId id);

    /// The caller deletes the iterator.
    [[nodiscard]] AcDbDictionaryIterator* newIterator() const;
    [[nodiscard]] std::vector<AcDbDictionaryIterator::Entry> entries() const;
    /// Names of entries, as damaged drawings have them, whose object is not in the drawing.
    [[nodiscard]] std::vector<std::wstring> danglingNames() const;

private:
    void bringUpToDate(zuhost::TagList& tags) const override;

    /// The places of the entries that have a key, in their order. Few keys have more than one.
    template <typename Key>
    class Places {
    public:
        /// For entries from the last to the first.
        void addBefore(const Key& key, std::size_t place) {
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
        /// Leaves out those of the key that are gone.
        void leaveOut(const Key& key, const std::unordered_set<std::size_t>& gone) {
            const auto entry = first_.find(key);
            while (entry != first_.end() && gone.contains(entry->second)) {
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
        std::unordered_map<std::size_t, std::size_t> next_; ///< From one place to the next with the same key.
    };
    struct Index {
        Places<std::wstring> byName; ///< Folded name to the place of its name record.
        Places<std::uint64_t> byHandle;
        std::multiset<int> anonymous; ///< Numbers of anonymous names.
    };
    /// Kept up to date by the dictionary's own changes.
    Index& index() const;
    [[nodiscard]] AcDbObjectId entryAt(std::size_t place) const;
    [[nodiscard]] std::wstring anonymousName() const;
    template <typename Find>
    Acad::ErrorStatus removeFound(const Find& find);
    /// Of a place found after assertWriteEnabled, which may move the records.
    void removeEntry(std::size_t place);
    void addEntry(const std::wstring& name, std::uint64_t handle);

    mutable Index index_;
    mutable std::uint32_t indexVersion_ = ~std::uint32_t{0};
    mutable std::unordered_set<std::size_t> gone_; ///< Places of entries that the records still show.
};
