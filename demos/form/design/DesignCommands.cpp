// The designer's commands.
#include "demos/form/design/Designer.h"
#include "demos/form/design/FormFiles.h"
#include "host/HostError.h"
#include "host/SafeFile.h"

namespace vantik {

namespace {

constexpr wchar_t Title[] = L"VantikFrameTab designer";

// Into the lower right corner, where it covers no bars.
void PutInCorner(HWND window, HWND owner) {
    RECT place = {}, corner = {};
    GetWindowRect(window, &place);
    GetWindowRect(owner, &corner);
    SetWindowPos(window, nullptr, corner.right - (place.right - place.left),
                 corner.bottom - (place.bottom - place.top), 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

} // namespace

// From the menu and the keys, and from the toolbox.
void Designer::OnCommand(WPARAM wParam) {
    Try([&] {
        if (toolbox_->Command(wParam) || HIWORD(wParam) > 1) return;
        const WORD id = LOWORD(wParam);
        if (id >= FirstVerb && id <= LastVerb)
            page_->Host().DoVerb(id - FirstVerb);
        else
            CarryOut(static_cast<DesignCommand>(id));
    });
}

void Designer::CarryOut(DesignCommand command) {
    using enum DesignCommand;
    switch (command) {
    case DesignCommand::New: return Designer::New();
    case DesignCommand::Open: return AskAndOpen();
    case DesignCommand::Save: Designer::Save(); return;
    case DesignCommand::SaveAs: Designer::SaveAs(); return;
    case Exit: return Close();
    case Undo: return Step(&TextHistory::Undo);
    case Redo: return Step(&TextHistory::Redo);
    case Delete: return page_->RemoveChosen();
    case Properties: return page_->Host().DoVerb(OLEIVERB_PROPERTIES);
    case Run: return StartRun();
    case End: return EndRun();
    case Keys: MessageBoxW(window_->Handle(), DesignKeysText, Title, MB_OK);
    }
}

void Designer::Tell(const std::exception& error) {
    MessageBoxW(window_->Handle(), FromUtf8(error.what()).c_str(), Title, MB_ICONERROR);
}

void Designer::New() {
    if (!MayLose()) return;
    EndProperties();
    OpenNewForm();
    TakeKeyboard();
}

void Designer::AskAndOpen() {
    if (!MayLose()) return;
    if (const auto path = AskForFile(window_->Handle(), L"Open a form", FormFiles)) Open(*path);
    TakeKeyboard();
}

bool Designer::Save() {
    if (path_.empty()) return SaveAs();
    WriteFileSafely(path_, history_.Text());
    history_.NoteSaved();
    ShowState();
    return true;
}

bool Designer::SaveAs() {
    const auto path =
        AskForNewFile(window_->Handle(), L"Save the form", FormFiles, path_.wstring(), IfThere::Ask);
    if (!path) return false;
    const auto before = std::exchange(path_, *path);
    try {
        return Save();
    } catch (...) {
        path_ = before;
        throw;
    }
}

bool Designer::MayLose() {
    if (!history_.IsChanged()) return true;
    const Answer answer = AskToSave(window_->Handle(), Title, Name());
    return answer == Answer::No || (answer == Answer::Yes && Save());
}

void Designer::Step(void (TextHistory::*step)()) {
    (history_.*step)();
    Show(history_.Text());
    FitWindow();
    TakeKeyboard();
    ShowState();
}

void Designer::Close() {
    Try([&] {
        if (running_) return EndRun();
        if (MayLose()) PostQuitMessage(0);
    });
}

// The form as it would be saved, read again: what runs is what a file holds.
void Designer::StartRun() {
    if (running_) return;
    EndProperties();
    const DesignedForm form = ParseForm(history_.Text());
    FormLayout layout;
    layout.Title = Name() + L" - run";
    layout.ClientSize = PixelsOf(form);
    layout.ControlName = form.ControlName;
    FormHandlers handlers;
    handlers.Message = [this](UINT message, WPARAM, LPARAM) -> std::optional<LRESULT> {
        if (message != WM_CLOSE) return std::nullopt;
        PostMessageW(window_->Handle(), EndRunMessage, 0, 0);
        return 0;
    };
    auto running = std::make_unique<FormView>(module_, font_, FormView::Purpose::Use, layout, handlers);
    running->Open(form);
    running->Host().Window().Show();
    running->Host().UIActivate();
    EnableWindow(window_->Handle(), FALSE);
    running_ = std::move(running);
}

void Designer::EndRun() {
    EnableWindow(window_->Handle(), TRUE);
    running_.reset();
    SetForegroundWindow(window_->Handle());
    Try([&] { TakeKeyboard(); });
}

void Designer::ShowProperties() {
    if (frame_) return frame_->ComeToFront();
    frame_ = MakeCom<PropertyFrame>(page_->Host().ControlObject(),
                                    [this] { PostMessageW(window_->Handle(), EndPropertiesMessage, 0, 0); });
    PutInCorner(frame_->Window().Handle(), window_->Handle());
}

void Designer::EndProperties() {
    if (const auto frame = std::exchange(frame_, nullptr)) frame->End();
}

} // namespace vantik
