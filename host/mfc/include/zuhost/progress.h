#pragma once

#include <zuhost/platform/export.h>

#include <string>
#include <vector>

namespace zuhost {

/// Shows the progress meter of the status bar.
class ZUHOST_API ProgressPresenter {
public:
    virtual ~ProgressPresenter() = default;
    /// Starts a job whose positions lie between first and last.
    virtual void start(const std::wstring& label, int first, int last) = 0;
    virtual void moveTo(int position) = 0;
    /// Ends the job.
    virtual void restore() = 0;
};

/// Sets the presenter of the meter and returns the previous one. Null, the initial value: uses the desktop's,
/// if there is one. The caller keeps ownership.
ZUHOST_API ProgressPresenter* setProgressPresenter(ProgressPresenter* presenter);

/// Returns the current presenter; null when the meter is not shown.
[[nodiscard]] ZUHOST_API ProgressPresenter* progressPresenter();

/// Returns the desktop's presenter; null while the program has no windows.
using DesktopProgress = ProgressPresenter* (*)();
/// Called by the part of the host that owns the desktop.
ZUHOST_API void setDesktopProgress(DesktopProgress progress);

/// Records the meter's calls during its lifetime instead of showing them.
class ZUHOST_API ProgressObserver : public ProgressPresenter {
public:
    struct Job {
        std::wstring label;
        int first = 0;
        int last = 0;
        std::vector<int> positions;
        bool isOver = false;
    };

    ProgressObserver();
    ~ProgressObserver() override;
    ProgressObserver(const ProgressObserver&) = delete;
    ProgressObserver& operator=(const ProgressObserver&) = delete;

    [[nodiscard]] const std::vector<Job>& jobs() const { return jobs_; }

private:
    void start(const std::wstring& label, int first, int last) override;
    void moveTo(int position) override;
    void restore() override;

    std::vector<Job> jobs_;
    ProgressPresenter* previous_;
};

} // namespace zuhost
