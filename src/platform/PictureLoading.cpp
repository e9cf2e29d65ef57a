#include "platform/PictureLoading.h"

namespace vantik {

namespace {

ComPtr<IStream> StreamOver(std::span<const BYTE> bytes) noexcept {
    ComPtr<IStream> stream;
    if (FAILED(CreateStreamOnHGlobal(nullptr, TRUE, stream.Put()))) return nullptr;
    if (FAILED(stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr))) return nullptr;
    if (FAILED(stream->Seek({}, STREAM_SEEK_SET, nullptr))) return nullptr;
    return stream;
}

} // namespace

ComPtr<IPicture> PictureFrom(std::span<const BYTE> bytes) noexcept {
    const ComPtr<IStream> stream = bytes.empty() ? nullptr : StreamOver(bytes);
    ComPtr<IPicture> picture;
    const auto size = static_cast<LONG>(bytes.size());
    if (!stream || FAILED(OleLoadPicture(stream.Get(), size, FALSE, IID_IPicture, picture.PutVoid())))
        return nullptr;
    return picture;
}

ComPtr<IPictureDisp> EmptyPicture() noexcept {
    PICTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_NONE;
    ComPtr<IPictureDisp> picture;
    OleCreatePictureIndirect(&description, IID_IPictureDisp, TRUE, picture.PutVoid());
    return picture;
}

} // namespace vantik
