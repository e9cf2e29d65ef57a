// The control as a picture: in other device contexts, other places, other sizes, and as a metafile.
#include <doctest/doctest.h>

#include <limits>

#include "host/ControlOnForm.h"
#include "ole/Canvas.h"
#include "ole/LooseControl.h"

namespace vantik {

namespace {

constexpr int Width = 200, Height = 100;

// A control with a skin, 200 x 100 pixels, on no form.
struct PaintedControl : LooseControl {
    PaintedControl() {
        const auto bag = MakeCom<TextPropertyBag>();
        bag->Parse("TabCount = 2\nActiveTab = 0\nBarWidth = 50\n");
        REQUIRE(As<IPersistPropertyBag>()->Load(bag.Get(), nullptr) == S_OK);
        SIZEL size = {MulDiv(Width, 2540, 96), MulDiv(Height, 2540, 96)};
        REQUIRE(As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size) == S_OK);
    }
};

int Differences(const Canvas& a, const Canvas& b, POINT offset = {}) {
    int differences = 0;
    for (int y = 0; y < Height; ++y)
        for (int x = 0; x < Width; ++x) differences += a.At(x, y) != b.At(x + offset.x, y + offset.y);
    return differences;
}

} // namespace

TEST_CASE("Drawing fills exactly the rectangle, wherever it lies") {
    PaintedControl control;
    Canvas atOrigin(Width, Height), moved(Width + 40, Height + 30);
    REQUIRE(Draw(control.Object(), atOrigin.DC(), {0, 0, Width, Height}) == S_OK);
    REQUIRE(Draw(control.Object(), moved.DC(), {15, 7, 15 + Width, 7 + Height}) == S_OK);
    CHECK(Differences(atOrigin, moved, {15, 7}) == 0);
    CHECK(atOrigin.At(60, 11) != atOrigin.At(60, 60)); // bars and page differ: something was painted
    for (int x = 0; x < Width + 40; ++x) {
        CHECK(moved.At(x, 6) == Canvas::Untouched);
        CHECK(moved.At(x, 7 + Height) == Canvas::Untouched);
    }
    for (int y = 0; y < Height + 30; ++y) {
        CHECK(moved.At(14, y) == Canvas::Untouched);
        CHECK(moved.At(15 + Width, y) == Canvas::Untouched);
    }
}

TEST_CASE("Drawing at twice the size doubles every pixel") {
    PaintedControl control;
    Canvas plain(Width, Height), large(2 * Width, 2 * Height);
    Draw(control.Object(), plain.DC(), {0, 0, Width, Height});
    Draw(control.Object(), large.DC(), {0, 0, 2 * Width, 2 * Height});
    int differences = 0;
    for (int y = 0; y < 2 * Height; ++y)
        for (int x = 0; x < 2 * Width; ++x) differences += large.At(x, y) != plain.At(x / 2, y / 2);
    CHECK(differences == 0);
}

TEST_CASE("Drawing leaves the device context as it was") {
    PaintedControl control;
    Canvas canvas(Width, Height);
    SetStretchBltMode(canvas.DC(), BLACKONWHITE);
    SetTextColor(canvas.DC(), RGB(1, 2, 3));
    SetBkMode(canvas.DC(), TRANSPARENT);
    Draw(control.Object(), canvas.DC(), {0, 0, 50, 50});
    CHECK(GetStretchBltMode(canvas.DC()) == BLACKONWHITE);
    CHECK(GetTextColor(canvas.DC()) == RGB(1, 2, 3));
    CHECK(GetBkMode(canvas.DC()) == TRANSPARENT);
}

TEST_CASE("Drawing follows the device context: its scale, an axis that points upwards, and its clipping") {
    PaintedControl control;
    Canvas plain(Width, Height), scaled(Width, Height);
    Draw(control.Object(), plain.DC(), {0, 0, Width, Height});
    SetMapMode(scaled.DC(), MM_ANISOTROPIC); // ten units a pixel, upwards from the lower edge
    SetWindowExtEx(scaled.DC(), 10 * Width, 10 * Height, nullptr);
    SetViewportExtEx(scaled.DC(), Width, -Height, nullptr);
    SetViewportOrgEx(scaled.DC(), 0, Height, nullptr);
    IntersectClipRect(scaled.DC(), 0, 0, 10 * Width / 2, 10 * Height);
    REQUIRE(Draw(control.Object(), scaled.DC(), {0, 10 * Height, 10 * Width, 0}) == S_OK);
    int differences = 0;
    for (int y = 0; y < Height; ++y) {
        for (int x = 0; x < Width / 2; ++x) differences += plain.At(x, y) != scaled.At(x, y);
        for (int x = Width / 2; x < Width; ++x) differences += scaled.At(x, y) != Canvas::Untouched;
    }
    CHECK(differences == 0);
    CHECK(GetMapMode(scaled.DC()) == MM_ANISOTROPIC);
}

TEST_CASE("A metafile shows the same picture") {
    PaintedControl control;
    Canvas direct(Width, Height), played(Width, Height), enhanced(Width, Height);
    Draw(control.Object(), direct.DC(), {0, 0, Width, Height});

    FORMATETC format = {CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
    STGMEDIUM medium = {};
    REQUIRE(control.As<IDataObject>()->GetData(&format, &medium) == S_OK);
    const auto* picture = static_cast<const METAFILEPICT*>(GlobalLock(medium.hMetaFilePict));
    CHECK(picture->mm == MM_ANISOTROPIC);
    CHECK(picture->xExt == MulDiv(Width, 2540, 96));
    CHECK(picture->yExt == MulDiv(Height, 2540, 96));
    SetMapMode(played.DC(), MM_ANISOTROPIC);
    SetViewportExtEx(played.DC(), Width, Height, nullptr);
    CHECK(PlayMetaFile(played.DC(), picture->hMF));
    GlobalUnlock(medium.hMetaFilePict);
    ReleaseStgMedium(&medium);
    CHECK(Differences(direct, played) == 0);

    const HDC record = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
    REQUIRE(Draw(control.Object(), record, {0, 0, Width, Height}) == S_OK);
    const HENHMETAFILE metafile = CloseEnhMetaFile(record);
    ENHMETAHEADER header = {};
    GetEnhMetaFileHeader(metafile, sizeof header, &header);
    CHECK(header.nRecords > 2);
    DeleteEnhMetaFile(metafile);
}

TEST_CASE("What cannot be drawn or delivered is refused") {
    PaintedControl control;
    Canvas canvas(10, 10);
    const auto view = control.As<IViewObject>();
    RECTL bounds = {0, 0, 10, 10};
    CHECK(view->Draw(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, canvas.DC(), &bounds, nullptr, nullptr,
                     0) == DV_E_DVASPECT);
    CHECK(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, canvas.DC(), nullptr, nullptr, nullptr,
                     0) == E_INVALIDARG);
    CHECK(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr, &bounds, nullptr, nullptr,
                     0) == E_INVALIDARG);
    const auto data = control.As<IDataObject>();
    FORMATETC text = {CF_TEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    FORMATETC global = {CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    STGMEDIUM medium = {};
    CHECK(data->GetData(&text, &medium) == DV_E_FORMATETC);
    CHECK(data->QueryGetData(&global) == DV_E_TYMED);
    ComPtr<IEnumFORMATETC> formats;
    REQUIRE(data->EnumFormatEtc(DATADIR_GET, formats.Put()) == S_OK);
    FORMATETC only = {};
    CHECK(formats->Next(1, &only, nullptr) == S_OK);
    CHECK(data->QueryGetData(&only) == S_OK);
    CHECK(formats->Next(1, &only, nullptr) == S_FALSE);
}

TEST_CASE("A rectangle farther out than a device context can count is refused, nearer ones are drawn") {
    PaintedControl control;
    Canvas canvas(10, 10);
    constexpr LONG least = std::numeric_limits<LONG>::min(), most = std::numeric_limits<LONG>::max();
    const RECTL tooFar[] = {{32767, 0, least, 189}, {1, 0, least, 14},          {2, -1, least, 58},
                            {0, 0, least, 158},     {0, -1, least, 114},        {0, least, 10, 10},
                            {0, 0, 10, most},       {least, least, most, most}, {0, 0, most, 10},
                            {0, 1, 10, least}};
    for (const RECTL& bounds : tooFar) CHECK(Draw(control.Object(), canvas.DC(), bounds) == E_INVALIDARG);
    CHECK(canvas.At(5, 5) == Canvas::Untouched);
    const HDC metafile = CreateMetaFileW(nullptr);
    for (const RECTL& bounds : tooFar) CHECK(Draw(control.Object(), metafile, bounds) == E_INVALIDARG);
    DeleteMetaFile(CloseMetaFile(metafile));
    CHECK(Draw(control.Object(), canvas.DC(), {-(1 << 27), -(1 << 27), 1 << 27, 1 << 27}) == S_OK);
    CHECK(Draw(control.Object(), canvas.DC(), {-5000, -5000, 5000, 5000}) == S_OK);
    CHECK(canvas.At(5, 5) != Canvas::Untouched);
}

TEST_CASE("A scale that takes the rectangle out of reach does no harm, in drawing or printing") {
    PaintedControl control;
    Canvas canvas(10, 10);
    SetMapMode(canvas.DC(), MM_ANISOTROPIC);
    SetWindowExtEx(canvas.DC(), 1, 1, nullptr);
    for (const int scale : {16, -16, 32767}) {
        SetViewportExtEx(canvas.DC(), scale, scale, nullptr);
        for (const LONG side : {1 << 26, 1 << 27})
            CHECK(Draw(control.Object(), canvas.DC(), {0, 0, side, side}) == E_INVALIDARG);
        CHECK(Draw(control.Object(), canvas.DC(), {0, 0, 20, 10}) == S_OK);
    }
    ControlOnForm shown;
    shown.OpenWithTabs(2);
    const HWND window = shown.Form().ControlWindow();
    SetGraphicsMode(canvas.DC(), GM_ADVANCED);
    const XFORM huge = {1e8f, 0, 0, 1e8f, 0, 0};
    REQUIRE(SetWorldTransform(canvas.DC(), &huge));
    SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(canvas.DC()), PRF_CLIENT);
    CHECK(IsWindow(window));
}

TEST_CASE("The extent is given back as it was set, and has to be one") {
    LooseControl control;
    const auto object = control.As<IOleObject>();
    SIZEL size = {5001, 2503}, back = {};
    CHECK(object->SetExtent(DVASPECT_CONTENT, &size) == S_OK);
    CHECK(object->GetExtent(DVASPECT_CONTENT, &back) == S_OK);
    CHECK(back.cx == 5001);
    CHECK(back.cy == 2503);
    SIZEL wrong = {-1, 100};
    CHECK(object->SetExtent(DVASPECT_CONTENT, &wrong) == E_INVALIDARG);
    CHECK(object->SetExtent(DVASPECT_ICON, &size) == DV_E_DVASPECT);
    CHECK(object->SetExtent(DVASPECT_CONTENT, nullptr) == E_POINTER);
}

TEST_CASE("A size that no bitmap can have, and none at all, do no harm") {
    PaintedControl control;
    Canvas canvas(20, 20);
    for (SIZEL size : {SIZEL{0, 0}, SIZEL{0x7FFFFFFF, 0x7FFFFFFF}, SIZEL{1, 0x7FFFFFFF}, SIZEL{2000, 2000}}) {
        control.As<IOleObject>()->SetExtent(DVASPECT_CONTENT, &size);
        CHECK(Draw(control.Object(), canvas.DC(), {0, 0, 20, 20}) == S_OK);
    }
}

TEST_CASE("A control in a window looks as it does anywhere else") {
    ControlOnForm test;
    test.OpenWithTabs(3);
    PumpMessages(test.Form());
    const HWND window = test.Form().ControlWindow();
    RECT client = {};
    GetClientRect(window, &client);
    REQUIRE(client.right >= Width);
    Canvas drawn(client.right, client.bottom), printed(client.right, client.bottom);
    REQUIRE(Draw(test.Form().ControlObject(), drawn.DC(), {0, 0, client.right, client.bottom}) == S_OK);
    SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(printed.DC()), PRF_CLIENT);
    CHECK(Differences(drawn, printed) == 0);
    Canvas shown(client.right, client.bottom);
    const HDC screen = GetDC(window);
    BitBlt(shown.DC(), 0, 0, client.right, client.bottom, screen, 0, 0, SRCCOPY);
    ReleaseDC(window, screen);
    CHECK(Differences(drawn, shown) == 0);
}

namespace {

class ViewSink final : public ComObject<IAdviseSink> {
public:
    void STDMETHODCALLTYPE OnDataChange(FORMATETC*, STGMEDIUM*) noexcept override { ++Data; }
    void STDMETHODCALLTYPE OnViewChange(DWORD, LONG) noexcept override { ++Views; }
    void STDMETHODCALLTYPE OnRename(IMoniker*) noexcept override {}
    void STDMETHODCALLTYPE OnSave() noexcept override {}
    void STDMETHODCALLTYPE OnClose() noexcept override { ++Closes; }
    int Views = 0, Data = 0, Closes = 0;
};

} // namespace

TEST_CASE("Those who show the control without a window are told to look again") {
    PaintedControl control;
    const auto sink = MakeCom<ViewSink>();
    const auto view = control.As<IViewObject>();
    REQUIRE(view->SetAdvise(DVASPECT_CONTENT, 0, sink.Get()) == S_OK);
    FORMATETC format = {CF_METAFILEPICT, nullptr, DVASPECT_CONTENT, -1, TYMED_MFPICT};
    DWORD data = 0, object = 0;
    REQUIRE(control.As<IDataObject>()->DAdvise(&format, ADVF_NODATA, sink.Get(), &data) == S_OK);
    REQUIRE(control.As<IOleObject>()->Advise(sink.Get(), &object) == S_OK);
    Put(control.Dispatch(), L"ActiveTab", std::int16_t{1});
    CHECK(sink->Views == 1);
    CHECK(sink->Data == 1);
    Get(control.Dispatch(), L"ActiveTab");
    CHECK(sink->Views == 1);
    ComPtr<IAdviseSink> kept;
    DWORD aspects = 0, flags = 7;
    CHECK(view->GetAdvise(&aspects, &flags, kept.Put()) == S_OK);
    CHECK(kept.Get() == sink.Get());
    CHECK(aspects == DVASPECT_CONTENT);
    CHECK(flags == 0);
    CHECK(view->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST | ADVF_ONLYONCE, sink.Get()) == S_OK);
    CHECK(sink->Views == 2);
    Put(control.Dispatch(), L"ActiveTab", std::int16_t{0});
    CHECK(sink->Views == 2);
    CHECK(control.As<IOleObject>()->Close(OLECLOSE_NOSAVE) == S_OK);
    CHECK(sink->Closes == 1);
    CHECK(control.As<IDataObject>()->DUnadvise(data) == S_OK);
    CHECK(control.As<IOleObject>()->Unadvise(object) == S_OK);
}

TEST_CASE("The view is opaque, hit inside its rectangle, and of any size that is proposed") {
    LooseControl control;
    const auto view = control.As<IViewObjectEx>();
    DWORD status = 0, hit = 9;
    CHECK(view->GetViewStatus(&status) == S_OK);
    CHECK(status == VIEWSTATUS_OPAQUE);
    const RECT bounds = {10, 10, 20, 20}, beside = {20, 10, 30, 20};
    CHECK(view->QueryHitPoint(DVASPECT_CONTENT, &bounds, {15, 15}, 0, &hit) == S_OK);
    CHECK(hit == HITRESULT_HIT);
    CHECK(view->QueryHitPoint(DVASPECT_CONTENT, &bounds, {20, 15}, 0, &hit) == S_OK);
    CHECK(hit == HITRESULT_OUTSIDE);
    CHECK(view->QueryHitRect(DVASPECT_CONTENT, &bounds, &beside, 0, &hit) == S_OK);
    CHECK(hit == HITRESULT_OUTSIDE);
    DVEXTENTINFO proposed = {sizeof proposed, DVEXTENT_INTEGRAL, {111, 222}};
    SIZEL natural = {};
    CHECK(view->GetNaturalExtent(DVASPECT_CONTENT, -1, nullptr, nullptr, &proposed, &natural) == S_OK);
    CHECK(natural.cy == 222);
    LOGPALETTE* colours = nullptr;
    CHECK(view->GetColorSet(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, &colours) == S_FALSE);
}

} // namespace vantik
