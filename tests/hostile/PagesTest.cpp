// The property pages of a system that refuses this or that, one call or one request for memory at a time: whatever fails,
// the next page works, and the module can go.
#include <doctest/doctest.h>

#include <algorithm>

#include "hostile/FaultInjector.h"
#include "hostile/ModuleMemory.h"
#include "hostile/Rounds.h"
#include "ole/LooseControl.h"
#include "ole/pages/PageNumbers.h"

namespace vantik {

namespace {

constexpr CLSID PageIds[] = {{0x2A268946, 0x78E0, 0x4DFB, {0xBF, 0x3D, 0xC9, 0xDB, 0x8C, 0x26, 0xF5, 0x5B}},
                             {0x8B514BAB, 0x4522, 0x4613, {0x9D, 0xD6, 0x5C, 0x73, 0x61, 0x47, 0xA3, 0x3D}}};

HMODULE BuiltModule() { return GetModuleHandleW(L"VantikFrameTab.ocx"); }

ComPtr<IPropertyPage2> NewPage(REFCLSID id) {
    using Function = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    const auto get = reinterpret_cast<Function>(GetProcAddress(BuiltModule(), "DllGetClassObject"));
    ComPtr<IClassFactory> factory;
    ComPtr<IPropertyPage2> page;
    if (SUCCEEDED(get(id, IID_IClassFactory, factory.PutVoid())))
        factory->CreateInstance(nullptr, IID_IPropertyPage2, page.PutVoid());
    return page;
}

void Pump() {
    for (MSG message; PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE);) DispatchMessageW(&message);
}

// A control with a page on it, in a window.
struct Stage : LooseControl {
    HWND Frame = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 520, 280, nullptr, nullptr,
                                 nullptr, nullptr);
    Stage() { Tab->put_TabCount(3); }
    ~Stage() { DestroyWindow(Frame); }

    // All that a frame and its user do with a page, as far as it gets.
    void Live(REFCLSID id, int field, const wchar_t* text) const {
        const auto page = NewPage(id);
        if (!page) return;
        PROPPAGEINFO info = {};
        info.cb = sizeof info;
        page->GetPageInfo(&info);
        CoTaskMemFree(info.pszTitle);
        CoTaskMemFree(info.pszDocString);
        const RECT place = {0, 0, 500, 250};
        page->Activate(Frame, &place, FALSE);
        page->Show(SW_SHOW);
        IUnknown* objects[] = {Object()};
        page->SetObjects(1, objects);
        SetWindowTextW(GetDlgItem(GetWindow(Frame, GW_CHILD), field), text);
        Pump();
        RedrawWindow(Frame, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        page->Apply();
        page->SetObjects(0, nullptr);
        page->Deactivate();
        Pump();
    }
    void LiveOnBoth() const {
        Live(PageIds[0], GENERAL_WIDTH, L"47");
        Live(PageIds[1], SKIN_FOLDER, L"Temp");
    }

    void CheckThatItRecovers() {
        CHECK(GetWindow(Frame, GW_CHILD) == nullptr);
        Tab->put_BarWidth(20);
        Live(PageIds[0], GENERAL_WIDTH, L"47");
        CHECK(Get(Dispatch(), L"BarWidth").Number() == 47);
        Release();
        CHECK(Module().CanUnload());
    }
};

std::vector<long> CallsOfALife() {
    const Stage stage;
    const FaultInjector injector(BuiltModule());
    stage.LiveOnBoth();
    std::vector<long> calls;
    for (const FaultyImport& import : FaultyImports()) calls.push_back(import.Calls);
    return calls;
}

} // namespace

TEST_CASE("whichever call of the system fails under a property page, the next page works") {
    const std::vector<long> calls = CallsOfALife();
    for (std::size_t row = 0; row < calls.size(); ++row) {
        FaultyImport& import = FaultyImports()[row];
        const std::string name = import.Name;
        CAPTURE(name);
        // On its own thread a window can be destroyed in the end.
        const bool alwaysOnce = name == "DestroyWindow";
        const long rounds = std::min<long>(calls[row], Rounds(3));
        for (long round = 0; round < rounds; ++round) {
            const long from = 1 + round * calls[row] / rounds;
            CAPTURE(from);
            const bool failsOnce = alwaysOnce || round % 2;
            Stage stage;
            {
                const FaultInjector injector(BuiltModule());
                import.FailsFrom = from;
                import.FailsTo = from + (failsOnce ? 0 : 50);
                stage.LiveOnBoth();
            }
            stage.CheckThatItRecovers();
        }
    }
}

TEST_CASE("whichever request for memory fails under a property page, the next page works") {
    bool failed = true;
    for (long number = 0; failed; number += 1 + number / 8) {
        CAPTURE(number);
        Stage stage;
        {
            ModuleMemory memory(BuiltModule());
            memory.FailAt(number);
            stage.LiveOnBoth();
            failed = memory.HasFailed();
        }
        stage.CheckThatItRecovers();
    }
}

} // namespace vantik
