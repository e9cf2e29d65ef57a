// The control in a window of class AtlAxWin, as the listing in C++ sets it up.
#include "AtlHost.h"
#include "listed_form.h"
#include "listing.cpp"

int main() {
    OleInitialize(nullptr);
    const HWND form = MakeForm();
    const AtlHost host(form, L"VantikFrameTabProject.VantikFrameTab");
    MoveWindow(host.Window(), 0, 0, ListedPlace.right, ListedPlace.bottom, FALSE);
    MakeTabs(&host.Control());
    ShowForm(form);
}
