#include "control/VantikFrameTab.h"

#include <utility>

#include "about/frmAbout.h"
#include "render/CaptionFont.h"
#include "render/CaptionPainter.h"
#include "skin/SkinLoader.h"
#include "skin/SkinLocation.h"

namespace vantik {

VantikFrameTab::VantikFrameTab(UserControl& host)
    : host_(host),
      children_(host, state_),
      decorations_(host, state_, surfaces_),
      driver_(host, state_, surfaces_, decorations_),
      merged_(driver_, state_) {}

VantikFrameTab::~VantikFrameTab() { decorations_.Terminate(); }

void VantikFrameTab::AfterLet(Property property) {
    host_.PropertyChanged(property);
    switch (InfoOf(property).Effect) {
    case SideEffect::RepaintAll: RepaintAll(); break;
    case SideEffect::RedrawBars: RedrawBars(); break;
    case SideEffect::RepaintFrameThenBars:
        merged_.RepaintFrame();
        RedrawBars();
        break;
    case SideEffect::ReleaseCloseButtonThenRedrawBars:
        decorations_.ReleaseCloseButton();
        RedrawBars();
        break;
    case SideEffect::None:
    case SideEffect::OwnRoutine: break;
    }
}

void VantikFrameTab::Picture(ComPtr<IPictureDisp> picture) {
    merged_.CarryOut(); // no repaint follows
    surfaces_.Picture = std::move(picture);
    host_.PropertyChanged(Property::Picture);
    surfaces_.PictureSurface.CreateFromPicture(surfaces_.Picture.Get());
}

void VantikFrameTab::Font(ComPtr<IFontDisp> font) {
    surfaces_.Font = std::move(font);
    host_.PropertyChanged(Property::Font);
    RedrawBars();
}

void VantikFrameTab::SkinFile(const std::u16string& name) {
    if (!SkinFileExists(host_, state_, name)) return host_.MsgBox(NoSuchSkinFile);
    state_.Properties.SkinFile = name;
    host_.PropertyChanged(Property::SkinFile);
    skinWasLoaded_ = true;
    merged_.CarryOut(); // no repaint follows when the skin turns out to be bad
    ReadSkin();
    RepaintAll();
}

// The skin is not read again: a following SkinFile or the next load uses the new folder.
void VantikFrameTab::SkinPath(const std::u16string& folder) {
    if (!SkinFolderExists(host_, folder)) return host_.MsgBox(NoSuchSkinFolder);
    state_.Properties.SkinPath = folder;
    state_.ReplacedSkinPath.reset();
    host_.PropertyChanged(Property::SkinPath);
}

void VantikFrameTab::About() { ShowAbout(host_.hWnd()); }

void VantikFrameTab::RepaintAll() {
    ShowForTheFirstTime();
    merged_.RepaintAll();
}

bool VantikFrameTab::ShowsWholeCaption(std::int16_t tab) {
    return CaptionPainter(host_, state_, surfaces_, decorations_).IsWhole(tab, state_.StateOf(tab));
}

void VantikFrameTab::RedrawBars() { merged_.RedrawBars(); }

void VantikFrameTab::UserControl_Resize() { RepaintAll(); }

// What shortage made of the picture since the last look is painted over: the whole of it, as nobody knows where it was.
void VantikFrameTab::UserControl_Paint() noexcept {
    try {
        const unsigned shortages = ShortagesSoFar();
        if (std::exchange(shortages_, shortages) != shortages) {
            RetrySkin();
            merged_.RepaintAfresh();
        }
        if (IsFirstShowing()) RepaintAll();
        merged_.CarryOut();
        painting_.Succeeded();
    } catch (...) {
        TellIfShortage();
        painting_.Failed(u"while it was painted"); // the surface shows what was painted so far
    }
}

bool VantikFrameTab::IsFirstShowing() { return !wasShown_ && host_.hWnd() && TabCount() > 0; }

// A host that creates the control at run time and loads no saved properties never installed the hook and, unless it
// assigned SkinFile, never loaded a skin.
void VantikFrameTab::ShowForTheFirstTime() noexcept {
    if (!IsFirstShowing()) return;
    wasShown_ = true; // once: a failure leaves the control unskinned and alive
    skinIsDue_ = !skinWasLoaded_;
    try {
        InstallHookAtRunTime();
        if (skinIsDue_) ReadSkin();
    } catch (...) {
        TellIfShortage();
        TellDebugger(u"when it was first shown");
    }
}

// One that could not be had for want of resources is due at the next look.
void VantikFrameTab::ReadSkin() {
    skinIsDue_ = false;
    try {
        LoadSkin(host_, state_, surfaces_);
    } catch (...) {
        skinIsDue_ = TellIfShortage();
        throw;
    }
}

void VantikFrameTab::RetrySkin() noexcept {
    if (!skinIsDue_) return;
    try {
        UserControl_WindowCreated(); // its hook may have failed with it
        ReadSkin();
        retrying_.Succeeded();
    } catch (...) {
        retrying_.Failed(u"when its skin was tried again");
    }
}

void VantikFrameTab::MeasureCaptionHeight() {
    surfaces_.CaptionTextHeight = CaptionTextHeightOf(surfaces_.Font.Get(), host_.hDC());
}

} // namespace vantik
