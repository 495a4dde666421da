#include "commands/attribute_window.h"

#include "commands/plan_pane.h"
#include "failure.h"
#include "model/readable_file.h"
#include "text.h"

#include <zucomn/frame.h>
#include <zucomn/model/elements.h>
#include <zuhost/desktop.h>
#include <zuhost/windows/widgets.h>

#include <QDockWidget>
#include <QMainWindow>
#include <QPointer>
#include <QtGlobal>

#include <filesystem>

namespace zu::app {

namespace {

constexpr unsigned kTitle = 5006;
constexpr int kLeft = 80;
constexpr int kTop = 60;
constexpr int kWidth = 800;
constexpr int kHeight = 680;
constexpr int kPaneWidth = 340;

/// The attribute window with a plan that marks the selection; a click in the plan selects.
class PlanWindow : public CAttFrameWnd {
public:
    void addPlan(AcDbDatabase& drawing) {
        plan_ = new PlanPane(drawing, [this](AcDbObjectId element) {
            AcArray<AcDbObjectId> selected;
            selected.append(element);
            GetLeftPane()->Select(selected);
        });
        auto& frame = static_cast<QMainWindow&>(*zuhost::widgetOf(*this));
        auto* const dock = new QDockWidget(&frame);
        dock->setTitleBarWidget(new QWidget(dock));
        dock->setFeatures(QDockWidget::NoDockWidgetFeatures);
        dock->setWidget(plan_);
        frame.addDockWidget(Qt::BottomDockWidgetArea, dock);
    }

    void OnSelection(const AcArray<AcDbObjectId>& entities) override {
        if (plan_ != nullptr)
            plan_->mark({entities.begin(), entities.end()});
    }

private:
    QPointer<PlanPane> plan_;
};

/// Returns the drawing of the entities when its plan can be drawn while a user waits, else null.
AcDbDatabase* drawingToShow(const AcArray<AcDbObjectId>& entities) {
    AcDbDatabase* const drawing = entities.isEmpty() ? nullptr : entities[0].database();
    const bool isSmall =
        drawing != nullptr && zucomn::modelSpaceReferences(*drawing).size() <= PlanPane::kMostElements;
    return isSmall ? drawing : nullptr;
}

} // namespace

void preparePictures(const std::string& picture) {
    constexpr const char* kPlatform = "QT_QPA_PLATFORM";
    if (!picture.empty() && !qEnvironmentVariableIsSet(kPlatform))
        qputenv(kPlatform, "offscreen");
}

CAttFrameWnd& openAttributeWindow(const AcArray<AcDbObjectId>& entities, const std::string& drawing) {
    CString title;
    ZuComn_LoadString(ZuComn_GetResource(), kTitle, title);
    title += L" - " + CString(wide(std::filesystem::path(drawing).filename().string()));
    auto* const window = new PlanWindow;
    if (window->Create(nullptr, title, WS_OVERLAPPEDWINDOW,
                       CRect(kLeft, kTop, kLeft + kWidth, kTop + kHeight)) == FALSE)
        throw Failure("the attribute window can't be made");
    window->SetPaneWidth(kPaneWidth);
    if (AcDbDatabase* const shown = drawingToShow(entities))
        window->addPlan(*shown);
    window->GetLeftPane()->SetEntities(entities);
    window->ShowWindow(SW_SHOW);
    return *window;
}

void showToUser(CFrameWnd& window) {
    if (!zuhost::hasDesktop()) {
        window.DestroyWindow();
        throw Failure("there is no desktop to show a window on; --screenshot draws it into a file");
    }
    zuhost::setMessageBoxPresenter({});
}

void selectAll(const CAttFrameWnd& window) {
    window.GetLeftPane()->SelectAll();
}

void closeWithPicture(CFrameWnd& window, const std::string& picture) {
    const bool saved = zuhost::savePicture(window, picture);
    window.DestroyWindow();
    if (!saved)
        throw Failure(withLastError(picture));
}

} // namespace zu::app
