// A form of forty pages around the control in a window of class AtlAxWin, spoken to by names alone.
#include "Form.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
    if (FAILED(OleInitialize(nullptr))) return 1;
    int result = 1;
    try {
        result = Form().Run();
    } catch (const ComError& error) {
        MessageBoxW(nullptr, (L"The control cannot be used: error " + std::to_wstring(error.Result)).c_str(),
                    L"ATL window", MB_ICONERROR);
    }
    OleUninitialize();
    return result;
}
