// A dialog from a template, with the control in it and forty pages.
#include "Dialog.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
    if (FAILED(OleInitialize(nullptr))) return 1;
    int result = 1;
    try {
        result = Dialog().Run();
    } catch (const ComError& error) {
        MessageBoxW(nullptr, (L"The control cannot be used: error " + std::to_wstring(error.Result)).c_str(),
                    L"Plain dialog", MB_ICONERROR);
    }
    OleUninitialize();
    return result;
}
