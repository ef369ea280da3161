#include "platform/win/system_metrics.h"

namespace win {

namespace {

int screenWidth = 1280;
int screenHeight = 1024;

}  // namespace

int GetSystemMetrics(int index) {
    switch (index) {
        case SM_CXSCREEN:
            return screenWidth;
        case SM_CYSCREEN:
            return screenHeight;
        case SM_CXVSCROLL:
        case SM_CYHSCROLL:
            return 17;
        case SM_CYCAPTION:
            return 19;
        case SM_CXBORDER:
        case SM_CYBORDER:
            return 1;
        case SM_CXDLGFRAME:
        case SM_CYDLGFRAME:
            return 3;
        case SM_CYMENU:
            return 19;
        case SM_CXFULLSCREEN:
            return screenWidth;
        case SM_CYFULLSCREEN:
            return screenHeight - 19;
        case SM_CXFRAME:
        case SM_CYFRAME:
            return 4;
        case SM_CXEDGE:
        case SM_CYEDGE:
            return 2;
        case SM_CYSMCAPTION:
            return 15;
        case SM_CXMINIMIZED:
            return 160;
        case SM_CYMINIMIZED:
            return 24;
        case SM_CXMAXIMIZED:
            return screenWidth + 8;
        case SM_CYMAXIMIZED:
            return screenHeight + 8;
        case SM_CXDRAG:
        case SM_CYDRAG:
            return 4;
        default:
            return 0;
    }
}

BOOL SetScreenSize(int cx, int cy) {
    if (cx < 1 || cy < 1) {
        return FALSE;
    }
    screenWidth = cx;
    screenHeight = cy;
    return TRUE;
}

}  // namespace win
