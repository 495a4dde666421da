#pragma once

#include "adsdef.h"

#include <cstdint>

class AcDbDatabase;
struct AcDbStub;

namespace zuhost {

/// The number that an ads_name has for its database: names stay safe to use after the database is closed.
class DatabaseNumber {
public:
    explicit DatabaseNumber(AcDbDatabase& database);
    ~DatabaseNumber();
    DatabaseNumber(const DatabaseNumber&) = delete;
    DatabaseNumber& operator=(const DatabaseNumber&) = delete;

    [[nodiscard]] std::int64_t value() const { return value_; }

private:
    std::int64_t value_;
};

/// Sets `name` to that of the object with the handle, which need not exist; to no name for handle 0.
void setAdsName(ads_name name, const DatabaseNumber& database, std::uint64_t handle);

/// Returns the object that the name stands for, erased or not; null when there is none.
[[nodiscard]] AcDbStub* findByAdsName(const ads_name name);

} // namespace zuhost
