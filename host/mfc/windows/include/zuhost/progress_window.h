#pragma once

namespace zuhost {

class ProgressPresenter;

/// Returns the window that shows a job's progress; null while the program has no desktop application object.
/// It appears once the job has lasted half a second and is modal: keys and clicks wait until the job ends.
ProgressPresenter* progressWindow();

} // namespace zuhost
