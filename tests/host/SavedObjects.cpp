#include "host/SavedObjects.h"

#include "host/HostError.h"

namespace vantik {

namespace {

ComPtr<IStream> EmptyStream() {
    ComPtr<IStream> stream;
    Check(CreateStreamOnHGlobal(nullptr, TRUE, stream.Put()), "Making a stream");
    return stream;
}

void Rewind(IStream& stream) { Check(stream.Seek({}, STREAM_SEEK_SET, nullptr), "Seeking in a stream"); }

} // namespace

SavedFont TakeApart(IFont& font) {
    SavedFont saved;
    Bstr name(L"");
    CY size = {};
    SHORT weight = 0;
    SHORT charset = 0;
    BOOL italic = FALSE;
    BOOL underline = FALSE;
    BOOL strikethrough = FALSE;
    SysFreeString(name.Detach());
    Check(font.get_Name(name.Put()), "Reading a font");
    Check(font.get_Size(&size), "Reading a font");
    Check(font.get_Weight(&weight), "Reading a font");
    Check(font.get_Charset(&charset), "Reading a font");
    Check(font.get_Italic(&italic), "Reading a font");
    Check(font.get_Underline(&underline), "Reading a font");
    Check(font.get_Strikethrough(&strikethrough), "Reading a font");
    return {name.Text(),
            static_cast<double>(size.int64) / 10000,
            weight,
            charset,
            italic != FALSE,
            underline != FALSE,
            strikethrough != FALSE};
}

SavedObject TakeApart(IPersistStream& object) {
    SavedObject saved;
    const ComPtr<IStream> stream = EmptyStream();
    STATSTG status = {};
    ULONG read = 0;
    Check(object.GetClassID(&saved.Class), "Asking for the class of an object");
    Check(object.Save(stream.Get(), TRUE), "Saving an object");
    Check(stream->Stat(&status, STATFLAG_NONAME), "Measuring a stream");
    saved.Bytes.resize(static_cast<std::size_t>(status.cbSize.QuadPart));
    Rewind(*stream.Get());
    Check(stream->Read(saved.Bytes.data(), static_cast<ULONG>(saved.Bytes.size()), &read),
          "Reading a stream");
    return saved;
}

ComPtr<IDispatch> MakeAgain(const SavedFont& saved) {
    std::wstring name = saved.Name;
    FONTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = name.data();
    description.cySize.int64 = static_cast<LONGLONG>(saved.Size * 10000 + 0.5);
    description.sWeight = saved.Weight;
    description.sCharset = saved.Charset;
    description.fItalic = saved.Italic;
    description.fUnderline = saved.Underline;
    description.fStrikethrough = saved.Strikethrough;
    ComPtr<IDispatch> font;
    Check(OleCreateFontIndirect(&description, __uuidof(IFontDisp), font.PutVoid()), "Making a font");
    return font;
}

ComPtr<IUnknown> MakeAgain(const SavedObject& saved) {
    const ComPtr<IStream> stream = EmptyStream();
    Check(stream->Write(saved.Bytes.data(), static_cast<ULONG>(saved.Bytes.size()), nullptr),
          "Filling a stream");
    Rewind(*stream.Get());
    ComPtr<IPersistStream> object;
    Check(CoCreateInstance(saved.Class, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IPersistStream),
                           object.PutVoid()),
          "Making an object");
    Check(object->Load(stream.Get()), "Loading an object");
    return object.As<IUnknown>();
}

} // namespace vantik
