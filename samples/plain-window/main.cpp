// A form of forty pages with nothing but the system: the windows on the pages are children of the control's window.
#include "Form.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
    if (FAILED(OleInitialize(nullptr))) return 1;
    int result = 1;
    try {
        result = Form().Run();
    } catch (const ComError& error) {
        MessageBoxW(nullptr, (L"The control cannot be used: error " + std::to_wstring(error.Result)).c_str(),
                    L"Plain window", MB_ICONERROR);
    }
    OleUninitialize();
    return result;
}
