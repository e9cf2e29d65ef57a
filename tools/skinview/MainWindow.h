// The window of the program: the bitmap and its rectangles on the left, the controls on the right, faults below.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "BitmapPane.h"
#include "Layout.h"
#include "Menu.h"
#include "Previews.h"
#include "SkinSession.h"
#include "TextList.h"
#include "host/FormWindow.h"

namespace vantik {

class MainWindow {
public:
    explicit MainWindow(ControlModule& module);
    ~MainWindow();
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    // A file that cannot be opened is reported to the user, and what was open stays.
    void Open(const std::filesystem::path& path);
    void Create(const std::filesystem::path& path); // a new skin
    int Run();                                      // until the window is closed

private:
    class Asking {
    public:
        explicit Asking(int& depth) : depth_(depth) { ++depth_; }
        ~Asking() { --depth_; }
        Asking(const Asking&) = delete;
        Asking& operator=(const Asking&) = delete;

    private:
        int& depth_;
    };

    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnTimer(WPARAM timer);
    void OnCommand(WPARAM wParam);
    void OnDrop(HANDLE drop);
    void OnResolution(int dotsPerInch, const RECT& place);

    // Commands; what fails is told to the user.
    void Carry(Command command);
    void CarryOut(Command command);
    void AskAndOpen();
    void AskAndCreate();
    bool Save();
    bool MayLose(); // the changes are saved, or the user does without them
    void Close();
    void NextPane();
    void EnableCommands();
    void Fail(const std::exception& error);
    // Shows something that the user has to answer; meanwhile no files are read again.
    template <class Question>
    auto Ask(Question question) {
        const Asking asking(asking_);
        return question();
    }

    // What is shown
    void MakePanes();
    void Arrange();
    void ShowSkin();   // all of it
    void ShowPieces(); // after a change of the text
    void ShowBitmap();
    void ShowControls();
    void ShowFaults();
    void ShowTitle();
    void ShowStatus();
    void LightLater();
    std::int32_t PieceToLight() const;
    std::wstring ZoomText() const;

    // What panes report
    void PieceChosen(std::int32_t piece);
    void PieceMoved(std::int32_t piece, const EdgeNumbers& numbers, int gesture);
    void Choose(std::int32_t piece);
    void ChooseFromList();
    void ChooseFault();
    void TakeChangedFiles();
    void TextReplaced(); // by undo and redo

    ControlModule& module_;
    int dotsPerInch_;
    std::unique_ptr<FormFont> font_;
    SkinSession session_;
    std::unique_ptr<FormWindow> window_;
    HMENU menu_;
    HACCEL keys_;

    std::unique_ptr<BitmapPane> bitmap_;
    std::unique_ptr<TextList> pieces_, faults_;
    std::unique_ptr<Previews> previews_;
    HWND bitmapHead_ = nullptr, piecesHead_ = nullptr, faultsHead_ = nullptr, status_ = nullptr;
    std::array<HWND, 4> previewHeads_{};

    std::vector<Fault> found_;
    std::string refusal_; // what the controls say of a skin that they refuse
    std::int32_t chosen_ = NoPiece, pointed_ = NoPiece, lit_ = NoPiece;
    bool chosenIsLit_ = false; // as long as it was only chosen and not moved
    int asking_ = 0;           // questions to the user that are open
};

} // namespace vantik
