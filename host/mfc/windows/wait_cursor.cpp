#include "zuhost/windows/wait_cursor.h"

#include <QCursor>
#include <QGuiApplication>

CWaitCursor::CWaitCursor() {
    Restore();
}

CWaitCursor::~CWaitCursor() {
    if (isShown_ && qGuiApp != nullptr)
        QGuiApplication::restoreOverrideCursor();
}

void CWaitCursor::Restore() {
    if (isShown_ || qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr)
        return;
    QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
    isShown_ = true;
}
