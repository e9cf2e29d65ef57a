#include "demos/form/design/Designer.h"

#include <algorithm>

#include "demos/form/design/FormFiles.h"
#include "host/HostError.h"

namespace vantik {

namespace {

constexpr SIZE FormSize = {640, 440}; // of a new form, at 96 dots per inch
constexpr std::int32_t TabOffSet = 40000;
constexpr std::int16_t TabCount = 3;

int Scaled(int length) { return MulDiv(length, ScreenResolution(), 96); }

// Drawn for the screen, where such a skin lies beside the program.
const SkinChoice& SkinForScreen(const std::vector<SkinChoice>& skins) {
    const int dotsPerInch = ScreenResolution();
    const std::wstring name = dotsPerInch < 120 ? L"light" : dotsPerInch < 168 ? L"light-150" : L"light-200";
    const auto found = std::ranges::find(skins, name, &SkinChoice::Name);
    return found == skins.end() ? skins.front() : *found;
}

void ApplySkin(IDispatch& control, const SkinChoice& skin, const ControlModule& module) {
    Put(control, L"SkinPath", skin.Folder);
    Put(control, L"SkinFile", skin.Lying.File);
    for (const SkinSetting& setting : skin.Lying.Settings)
        Put(control, setting.Property, SettingFromText(setting.Value, module.Constants()));
}

bool IsEndOfRun(const MSG& message) noexcept {
    return message.message == WM_KEYDOWN && message.wParam == VK_F5 && GetKeyState(VK_SHIFT) < 0;
}

} // namespace

Designer::Designer(ControlModule& module)
    : module_(module),
      window_(std::make_unique<FormWindow>(
          L"design", SIZE{Scaled(FormSize.cx) + Toolbox::Width(), Scaled(FormSize.cy)},
          [this](UINT m, WPARAM w, LPARAM l) { return OnMessage(m, w, l); })),
      menu_(MakeFormMenu()),
      keys_(MakeFormKeys()) {
    SetMenu(window_->Handle(), menu_);
    MakeToolbox();
    MakePage();
    OpenNewForm();
}

Designer::~Designer() {
    EndProperties();
    running_.reset();
    page_.reset();
    toolbox_.reset();
    DestroyAcceleratorTable(keys_);
}

void Designer::MakeToolbox() {
    Toolbox::Handlers handlers;
    handlers.ToolTaken = [this](std::optional<ChildKind> tool) { page_->UseTool(tool); };
    handlers.TextTyped = [this](const std::wstring& text) { page_->SetChosenText(text); };
    toolbox_ = std::make_unique<Toolbox>(window_->Handle(), font_, std::move(handlers));
}

void Designer::MakePage() {
    DesignPage::Handlers handlers;
    handlers.Changed = [this] { Changed(toolbox_->IsEditing() ? textGesture_ : TextHistory::OwnGesture); };
    handlers.Chosen = [this] {
        ++textGesture_;
        toolbox_->ShowChosen(page_->Chosen(), page_->ChosenText());
    };
    handlers.ToolUsed = [this] { toolbox_->ShowTool(std::nullopt); };
    handlers.EditText = [this] { toolbox_->EditText(); };
    handlers.ShowProperties = [this] { ShowProperties(); };
    page_ = std::make_unique<DesignPage>(module_, window_->Handle(),
                                         SIZE{Scaled(FormSize.cx), Scaled(FormSize.cy)}, font_,
                                         std::move(handlers));
}

// A new control has no tabs and a skin of its own to find; whoever designs a form wants to see something.
void Designer::OpenNewForm() {
    page_->OpenNew();
    IDispatch& control = page_->Host().Control();
    Put(control, L"TabOffSet", TabOffSet);
    Put(control, L"DefaultCaption", L"Page ");
    Put(control, L"DelButton", false);
    Put(control, L"TabCount", TabCount);
    Put(control, L"ActiveTab", std::int16_t{0});
    ApplySkin(control, SkinForScreen(FindSkins()),
              module_); // with tabs the control has written the built-in one
    Begin({});
}

// The form that is shown is the beginning of a history.
void Designer::Begin(std::filesystem::path path) {
    path_ = std::move(path);
    history_ = TextHistory(TextOf(page_->Form()));
    AddVerbs(menu_, *QueryFor<IOleObject>(page_->Host().ControlObject()).Get());
    FitWindow();
    ShowState();
}

void Designer::Show(const std::string& text) {
    const DesignedForm form = ParseForm(text);
    EndProperties();
    try {
        page_->Open(form);
    } catch (...) {
        page_->Open(ParseForm(history_.Text()));
        throw;
    }
}

void Designer::Open(const std::filesystem::path& path) {
    Try([&] {
        if (!std::filesystem::exists(path)) return Begin(path);
        const std::string text = ReadFormFile(path);
        try {
            Show(text);
        } catch (const std::exception& error) {
            throw HostError(ToUtf8(path.wstring()) + ", " + error.what());
        }
        Begin(path);
    });
}

void Designer::FitWindow() {
    const SIZE form = page_->Size();
    fitting_ = true;
    window_->ResizeClient(
        {Toolbox::Width() + form.cx, std::max(form.cy, static_cast<LONG>(Toolbox::Height()))});
    fitting_ = false;
    Arrange();
}

void Designer::Arrange() {
    const SIZE form = page_->Size();
    const LONG left = Toolbox::Width();
    page_->Host().Window().MoveTo({left, 0, left + form.cx, form.cy});
}

void Designer::Changed(int gesture) {
    history_.Change(TextOf(page_->Form()), gesture);
    ShowState();
}

std::wstring Designer::Name() const { return path_.empty() ? L"New form" : path_.filename().wstring(); }

void Designer::ShowState() {
    const std::wstring title = (history_.IsChanged() ? L"*" : L"") + Name() + L" - design";
    if (TextOf(window_->Handle()) != title) SetWindowTextW(window_->Handle(), title.c_str());
    EnableCommand(menu_, DesignCommand::Undo, history_.CanUndo());
    EnableCommand(menu_, DesignCommand::Redo, history_.CanRedo());
}

// Another control has come, and the keyboard went with the one before.
void Designer::TakeKeyboard() {
    if (!toolbox_->IsEditing()) page_->Host().UIActivate();
}

int Designer::RunMessages() {
    window_->Show();
    TakeKeyboard();
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (TranslateMessage(message)) continue;
        ::TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

bool Designer::TranslateMessage(MSG& message) {
    if (UsesKey(message)) return true;
    if (const auto frame = frame_; frame && frame->TranslateMessage(message)) return true;
    if (running_ && running_->Host().TranslateMessage(message)) return true;
    return page_->Host().TranslateMessage(message) || IsDialogMessageW(window_->Handle(), &message);
}

bool Designer::UsesKey(MSG& message) {
    const HWND top = GetAncestor(message.hwnd, GA_ROOT);
    if (running_ && top == running_->Host().Window().Handle()) {
        if (!IsEndOfRun(message)) return false;
        EndRun();
        return true;
    }
    if (top != window_->Handle()) return false;
    if (TranslateAcceleratorW(window_->Handle(), keys_, &message)) return true;
    const HWND form = page_->Host().Window().Handle();
    return (message.hwnd == form || IsChild(form, message.hwnd)) && page_->UsesKey(message);
}

std::optional<LRESULT> Designer::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (!page_) return std::nullopt; // not complete yet
    switch (message) {
    case WM_SIZE: {
        if (fitting_ || wParam == SIZE_MINIMIZED) return 0;
        const SIZE client = window_->ClientSize();
        page_->Resize({client.cx - Toolbox::Width(), client.cy});
        Arrange();
        Changed(SizeGesture);
        return 0;
    }
    case WM_GETMINMAXINFO:
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {Scaled(420), Toolbox::Height() + Scaled(60)};
        return 0;
    case WM_COMMAND: OnCommand(wParam); return 0;
    case EndRunMessage: EndRun(); return 0;
    case EndPropertiesMessage: EndProperties(); return 0;
    case WM_CLOSE: Close(); return 0;
    default: return std::nullopt;
    }
}

} // namespace vantik
