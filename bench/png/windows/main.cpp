// png_draw_bench: DrawPngFile of a 32-pixel icon beside the platform's own imaging, in one program and in rotation:
// GDI+ (load and draw) and WIC (decode, then AlphaBlend). Prints a table in Markdown.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "gfx/Handles.h"
#include "platform/ComPtr.h"
#include "platform/mDeclares.h"
#include "render/PngIconDrawing.h"
#include "tests/gfx/TestSurface.h"
#include "tests/png/PngBytes.h"

#include <wincodec.h>

#include <gdiplus.h>

namespace vantik::bench {

namespace {

constexpr std::int32_t IconExtent = 32;
constexpr int Rounds = 400;

// A disc with soft edges, filtered with Sub, in stored blocks: nobody is slowed down by the others' inflate.
PngBytes Icon() {
    Bytes rows;
    for (std::int32_t y = 0; y < IconExtent; ++y) {
        rows.push_back(1);
        std::uint8_t left[4] = {};
        for (std::int32_t x = 0; x < IconExtent; ++x) {
            const std::int32_t distance = (x - 16) * (x - 16) + (y - 16) * (y - 16);
            const auto alpha = static_cast<std::uint8_t>(std::clamp(2 * (200 - distance), 0, 255));
            const std::uint8_t pixel[4] = {static_cast<std::uint8_t>(8 * x), static_cast<std::uint8_t>(8 * y),
                                           90, alpha};
            for (int i = 0; i < 4; ++i) rows.push_back(static_cast<std::uint8_t>(pixel[i] - left[i]));
            std::copy_n(pixel, 4, left);
        }
    }
    const HeaderFields fields = {.Width = IconExtent, .Height = IconExtent, .ColourType = 6};
    return PngBytes().Header(fields).StoredImage(rows).End();
}

double Now() {
    LARGE_INTEGER counter;
    LARGE_INTEGER frequency;
    QueryPerformanceCounter(&counter);
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(counter.QuadPart) / static_cast<double>(frequency.QuadPart);
}

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// A peer that fails would be fast.
void Demand(bool isFine, const char* what) {
    if (isFine) return;
    std::fprintf(stderr, "png_draw_bench: %s failed\n", what);
    std::exit(1);
}

std::u16string FullPath(const char16_t* name) {
    wchar_t path[MAX_PATH] = {};
    GetFullPathNameW(AsWide(name), MAX_PATH, path, nullptr);
    return FromWide(path);
}

void DrawWithOurs(const std::u16string& path, HDC dc) { DrawPngFile(path, dc, nullptr, 0, 0, 3, 0, dc); }

void DrawWithGdiPlus(const std::u16string& path, HDC dc) {
    Gdiplus::Graphics graphics(dc);
    Gdiplus::Image image(AsWide(path));
    Demand(graphics.DrawImage(&image, 0, 0) == Gdiplus::Ok, "GDI+");
}

void BlendPixels(IWICBitmapSource* source, HDC dc) {
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof info.bmiHeader, IconExtent, -IconExtent, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const OwnedBitmap bitmap(CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    source->CopyPixels(nullptr, 4 * IconExtent, 4 * IconExtent * IconExtent, static_cast<BYTE*>(bits));
    const MemoryDC memory(CreateCompatibleDC(dc));
    const Selection selected = Select(memory.Get(), bitmap.Get());
    const BLENDFUNCTION blend = {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
    AlphaBlend(dc, 0, 0, IconExtent, IconExtent, memory.Get(), 0, 0, IconExtent, IconExtent, blend);
}

void DrawWithWic(IWICImagingFactory* factory, const std::u16string& path, HDC dc) {
    ComPtr<IWICBitmapDecoder> decoder;
    ComPtr<IWICBitmapFrameDecode> frame;
    ComPtr<IWICFormatConverter> converter;
    const bool isFine =
        SUCCEEDED(factory->CreateDecoderFromFilename(AsWide(path), nullptr, GENERIC_READ,
                                                     WICDecodeMetadataCacheOnDemand, decoder.Put())) &&
        SUCCEEDED(decoder->GetFrame(0, frame.Put())) &&
        SUCCEEDED(factory->CreateFormatConverter(converter.Put())) &&
        SUCCEEDED(converter->Initialize(frame.Get(), GUID_WICPixelFormat32bppPBGRA, WICBitmapDitherTypeNone,
                                        nullptr, 0, WICBitmapPaletteTypeCustom));
    Demand(isFine, "WIC");
    BlendPixels(converter.Get(), dc);
}

template <class Draw>
void TimeOnce(std::vector<double>& times, Draw draw) {
    const double start = Now();
    draw();
    times.push_back(Now() - start);
}

void Run(const std::u16string& path) {
    ComPtr<IWICImagingFactory> factory;
    if (FAILED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                IID_IWICImagingFactory, factory.PutVoid()))) {
        std::fprintf(stderr, "png_draw_bench: there is no WIC here\n");
        return;
    }
    test::TestSurface surface(64, 64);
    std::vector<double> ours;
    std::vector<double> gdiPlus;
    std::vector<double> wic;
    for (int round = 0; round < Rounds; ++round) {
        TimeOnce(ours, [&] { DrawWithOurs(path, surface.DC()); });
        TimeOnce(gdiPlus, [&] { DrawWithGdiPlus(path, surface.DC()); });
        TimeOnce(wic, [&] { DrawWithWic(factory.Get(), path, surface.DC()); });
    }
    const double own = Median(ours);
    std::printf("%d bit, median of %d draws\n\n", static_cast<int>(8 * sizeof(void*)), Rounds);
    std::printf("| who draws | microseconds | times as long as ours |\n|---|---|---|\n");
    std::printf("| DrawPngFile | %.0f | 1 |\n", own * 1e6);
    std::printf("| GDI+ load and draw | %.0f | %.1f |\n", Median(gdiPlus) * 1e6, Median(gdiPlus) / own);
    std::printf("| WIC decode, AlphaBlend | %.0f | %.1f |\n", Median(wic) * 1e6, Median(wic) / own);
}

} // namespace

} // namespace vantik::bench

int main() {
    using namespace vantik;
    const Bytes icon = bench::Icon();
    {
        std::ofstream file("png_draw_bench.png", std::ios::binary);
        file.write(reinterpret_cast<const char*>(icon.data()), static_cast<std::streamsize>(icon.size()));
    }
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    Gdiplus::GdiplusStartupInput input;
    ULONG_PTR token = 0;
    Gdiplus::GdiplusStartup(&token, &input, nullptr);
    bench::Run(bench::FullPath(u"png_draw_bench.png"));
    Gdiplus::GdiplusShutdown(token);
    CoUninitialize();
    DeleteFileW(L"png_draw_bench.png");
}
