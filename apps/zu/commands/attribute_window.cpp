#include "commands/attribute_window.h"

#include "failure.h"
#include "model/readable_file.h"
#include "text.h"

#include <zucomn/frame.h>
#include <zuhost/desktop.h>

#include <cstdlib>
#include <filesystem>

namespace zu::app {

namespace {

constexpr unsigned kTitle = 5006;
constexpr int kLeft = 80;
constexpr int kTop = 60;
constexpr int kWidth = 800;
constexpr int kHeight = 520;
constexpr int kPaneWidth = 340;

} // namespace

void preparePictures(const std::string& picture) {
    constexpr int kKeepWhatIsSet = 0;
    if (!picture.empty())
        setenv("QT_QPA_PLATFORM", "offscreen", kKeepWhatIsSet);
}

CAttFrameWnd& openAttributeWindow(const AcArray<AcDbObjectId>& entities, const std::string& drawing) {
    CString title;
    ZuComn_LoadString(ZuComn_GetResource(), kTitle, title);
    title += L" - " + CString(wide(std::filesystem::path(drawing).filename().string()));
    auto* const window = new CAttFrameWnd;
    if (window->Create(nullptr, title, WS_OVERLAPPEDWINDOW,
                       CRect(kLeft, kTop, kLeft + kWidth, kTop + kHeight)) == FALSE)
        throw Failure("the attribute window can't be made");
    window->SetPaneWidth(kPaneWidth);
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
