// A sample in a process of its own, with the form that it shows: looked at as a screen reader does, and driven by messages.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "acctree/TreeText.h"

namespace vantik {

class RunningSample {
public:
    // Begins without what an earlier run wrote beside the program, and waits for the form. Throws HostError when it does not come.
    RunningSample(const std::wstring& program, const std::wstring& title);
    ~RunningSample(); // by force, if it is still there
    RunningSample(const RunningSample&) = delete;
    RunningSample& operator=(const RunningSample&) = delete;

    HWND Form() const noexcept { return form_; }
    HWND Tabs() const; // the control's window, which stands on it

    // Whether a line of the control's tree, or of the form's own labels, has the text. Shows waits for it, and prints what
    // is there instead.
    bool Has(const std::string& text) const;
    bool Shows(const std::string& text) const;
    bool HasInView(const std::wstring& name) const; // a tab or button of the row
    bool HasBesideIt(const wchar_t* name) const;    // a file or folder beside the program
    void Press(WORD key) const;                     // where the focus is

    // With the pointer on the tab or button that readers know by the name. HostError where none is shown.
    void Click(const std::wstring& name) const;
    // In the menu that the sample shows: the entry so many steps down.
    void ChooseFromMenu(int steps) const;
    // In the message box that the sample shows. False when none comes.
    bool Answer(WORD button) const;

    // False when it did not become so for a good while.
    static bool Becomes(const std::function<bool()>& holds);

    // Of one that ends by itself, or as its user closes it; STILL_ACTIVE where it does not.
    DWORD ExitCode() const;
    DWORD Close() const;

private:
    HWND FindWindowOfClass(const wchar_t* name) const;
    std::vector<std::string> Labels() const; // of the form
    TreeOptions Options() const;

    std::filesystem::path program_;
    HANDLE process_ = nullptr;
    HWND form_ = nullptr;
};

} // namespace vantik
