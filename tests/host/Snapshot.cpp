#include "host/Snapshot.h"

#include <wincodec.h>

#include "host/HostError.h"
#include "host/PixelCanvas.h"
#include "platform/ComPtr.h"

namespace vantik {

namespace {

class WindowDC {
public:
    explicit WindowDC(HWND window) noexcept : window_(window), dc_(GetDC(window)) {}
    ~WindowDC() { ReleaseDC(window_, dc_); }
    WindowDC(const WindowDC&) = delete;
    WindowDC& operator=(const WindowDC&) = delete;
    HDC Get() const noexcept { return dc_; }

private:
    HWND window_;
    HDC dc_;
};

constexpr const char* Writing = "Writing a picture";

ComPtr<IWICBitmapFrameEncode> NewFrame(IWICImagingFactory& factory, IStream* stream,
                                       ComPtr<IWICBitmapEncoder>& encoder) {
    ComPtr<IWICBitmapFrameEncode> frame;
    ComPtr<IPropertyBag2> options;
    Check(factory.CreateEncoder(GUID_ContainerFormatPng, nullptr, encoder.Put()), Writing);
    Check(encoder->Initialize(stream, WICBitmapEncoderNoCache), Writing);
    Check(encoder->CreateNewFrame(frame.Put(), options.Put()), Writing);
    Check(frame->Initialize(options.Get()), Writing);
    return frame;
}

// Blue, green, red, as the 24-bit format has them.
std::vector<BYTE> ToBytes(const Snapshot& snapshot) {
    std::vector<BYTE> bytes;
    bytes.reserve(snapshot.Pixels.size() * 3);
    for (const std::uint32_t pixel : snapshot.Pixels) {
        for (const int shift : {0, 8, 16}) bytes.push_back(static_cast<BYTE>(pixel >> shift));
    }
    return bytes;
}

} // namespace

Snapshot TakeSnapshot(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    RECT client = {};
    if (!GetClientRect(window, &client)) throw HostError("there is no window to take a picture of");
    if (client.right < 1 || client.bottom < 1) return {client.right, client.bottom, {}};
    const WindowDC source(window);
    PixelCanvas canvas(client.right, client.bottom);
    BitBlt(canvas.DC(), 0, 0, client.right, client.bottom, source.Get(), 0, 0, SRCCOPY);
    return canvas.Take();
}

void SavePng(const Snapshot& snapshot, const std::wstring& path) {
    ComPtr<IWICImagingFactory> factory;
    ComPtr<IWICStream> stream;
    ComPtr<IWICBitmapEncoder> encoder;
    Check(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                           __uuidof(IWICImagingFactory), factory.PutVoid()),
          "Starting the system's imaging");
    Check(factory->CreateStream(stream.Put()), Writing);
    const HRESULT opened = stream->InitializeFromFilename(path.c_str(), GENERIC_WRITE);
    if (FAILED(opened)) throw HostError("cannot write " + ToUtf8(path), opened);
    const auto frame = NewFrame(*factory.Get(), stream.Get(), encoder);
    const auto width = static_cast<UINT>(snapshot.Width);
    const auto height = static_cast<UINT>(snapshot.Height);
    WICPixelFormatGUID format = GUID_WICPixelFormat24bppBGR;
    std::vector<BYTE> bytes = ToBytes(snapshot);
    Check(frame->SetSize(width, height), Writing);
    Check(frame->SetPixelFormat(&format), Writing);
    if (format != GUID_WICPixelFormat24bppBGR) throw HostError("the system cannot write 24-bit pictures");
    Check(frame->WritePixels(height, width * 3, static_cast<UINT>(bytes.size()), bytes.data()), Writing);
    Check(frame->Commit(), Writing);
    Check(encoder->Commit(), Writing);
}

} // namespace vantik
