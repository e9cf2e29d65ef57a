// A form with the control VantikFrameTab1 over all of it, for a program in Basic, as far as VBScript is Basic. Row is the
// row of bars as screen readers find it. Says "done" once the program has run, and stays.
#include <cstdio>
#include <fstream>
#include <iterator>
#include <map>

#include "host/BuiltControl.h"
#include "host/ComObject.h"
#include "host/HostForm.h"
#include "host/MessageLoop.h"
#include "host/OleApartment.h"
#include "host/ProgramArguments.h"

#include <activscp.h>
#include <oleacc.h>

namespace vantik {

namespace {

// What a running script asks of its host: the objects that it names.
class ScriptSite final : public ComObject<IActiveScriptSite> {
public:
    explicit ScriptSite(std::map<std::wstring, ComPtr<IUnknown>> objects) : objects_(std::move(objects)) {}

    STDMETHODIMP GetLCID(LCID*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetItemInfo(LPCOLESTR name, DWORD wanted, IUnknown** item,
                             ITypeInfo** type) noexcept override {
        if (type) *type = nullptr;
        if (wanted & SCRIPTINFO_IUNKNOWN) *item = objects_.at(name).Copy();
        return S_OK;
    }
    STDMETHODIMP GetDocVersionString(BSTR*) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP OnScriptTerminate(const VARIANT*, const EXCEPINFO*) noexcept override { return S_OK; }
    STDMETHODIMP OnStateChange(SCRIPTSTATE) noexcept override { return S_OK; }
    STDMETHODIMP OnScriptError(IActiveScriptError* error) noexcept override {
        EXCEPINFO what = {};
        DWORD context = 0;
        ULONG line = 0;
        LONG column = 0;
        error->GetExceptionInfo(&what);
        error->GetSourcePosition(&context, &line, &column);
        std::fprintf(stderr, "line %lu: %ls\n", line + 1, what.bstrDescription ? what.bstrDescription : L"");
        SysFreeString(what.bstrSource);
        SysFreeString(what.bstrDescription);
        SysFreeString(what.bstrHelpFile);
        return S_OK;
    }
    STDMETHODIMP OnEnterScript() noexcept override { return S_OK; }
    STDMETHODIMP OnLeaveScript() noexcept override { return S_OK; }

private:
    std::map<std::wstring, ComPtr<IUnknown>> objects_;
};

ComPtr<IActiveScript> NewEngine() {
    CLSID id = {};
    ComPtr<IActiveScript> engine;
    Check(CLSIDFromProgID(L"VBScript", &id), "Finding VBScript");
    Check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IActiveScript), engine.PutVoid()),
          "Making VBScript");
    return engine;
}

ComPtr<IUnknown> RowOf(HWND control) {
    ComPtr<IUnknown> row;
    Check(AccessibleObjectFromWindow(control, static_cast<DWORD>(OBJID_CLIENT), IID_IUnknown, row.PutVoid()),
          "Finding the row");
    return row;
}

void Run(const std::wstring& text, HostForm& form) {
    const auto engine = NewEngine();
    const std::map<std::wstring, ComPtr<IUnknown>> objects = {
        {L"VantikFrameTab1", ComPtr<IUnknown>(form.ControlObject())}, {L"Row", RowOf(form.ControlWindow())}};
    const auto site = MakeCom<ScriptSite>(objects);
    const auto parser = engine.As<IActiveScriptParse>();
    Check(engine->SetScriptSite(site.Get()), "SetScriptSite");
    Check(parser->InitNew(), "InitNew");
    for (const auto& [name, object] : objects)
        Check(engine->AddNamedItem(name.c_str(), SCRIPTITEM_ISVISIBLE), "AddNamedItem");
    Check(engine->SetScriptState(SCRIPTSTATE_STARTED), "SetScriptState");
    const HRESULT result =
        parser->ParseScriptText(text.c_str(), nullptr, nullptr, nullptr, 0, 0, 0, nullptr, nullptr);
    engine->Close();
    Check(result, "The program");
}

std::wstring ReadText(const std::wstring& path) {
    std::ifstream file(ToUtf8(path), std::ios::binary);
    if (!file) throw HostError("cannot read " + ToUtf8(path));
    return FromUtf8(std::string(std::istreambuf_iterator<char>(file), {}));
}

int Main(const std::vector<std::wstring>& arguments) {
    const OleApartment apartment;
    const LONG width = std::stol(arguments[0]), height = std::stol(arguments[1]);
    ControlModule module(FindBuiltControl());
    HostForm form(
        module, {.Title = L"Listing", .ClientSize = {width, height}, .ControlPlace = {0, 0, width, height}});
    form.OpenNew();
    form.Window().Show();
    Run(ReadText(arguments[2]), form);
    std::puts("done");
    std::fflush(stdout);
    return RunMessages(form);
}

} // namespace

} // namespace vantik

int main() {
    try {
        const std::vector<std::wstring> arguments = vantik::ProgramArguments();
        if (arguments.size() == 3) return vantik::Main(arguments);
        std::fputs("usage: basic_form WIDTH HEIGHT PROGRAM.vbs\n", stderr);
        return 2;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "basic_form: %s\n", error.what());
        return 1;
    }
}
