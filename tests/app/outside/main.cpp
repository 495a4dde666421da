#include <dbents.h>
#include <dbobjptr.h>
#include <zucomn/attributes.h>
#include <zucomn/dbservices.h>
#include <zucomn/frame.h>
#include <zucomn/replace_reactor.h>
#include <zucomn/route.h>
#include <zucomn/settings.h>
#include <zucomn/strings.h>
#include <zucomn/tables.h>

#include <cstdio>

int main(int count, char** arguments) {
    ZuComn_SetResource();
    AcDbDatabase drawing(false);
    if (count != 2 ||
        drawing.dxfIn(std::wstring(arguments[1], arguments[1] + std::char_traits<char>::length(arguments[1]))
                          .c_str()) != Acad::eOk)
        return 1;
    AcDbObjectId element;
    drawing.getAcDbObjectId(element, false, AcDbHandle(L"110"));
    int code = -1;
    ZuComn_GetBlockElementCode(element, code);
    std::printf("code %d\n", code);
    return code == 1 ? 0 : 1;
}
