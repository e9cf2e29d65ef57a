#include "ole/faces/SavedControl.h"

#include <doctest/doctest.h>

namespace vantik {

ComPtr<IStream> NewStream() {
    ComPtr<IStream> stream;
    REQUIRE(CreateStreamOnHGlobal(nullptr, TRUE, stream.Put()) == S_OK);
    return stream;
}

ComPtr<IStorage> NewStorage() {
    ComPtr<ILockBytes> bytes;
    ComPtr<IStorage> storage;
    REQUIRE(CreateILockBytesOnHGlobal(nullptr, TRUE, bytes.Put()) == S_OK);
    REQUIRE(StgCreateDocfileOnILockBytes(bytes.Get(), STGM_CREATE | STGM_READWRITE | STGM_SHARE_EXCLUSIVE, 0,
                                         storage.Put()) == S_OK);
    return storage;
}

void Rewind(IStream& stream) { stream.Seek({}, STREAM_SEEK_SET, nullptr); }

std::vector<std::byte> BytesOf(IStream& stream) {
    STATSTG state = {};
    stream.Stat(&state, STATFLAG_NONAME);
    std::vector<std::byte> bytes(static_cast<std::size_t>(state.cbSize.QuadPart));
    Rewind(stream);
    stream.Read(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
    return bytes;
}

ComPtr<IStream> StreamOf(const std::vector<std::byte>& bytes) {
    auto stream = NewStream();
    stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
    Rewind(*stream.Get());
    return stream;
}

ComPtr<IStorage> StorageOf(const std::vector<std::byte>& bytes) {
    auto storage = NewStorage();
    ComPtr<IStream> inside;
    REQUIRE(storage->CreateStream(L"VantikFrameTab", STGM_CREATE | STGM_WRITE | STGM_SHARE_EXCLUSIVE, 0, 0,
                                  inside.Put()) == S_OK);
    inside->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
    return storage;
}

void Change(LooseControl& control) {
    IDispatch& tab = control.Dispatch();
    for (const wchar_t* name : {L"TabBarPos", L"TabPos", L"CaptionPos"}) Put(tab, name, std::int32_t{1});
    for (const wchar_t* name :
         {L"TabBarPosXJust", L"TabBarPosYJust", L"CaptionXjust", L"CaptionYjust", L"IcoXjust", L"IcoYjust",
          L"DelBtnXJust", L"DelBtnYJust", L"NavBtnYjust", L"NavBtnXjust", L"TabToTab", L"FrameDist"})
        Put(tab, name, std::int16_t{-3});
    Put(tab, L"BarWidth", std::int16_t{64});
    Put(tab, L"TabOffSet", std::int32_t{54321});
    Put(tab, L"DefaultCaption", L"页 \"quoted\"");
    Put(tab, L"CaptionColor0", std::int32_t(0x80000012));
    Put(tab, L"CaptionColor1", std::int32_t{0xFF8000});
    Put(tab, L"DelButton", false);
    Put(tab, L"TabBorder", true);
    Put(tab, L"FixOcxList", L"btnOk, lblTitle");
    Put(tab, L"TabCount", std::int16_t{4});
    Put(tab, L"ActiveTab", std::int16_t{2});
    const auto font = QueryFor<IFont>(Get(tab, L"Font").Object().Get());
    ComPtr<IFont> other;
    REQUIRE(font->Clone(other.Put()) == S_OK);
    other->put_Name(Bstr(L"DejaVu Sans").Get());
    CY size = {};
    size.int64 = 140000;
    other->put_Size(size);
    other->put_Bold(TRUE);
    PutReference(tab, L"Font", other.As<IDispatch>().Get());

    PICTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = CreateBitmap(8, 5, 1, 1, nullptr);
    ComPtr<IDispatch> picture;
    REQUIRE(OleCreatePictureIndirect(&description, __uuidof(IPictureDisp), TRUE, picture.PutVoid()) == S_OK);
    PutReference(tab, L"Picture", picture.Get());
}

std::vector<std::byte> BytesOfChanged() {
    LooseControl control;
    Change(control);
    const auto stream = NewStream();
    control.As<IPersistStreamInit>()->Save(stream.Get(), TRUE);
    return BytesOf(*stream.Get());
}

std::wstring FontText(IDispatch& tab) {
    const auto font = QueryFor<IFont>(Get(tab, L"Font").Object().Get());
    Bstr name(L"");
    CY size = {};
    BOOL bold = FALSE;
    font->get_Name(name.Put());
    font->get_Size(&size);
    font->get_Bold(&bold);
    return name.Text() + L" " + std::to_wstring(size.int64 / 10000) + (bold ? L" bold" : L"");
}

std::wstring PictureText(IDispatch& tab) {
    const auto picture = QueryFor<IPicture>(Get(tab, L"Picture").Object().Get());
    if (!picture) return L"none";
    short type = -1;
    OLE_XSIZE_HIMETRIC width = 0;
    OLE_YSIZE_HIMETRIC height = 0;
    picture->get_Type(&type);
    picture->get_Width(&width);
    picture->get_Height(&height);
    return type <= 0
               ? L"none"
               : std::to_wstring(type) + L": " + std::to_wstring(width) + L"x" + std::to_wstring(height);
}

std::string StateOf(LooseControl& control) {
    std::wstring state;
    for (const wchar_t* name :
         {L"TabCount",       L"ActiveTab",      L"TabBarPos",    L"TabPos",         L"BarWidth",
          L"TabBarPosXJust", L"TabBarPosYJust", L"TabOffSet",    L"DefaultCaption", L"CaptionPos",
          L"CaptionColor0",  L"CaptionColor1",  L"CaptionXjust", L"CaptionYjust",   L"IcoXjust",
          L"IcoYjust",       L"DelButton",      L"DelBtnXJust",  L"DelBtnYJust",    L"NavBtnYjust",
          L"NavBtnXjust",    L"FixOcxList",     L"TabToTab",     L"TabBorder",      L"FrameDist",
          L"SkinFile",       L"SkinPath"})
        state += std::wstring(name) + L"=" + Get(control.Dispatch(), name).Text() + L"\n";
    return ToUtf8(state + FontText(control.Dispatch()) + L"\n" + PictureText(control.Dispatch()));
}

} // namespace vantik
