#pragma once

namespace zuhost {

class ProgressPresenter;

/// The window that shows how far a job is, once it has lasted half a second. It keeps the user out of the
/// other windows: keys and clicks wait until the job is over. Null while the program has no windows.
ProgressPresenter* progressWindow();

} // namespace zuhost
