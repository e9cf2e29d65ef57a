// The control in the container of the sample, as the listing in C++ sets it up.
#include "TabSite.h"
#include "listed_form.h"
#include "listing.cpp"

int main() {
    OleInitialize(nullptr);
    const HWND form = MakeForm();
    const TabSite site(form, ListedPlace);
    MakeTabs(&site.Tab());
    ShowForm(form);
}
