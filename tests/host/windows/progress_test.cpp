#include "aced.h"
#include "zuhost/desktop.h"
#include "zuhost/progress.h"

#include <QApplication>
#include <QKeyEvent>
#include <QProgressBar>
#include <QTimer>

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace {

using namespace std::chrono_literals;

class Progress : public ::testing::Test {
protected:
    Progress() { zuhost::ensureDesktop(); }
    ~Progress() override { acedRestoreStatusBar(); }

    static QProgressBar* bar() {
        for (QWidget* const window : QApplication::topLevelWidgets())
            if (auto* const found = window->findChild<QProgressBar*>(); found != nullptr)
                return found;
        return nullptr;
    }

    /// Whether a position that follows another one at once is not drawn. Pauses of the machine between them
    /// are long enough to draw both, but not every time.
    static bool skipsTheSecondOfTwo() {
        for (int i = 0; i < 20; ++i) {
            std::this_thread::sleep_for(60ms);
            acedSetStatusBarProgressMeterPos(4);
            acedSetStatusBarProgressMeterPos(5);
            if (bar()->value() == 4)
                return true;
        }
        return false;
    }
};

} // namespace

TEST_F(Progress, AppearsForLongJobsOnlyAndClosesAtTheirEnd) {
    ASSERT_EQ(acedSetStatusBarProgressMeter(L"書き込み", 0, 10), 0);
    EXPECT_EQ(acedSetStatusBarProgressMeterPos(1), 0);
    EXPECT_EQ(bar(), nullptr);
    std::this_thread::sleep_for(520ms);
    acedSetStatusBarProgressMeterPos(4);
    ASSERT_NE(bar(), nullptr);
    EXPECT_TRUE(bar()->isVisible());
    EXPECT_EQ(bar()->value(), 4);
    EXPECT_TRUE(skipsTheSecondOfTwo());
    std::this_thread::sleep_for(60ms);
    acedSetStatusBarProgressMeterPos(99);
    EXPECT_EQ(bar()->value(), 10);
    bar()->window()->close();
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(bar()->window(), &escape);
    EXPECT_TRUE(bar()->isVisible()) << "closed before the job's end";
    acedRestoreStatusBar();
    EXPECT_EQ(bar(), nullptr);
}

TEST_F(Progress, DrawingProcessesNoOtherEvents) {
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&ticks] { ++ticks; });
    timer.start(0);
    acedSetStatusBarProgressMeter(L"", 0, 10);
    std::this_thread::sleep_for(520ms);
    acedSetStatusBarProgressMeterPos(1);
    ASSERT_NE(bar(), nullptr);
    EXPECT_EQ(QApplication::activeModalWidget(), bar()->window());
    EXPECT_EQ(ticks, 0);
    acedRestoreStatusBar();
    QApplication::processEvents();
    EXPECT_GT(ticks, 0);
}

TEST_F(Progress, ObserversRecordTheMeterCalls) {
    const zuhost::ProgressObserver observer;
    EXPECT_EQ(acedSetStatusBarProgressMeterPos(1), -1);
    EXPECT_EQ(acedSetStatusBarProgressMeter(L"", 5, 4), -1);
    EXPECT_EQ(acedSetStatusBarProgressMeter(L"読み込み", 5, 8), 0);
    for (const int position : {-1, 6, 99})
        EXPECT_EQ(acedSetStatusBarProgressMeterPos(position), 0);
    EXPECT_EQ(acedSetStatusBarProgressMeter(nullptr, 0, 0), 0);
    acedRestoreStatusBar();
    acedRestoreStatusBar();
    ASSERT_EQ(observer.jobs().size(), 2U);
    EXPECT_EQ(observer.jobs()[0].label, L"読み込み");
    EXPECT_EQ(observer.jobs()[0].positions, (std::vector{5, 6, 8}));
    EXPECT_TRUE(observer.jobs()[0].isOver && observer.jobs()[1].isOver);
}
