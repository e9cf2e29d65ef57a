// The commands of the window.
#include <algorithm>

#include "FileDialogs.h"
#include "MainWindow.h"
#include "NewSkinFiles.h"
#include "host/HostError.h"

namespace vantik {

// From the menu and the keys, and from the lists.
void MainWindow::OnCommand(WPARAM wParam) {
    if (HIWORD(wParam) == LBN_SELCHANGE) {
        const int list = LOWORD(wParam);
        if (list == GetDlgCtrlID(pieces_->Window())) return ChooseFromList();
        if (list == GetDlgCtrlID(faults_->Window())) return ChooseFault();
    }
    if (HIWORD(wParam) <= 1) Carry(static_cast<Command>(LOWORD(wParam)));
}

void MainWindow::Carry(Command command) {
    try {
        CarryOut(command);
    } catch (const std::exception& error) {
        Fail(error);
    }
}

void MainWindow::CarryOut(Command command) {
    switch (command) {
    case NewCommand: return AskAndCreate();
    case OpenCommand: return AskAndOpen();
    case SaveCommand: Save(); return;
    case ReloadCommand: return session_.IsOpen() ? TakeChangedFiles() : void();
    case ExitCommand: return Close();
    case UndoCommand: session_.Definition().Undo(); return TextReplaced();
    case RedoCommand: session_.Definition().Redo(); return TextReplaced();
    case ZoomInCommand: return bitmap_->ZoomBy(1);
    case ZoomOutCommand: return bitmap_->ZoomBy(-1);
    case FitCommand: return bitmap_->Fit();
    case NextPaneCommand: return NextPane();
    case KeysCommand: return Ask([&] { ShowMessage(window_->Handle(), KeysText, MB_OK); });
    }
}

void MainWindow::Fail(const std::exception& error) {
    Ask([&] { ShowMessage(window_->Handle(), FromUtf8(error.what()), MB_ICONERROR); });
}

void MainWindow::EnableCommands() {
    EnableCommand(menu_, SaveCommand, session_.IsOpen());
    EnableCommand(menu_, ReloadCommand, session_.IsOpen());
    EnableCommand(menu_, UndoCommand, session_.Definition().CanUndo());
    EnableCommand(menu_, RedoCommand, session_.Definition().CanRedo());
}

void MainWindow::Open(const std::filesystem::path& path) {
    try {
        session_.Open(path);
        chosen_ = pointed_ = NoPiece;
        ShowSkin();
        bitmap_->Fit();
    } catch (const std::exception& error) {
        Fail(error);
    }
}

void MainWindow::Create(const std::filesystem::path& path) {
    try {
        WriteNewSkin(path);
    } catch (const std::exception& error) {
        return Fail(error);
    }
    Open(path);
}

void MainWindow::AskAndOpen() {
    if (!MayLose()) return;
    if (const auto path = Ask([&] { return AskForDefinition(window_->Handle()); })) Open(*path);
}

void MainWindow::AskAndCreate() {
    if (!MayLose()) return;
    if (const auto path = Ask([&] { return AskForNewDefinition(window_->Handle()); })) Create(*path);
}

// False when it failed, or when the user keeps what another program wrote meanwhile.
bool MainWindow::Save() {
    if (!session_.IsOpen()) return true;
    if (session_.ForeignText() && !Ask([&] { return AskToOverwrite(window_->Handle(), session_.Name()); }))
        return false;
    try {
        session_.Save();
    } catch (const std::exception& error) {
        Fail(error);
        return false;
    }
    ShowTitle();
    return true;
}

bool MainWindow::MayLose() {
    if (!session_.Definition().IsChanged()) return true;
    const Answer answer = Ask([&] { return AskToSave(window_->Handle(), session_.Name()); });
    return answer == Answer::No || (answer == Answer::Yes && Save());
}

void MainWindow::Close() {
    if (!asking_ && MayLose()) PostQuitMessage(0);
}

// It may name other files now.
void MainWindow::TextReplaced() {
    if (!session_.IsOpen()) return;
    chosenIsLit_ = false;
    session_.ReadFiles();
    ShowSkin();
}

void MainWindow::NextPane() {
    const std::array panes = {bitmap_->Window(), pieces_->Window(), faults_->Window()};
    const auto here = std::ranges::find(panes, GetFocus());
    SetFocus(here == panes.end() || here + 1 == panes.end() ? panes.front() : *(here + 1));
}

} // namespace vantik
