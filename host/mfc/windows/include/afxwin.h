#pragma once

#include "afx.h"
#include "afxcoll.h"
#include "afxdllx.h"
#include "afxmbox_.h"
#include "zuhost/windows/app.h"
#include "zuhost/windows/controls.h"
#include "zuhost/windows/frame.h"
#include "zuhost/windows/gdi.h"
#include "zuhost/windows/menu.h"
#include "zuhost/windows/wait_cursor.h"
#include "zuhost/windows/wnd.h"
