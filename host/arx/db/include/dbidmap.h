#pragma once

#include "acdb.h"
#include "dbid.h"

#include <zuhost/platform/export.h>

#include <unordered_map>
#include <vector>

/// An object and its copy.
class AcDbIdPair {
public:
    AcDbIdPair() = default;
    AcDbIdPair(AcDbObjectId key, AcDbObjectId value, bool isCloned, bool isPrimary = false,
               bool isOwnerTranslated = true)
        : key_(key), value_(value), isCloned_(isCloned), isPrimary_(isPrimary),
          isOwnerTranslated_(isOwnerTranslated) {}

    [[nodiscard]] AcDbObjectId key() const { return key_; }
    [[nodiscard]] AcDbObjectId value() const { return value_; }
    /// False for an object that stands for the key without being a copy of it.
    [[nodiscard]] bool isCloned() const { return isCloned_; }
    /// True for the objects that the caller asked to copy.
    [[nodiscard]] bool isPrimary() const { return isPrimary_; }
    [[nodiscard]] bool isOwnerXlated() const { return isOwnerTranslated_; }
    void setKey(AcDbObjectId key) { key_ = key; }
    void setValue(AcDbObjectId value) { value_ = value; }

private:
    AcDbObjectId key_;
    AcDbObjectId value_;
    bool isCloned_ = false;
    bool isPrimary_ = false;
    bool isOwnerTranslated_ = true;
};

/// The objects of a cloning operation with their copies, in the order in which they were copied.
class ZUHOST_API AcDbIdMapping {
public:
    /// Finds the pair by its key, and fills in the rest; false when there is none.
    bool compute(AcDbIdPair& pair) const;
    /// Adds a pair, or replaces the one with the key.
    bool assign(const AcDbIdPair& pair);
    bool del(AcDbObjectId key);

    [[nodiscard]] AcDbDatabase* destDb() const { return destination_; }
    void setDestDb(AcDbDatabase* database) { destination_ = database; }
    [[nodiscard]] AcDbDatabase* origDb() const { return origin_; }
    void setOrigDb(AcDbDatabase* database) { origin_ = database; }
    [[nodiscard]] AcDb::DuplicateRecordCloning duplicateRecordCloning() const { return cloning_; }
    void setDuplicateRecordCloning(AcDb::DuplicateRecordCloning cloning) { cloning_ = cloning; }
    [[nodiscard]] AcDb::DeepCloneType deepCloneContext() const { return context_; }
    void setDeepCloneContext(AcDb::DeepCloneType context) { context_ = context; }

private:
    friend class AcDbIdMappingIter;

    std::vector<AcDbIdPair> pairs_; ///< Removed ones have a null key.
    std::unordered_map<AcDbObjectId, std::size_t> places_;
    AcDbDatabase* destination_ = nullptr;
    AcDbDatabase* origin_ = nullptr;
    AcDb::DuplicateRecordCloning cloning_ = AcDb::kDrcNotApplicable;
    AcDb::DeepCloneType context_ = AcDb::kDcCopy;
};

/// Iterates over the pairs of a mapping, which must stay unchanged meanwhile.
class AcDbIdMappingIter {
public:
    explicit AcDbIdMappingIter(const AcDbIdMapping& mapping) : mapping_(mapping) { skip(); }

    void start() {
        at_ = 0;
        skip();
    }
    [[nodiscard]] bool done() const { return at_ >= mapping_.pairs_.size(); }
    void next() {
        ++at_;
        skip();
    }
    /// False at the end.
    bool getMap(AcDbIdPair& pair) const {
        if (done())
            return false;
        pair = mapping_.pairs_[at_];
        return true;
    }

private:
    void skip() {
        while (!done() && mapping_.pairs_[at_].key().isNull())
            ++at_;
    }

    const AcDbIdMapping& mapping_;
    std::size_t at_ = 0;
};
