#include "host/Snapshot.h"

#include <wincodec.h>

#include "host/HostError.h"
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

// A bitmap whose pixels can be read, selected into a device context of its own.
class PixelCanvas {
public:
    PixelCanvas(int width, int height) : dc_(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info = {};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
        old_ = SelectObject(dc_, bitmap_);
    }
    ~PixelCanvas() {
        SelectObject(dc_, old_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    PixelCanvas(const PixelCanvas&) = delete;
    PixelCanvas& operator=(const PixelCanvas&) = delete;

    HDC Get() const noexcept { return dc_; }
    const std::uint32_t* Pixels() const {
        if (!bits_) throw HostError("no memory for a picture");
        GdiFlush();
        return static_cast<const std::uint32_t*>(bits_);
    }

private:
    HDC dc_;
    void* bits_ = nullptr;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ old_ = nullptr;
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
    Snapshot snapshot = {client.right, client.bottom, {}};
    const std::size_t count =
        static_cast<std::size_t>(snapshot.Width) * static_cast<std::size_t>(snapshot.Height);
    if (count == 0) return snapshot;
    const WindowDC source(window);
    const PixelCanvas canvas(snapshot.Width, snapshot.Height);
    BitBlt(canvas.Get(), 0, 0, snapshot.Width, snapshot.Height, source.Get(), 0, 0, SRCCOPY);
    snapshot.Pixels.assign(canvas.Pixels(), canvas.Pixels() + count);
    for (std::uint32_t& pixel : snapshot.Pixels) pixel &= 0xFFFFFF;
    return snapshot;
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
