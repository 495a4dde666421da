#include "batch/tasks.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QProcess>

#include <exception>
#include <memory>
#include <optional>
#include <utility>

namespace zu::app {

namespace {

constexpr int kFailed = 1;

/// Qt waits for processes in the loop of an application object, which a command may have made already.
class ApplicationScope {
public:
    ApplicationScope() {
        if (QCoreApplication::instance() == nullptr)
            application_ = std::make_unique<QCoreApplication>(count_, arguments_);
    }

private:
    char name_[3] = "zu";
    char* arguments_[2] = {name_, nullptr};
    int count_ = 1;
    std::unique_ptr<QCoreApplication> application_;
};

QStringList argumentList(const Task& task) {
    QStringList list;
    for (const std::string& argument : task.arguments)
        list << QString::fromStdString(argument);
    return list;
}

class TaskRunner {
public:
    TaskRunner(std::span<const Task> tasks, const TaskObserver& observer)
        : tasks_(tasks), observer_(observer), results_(tasks.size()) {}

    void run(int jobs) {
        for (int i = 0; i < jobs; ++i)
            startNext();
        if (done_ < tasks_.size())
            loop_.exec();
        if (failure_)
            std::rethrow_exception(failure_);
    }

private:
    void startNext() {
        if (next_ == tasks_.size() || failure_)
            return;
        const std::size_t index = next_++;
        auto* const process = new QProcess(&parent_);
        QObject::connect(
            process, &QProcess::finished, process, [=, this](int status, QProcess::ExitStatus how) {
                const bool crashed = how == QProcess::CrashExit;
                end(process, index,
                    {crashed ? kFailed : status, crashed, process->readAllStandardOutput().toStdString(),
                     process->readAllStandardError().toStdString()});
            });
        // Queued: a failure that start() itself reports would otherwise start the next task within it.
        const auto failed = [=, this](QProcess::ProcessError error) {
            if (error == QProcess::FailedToStart)
                end(process, index, {kFailed, false, {}, process->errorString().toStdString() + '\n'});
        };
        QObject::connect(process, &QProcess::errorOccurred, process, failed, Qt::QueuedConnection);
        if (tasks_[index].readsInput)
            process->setInputChannelMode(QProcess::ForwardedInputChannel);
        else
            process->setStandardInputFile(QProcess::nullDevice());
        process->start(QCoreApplication::applicationFilePath(), argumentList(tasks_[index]));
    }

    /// Exceptions don't pass through the loop.
    void end(QProcess* process, std::size_t index, TaskResult result) {
        process->deleteLater();
        ++done_;
        try {
            results_[index] = std::move(result);
            deliver();
            observer_.counted(done_);
        } catch (...) {
            failure_ = std::current_exception();
        }
        startNext();
        if (failure_ || done_ == tasks_.size())
            loop_.quit();
    }

    void deliver() {
        for (; delivered_ < results_.size() && results_[delivered_]; ++delivered_) {
            const TaskResult result = *std::exchange(results_[delivered_], TaskResult());
            observer_.finished(delivered_, result);
        }
    }

    std::span<const Task> tasks_;
    const TaskObserver& observer_;
    std::vector<std::optional<TaskResult>> results_;
    std::size_t next_ = 0;
    std::size_t done_ = 0;
    std::size_t delivered_ = 0;
    std::exception_ptr failure_;
    QEventLoop loop_;
    QObject parent_; ///< Ends the processes that still run when an exception ends the others.
};

} // namespace

void runTasks(std::span<const Task> tasks, int jobs, const TaskObserver& observer) {
    const ApplicationScope application;
    TaskRunner(tasks, observer).run(jobs);
}

} // namespace zu::app
