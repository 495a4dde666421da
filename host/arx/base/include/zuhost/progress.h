#pragma once

#include <string>
#include <vector>

namespace zuhost {

/// Shows the progress meter of the status bar.
class ProgressPresenter {
public:
    virtual ~ProgressPresenter() = default;
    /// A job begins; the positions told later lie between first and last.
    virtual void start(const std::wstring& label, int first, int last) = 0;
    virtual void moveTo(int position) = 0;
    /// The job is over.
    virtual void restore() = 0;
};

/// Sets what shows the meter, and returns what did until now. Null, as at the start: a window of the desktop
/// for programs that have shown windows, otherwise nothing. The presenter stays its maker's.
ProgressPresenter* setProgressPresenter(ProgressPresenter* presenter);

/// Collects what the meter is told during its life instead of showing it.
class ProgressObserver : public ProgressPresenter {
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
