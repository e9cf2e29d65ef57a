// A small form designer: a form with the control on it, designed, kept in a file and run.
#pragma once

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "Skins.h"
#include "demos/form/design/DesignPage.h"
#include "demos/form/design/FormMenu.h"
#include "demos/form/design/Toolbox.h"
#include "host/PropertyFrame.h"
#include "host/TextHistory.h"

namespace vantik {

class Designer {
public:
    // With a new form.
    explicit Designer(ControlModule& module);
    ~Designer();
    Designer(const Designer&) = delete;
    Designer& operator=(const Designer&) = delete;

    // A file that cannot be opened is reported to the user, and what was open stays. One that is not there is to be made of
    // what is open.
    void Open(const std::filesystem::path& path);
    int RunMessages(); // until the window is closed

private:
    // Windows ask to be closed while they handle that message themselves.
    enum Late : UINT { EndRunMessage = WM_APP, EndPropertiesMessage };
    static constexpr int SizeGesture = -1; // of the window

    void MakeToolbox();
    void MakePage();
    std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    bool TranslateMessage(MSG& message);
    bool UsesKey(MSG& message);

    // Commands, in DesignCommands.cpp; what fails is told to the user.
    void OnCommand(WPARAM wParam);
    void CarryOut(DesignCommand command);
    template <class Piece>
    void Try(Piece piece) {
        try {
            piece();
        } catch (const std::exception& error) {
            Tell(error);
        }
    }
    void Tell(const std::exception& error);
    void New();
    void AskAndOpen();
    bool Save();
    bool SaveAs();
    bool MayLose(); // the changes are saved, or the user does without them
    void Step(void (TextHistory::*step)());
    void Close();
    void StartRun();
    void EndRun();
    void ShowProperties();
    void EndProperties();

    // What is shown
    void OpenNewForm();
    void Show(const std::string& text); // a form that cannot be shown leaves the one before
    void Begin(std::filesystem::path path);
    void FitWindow();
    void Arrange();
    void TakeKeyboard();
    void Changed(int gesture = TextHistory::OwnGesture);
    void ShowState();
    std::wstring Name() const;

    ControlModule& module_;
    FormFont font_;
    std::filesystem::path path_; // empty for a form that has no file yet
    TextHistory history_;
    int textGesture_ = TextHistory::OwnGesture; // the typing of one child's text
    bool fitting_ = false;                      // the window is given its size by the form, not the other way
    std::unique_ptr<FormWindow> window_;
    HMENU menu_;
    HACCEL keys_;
    std::unique_ptr<Toolbox> toolbox_;
    std::unique_ptr<DesignPage> page_;
    ComPtr<PropertyFrame> frame_;
    std::unique_ptr<FormView> running_;
};

} // namespace vantik
