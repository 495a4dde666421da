#include "zuhost/progress_window.h"

#include "qt_text.h"

#include <zuhost/progress.h>

#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

#include <memory>

namespace zuhost {

namespace {

constexpr qint64 kDelay = 500;  ///< Milliseconds before the window appears.
constexpr qint64 kRefresh = 50; ///< Milliseconds between redraws.
constexpr int kWidth = 320;

/// Stays open until the job ends: neither Escape nor the window frame closes it.
class ProgressDialog : public QDialog {
public:
    ProgressDialog(const QString& label, int first, int last)
        : QDialog(QApplication::activeWindow(), Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint) {
        setWindowModality(Qt::ApplicationModal);
        auto* const text = new QLabel(label);
        text->setTextFormat(Qt::PlainText);
        bar_->setRange(first, last);
        bar_->setMinimumWidth(kWidth);
        auto* const layout = new QVBoxLayout(this);
        layout->addWidget(text);
        layout->addWidget(bar_);
    }

    void moveTo(int position) { bar_->setValue(position); }
    void reject() override {}

protected:
    void closeEvent(QCloseEvent* event) override { event->ignore(); }

private:
    QProgressBar* bar_ = new QProgressBar;
};

class ProgressWindow : public ProgressPresenter {
public:
    void start(const std::wstring& label, int first, int last) override {
        restore();
        label_ = toQt(label);
        first_ = first;
        last_ = last;
        sinceStart_.start();
    }

    void moveTo(int position) override {
        if (dialog_ == nullptr) {
            if (sinceStart_.elapsed() < kDelay)
                return;
            dialog_ = std::make_unique<ProgressDialog>(label_, first_, last_);
            dialog_->show();
        } else if (sinceRedraw_.elapsed() < kRefresh) {
            return;
        }
        dialog_->moveTo(position);
        draw();
        sinceRedraw_.start();
    }

    void restore() override { dialog_.reset(); }

private:
    /// Redraws the window. User input and timers are not processed: they could start work during the job.
    static void draw() {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents |
                                        QEventLoop::ExcludeSocketNotifiers | QEventLoop::X11ExcludeTimers);
    }

    QString label_;
    int first_ = 0;
    int last_ = 0;
    QElapsedTimer sinceStart_;
    QElapsedTimer sinceRedraw_;
    std::unique_ptr<ProgressDialog> dialog_;
};

} // namespace

ProgressPresenter* progressWindow() {
    if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr)
        return nullptr;
    // Never destroyed: at exit Qt's own static objects, which it needs, may be destroyed before it.
    static auto* const window = new ProgressWindow;
    return window;
}

} // namespace zuhost
