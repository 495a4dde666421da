#pragma once

#include "dbmain.h"

/// Services of the host application.
class AcDbHostApplicationServices : public AcRxObject {
public:
    [[nodiscard]] AcDbDatabase* workingDatabase() const { return working_; }
    void setWorkingDatabase(AcDbDatabase* database) { working_ = database; }

private:
    AcDbDatabase* working_ = nullptr;
};

AcDbHostApplicationServices* acdbHostApplicationServices();
