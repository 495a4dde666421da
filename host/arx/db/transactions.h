#pragma once

class AcDbDatabase;

namespace zuhost {

/// Drops what open transactions hold of a database that ends.
void leaveTransactions(AcDbDatabase& database);

} // namespace zuhost
