#pragma once

#include "dbmain.h"

#include <zuhost/platform/export.h>

/// Services of the host application.
class ZUHOST_API AcDbHostApplicationServices : public AcRxObject {
public:
    [[nodiscard]] AcDbDatabase* workingDatabase() const { return working_; }
    void setWorkingDatabase(AcDbDatabase* database) { working_ = database; }

private:
    AcDbDatabase* working_ = nullptr;
};

ZUHOST_API AcDbHostApplicationServices* acdbHostApplicationServices();
