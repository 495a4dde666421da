#pragma once

#include "dbtrans.h"

using AcTransactionManager = AcDbTransactionManager;

inline constexpr zuhost::Service<AcDbTransactionManager, zuhost::transactionManager> actrTransactionManager;

inline AcTransactionManager* acTransactionManagerPtr() {
    return actrTransactionManager;
}
