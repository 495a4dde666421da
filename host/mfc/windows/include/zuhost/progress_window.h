#pragma once

#include <zuhost/platform/export.h>

namespace zuhost {

class ProgressPresenter;

/// Returns the window that shows a job's progress; null while the program has no desktop application object.
/// It appears once the job has lasted half a second and is modal: keys and clicks wait until the job ends.
ZUHOST_API ProgressPresenter* progressWindow();

} // namespace zuhost
