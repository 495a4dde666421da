#pragma once

#include <acarray.h>
#include <dbid.h>
#include <zucomn/views.h>

#include <string>

namespace zu::app {

/// With a picture asked for, windows are drawn off the screen unless the environment says where.
void preparePictures(const std::string& picture);

/// The attribute window, filled and shown; it deletes itself when it is closed.
CAttFrameWnd& openAttributeWindow(const AcArray<AcDbObjectId>& entities, const std::string& drawing);

/// Lets message boxes ask the user, who sees the window; without a desktop closes the window and throws
/// Failure.
void showToUser(CFrameWnd& window);

/// Selects every line of the window's list.
void selectAll(const CAttFrameWnd& window);

/// Draws a window into a .png file and closes it; throws Failure when the file can't be written.
void closeWithPicture(CFrameWnd& window, const std::string& picture);

} // namespace zu::app
