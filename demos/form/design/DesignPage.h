// The form under design: children are placed on the tab that the control shows, chosen, moved and resized.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "demos/form/design/FormView.h"
#include "demos/form/design/Marks.h"
#include "demos/form/design/model/Placing.h"

namespace vantik {

class DesignPage {
public:
    struct Handlers {
        std::function<void()> Changed;        // what is saved; never while the control is at work
        std::function<void()> Chosen;         // another child or none
        std::function<void()> ToolUsed;       // the pointer chooses again
        std::function<void()> EditText;       // of the chosen child
        std::function<void()> ShowProperties; // of the control
    };

    DesignPage(ControlModule& module, HWND parent, SIZE size, const FormFont& font, Handlers handlers);

    void Open(const DesignedForm& form); // as FormView::Open
    void OpenNew();                      // a control with its own defaults
    DesignedForm Form() { return view_.Form(); }
    HostForm& Host() noexcept { return view_.Host(); }
    SIZE Size() const { return view_.Size(); }
    void Resize(SIZE pixels);

    void UseTool(std::optional<ChildKind> tool); // for the next press; none: the pointer chooses
    bool UsesKey(const MSG& message);            // with the keyboard on the form

    const std::wstring& Chosen() const noexcept { return chosen_; } // its name; empty for none
    std::wstring ChosenText();
    void SetChosenText(const std::wstring& text);
    void RemoveChosen();

private:
    struct Gesture {
        enum class Kind { Draw, Move, Resize } What;
        Spot From;
        Box Start;
        Handle Held = Handle::TopLeft;
    };

    struct FirstPress {
        DWORD Time;
        Spot At;
    };

    FormHandlers MakeFormHandlers();
    void Renew(const std::function<void()>& open);
    void ControlChangedLater();
    void ControlChanged();

    // Pointer and keys, in DesignPointer.cpp
    std::optional<LRESULT> OnControlMessage(UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnPress(Spot spot);
    bool IsSecondPress(Spot spot);
    void ShowDetails(Spot spot);
    std::optional<LRESULT> OnMove(Spot spot);
    std::optional<LRESULT> OnRelease(Spot spot);
    std::optional<LRESULT> OnCursor(LPARAM lParam);
    const wchar_t* CursorAt(Spot spot);
    bool IsOnBar(Spot spot);
    void Begin(Spot spot);
    void CallOff();
    Box Dragged(const Gesture& gesture, Spot spot);
    bool UseArrow(WPARAM key);
    void ChooseNext(int direction);

    PageRules Rules(bool onGrid);
    PageRules Rules(); // as the keyboard says
    Box Page();
    int HandleSize() const;
    void Choose(const std::wstring& name);
    void ShowHandles();
    void ShowOutline(const std::optional<Box>& place);
    void Place(ChildKind kind, const Box& place);
    void PlaceChosen(const Box& place);

    Handlers handlers_;
    FormView view_;
    std::unique_ptr<Marks> grips_, outline_; // on the control's window
    std::wstring chosen_;
    std::optional<ChildKind> tool_;
    std::optional<Gesture> gesture_;
    std::optional<FirstPress> lastPress_;
    bool altWasUsed_ = false; // by a drag: letting it go opens no menu
};

} // namespace vantik
