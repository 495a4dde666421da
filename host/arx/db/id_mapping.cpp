#include "dbidmap.h"

bool AcDbIdMapping::compute(AcDbIdPair& pair) const {
    const auto known = places_.find(pair.key());
    if (known == places_.end())
        return false;
    pair = pairs_[known->second];
    return true;
}

bool AcDbIdMapping::assign(const AcDbIdPair& pair) {
    if (pair.key().isNull())
        return false;
    const auto [known, isNew] = places_.try_emplace(pair.key(), pairs_.size());
    if (isNew)
        pairs_.push_back(pair);
    else
        pairs_[known->second] = pair;
    return true;
}

bool AcDbIdMapping::del(AcDbObjectId key) {
    const auto known = places_.find(key);
    if (known == places_.end())
        return false;
    pairs_[known->second] = AcDbIdPair();
    places_.erase(known);
    return true;
}
