#include "acedads.h"

#include <zuhost/message_box.h>

int acedPrompt(const ACHAR* text) {
    if (text == nullptr)
        return RTERROR;
    zuhost::printToCommandLine(text);
    return RTNORM;
}

int acedAlert(const ACHAR* text) {
    if (text == nullptr)
        return RTERROR;
    AfxMessageBox(text);
    return RTNORM;
}
