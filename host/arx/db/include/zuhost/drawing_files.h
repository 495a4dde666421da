#pragma once

class AcDbDatabase;

namespace zuhost {

/// Lets the database's next save replace the file that the drawing was opened from although another program
/// has changed or removed it since (AcDbDatabase::dxfOut refuses it with eFileAccessErr). Holds until a save
/// to that file succeeds.
void allowReplacingChangedFile(AcDbDatabase& database);

} // namespace zuhost
