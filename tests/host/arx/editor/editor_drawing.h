#pragma once

#include <acdocman.h>
#include <aced.h>
#include <adslib.h>
#include <dbapserv.h>
#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>
#include <geassign.h>
#include <zuhost/command_line.h>
#include <zuhost/input.h>
#include <zuhost/result_chain.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

using Chain = zuhost::ResultChain;

/// An empty working drawing, without input; what is printed is captured.
class EditorDrawing : public testing::Test {
protected:
    EditorDrawing() { acdbHostApplicationServices()->setWorkingDatabase(&drawing); }
    ~EditorDrawing() override {
        zuhost::clearPendingInput();
        zuhost::setInputSource({});
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    }

    static void type(const wchar_t* text) {
        zuhost::clearPendingInput();
        acDocManager->sendStringToExecute(acDocManager->curDocument(), text);
    }

    static bool make(const Chain& list) { return acdbEntMake(list.get()) == RTNORM; }
    static void makeLine(double x1, double y1, double x2, double y2, const wchar_t* layer = L"0",
                         int color = 256) {
        const ads_point from{x1, y1, 0};
        const ads_point to{x2, y2, 0};
        EXPECT_TRUE(
            make(Chain(acutBuildList(RTDXF0, L"LINE", 8, layer, 62, color, 10, from, 11, to, RTNONE))));
    }
    static void makeCircle(double x, double y, double radius, const wchar_t* layer = L"0") {
        const ads_point centre{x, y, 0};
        EXPECT_TRUE(make(Chain(acutBuildList(RTDXF0, L"CIRCLE", 8, layer, 10, centre, 40, radius, RTNONE))));
    }

    static const resbuf* item(const Chain& list, int code) {
        const resbuf* found = list.get();
        while (found != nullptr && found->restype != code)
            found = found->rbnext;
        return found;
    }

    zuhost::CommandLineObserver printed;
    AcDbDatabase drawing;
};
