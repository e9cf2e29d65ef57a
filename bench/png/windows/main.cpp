// png_draw_bench: DrawPngFile of a 32-pixel icon beside the platform's own imaging, in one program and in rotation:
// GDI+ (load and draw) and WIC (decode, then AlphaBlend). Prints a table in Markdown for an icon of nothing but pixels and
// for one with the chunk that most files of icon themes have besides: ours the first time, and again while the file is the
// same.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "gfx/Handles.h"
#include "platform/ComPtr.h"
#include "platform/FileStore.h"
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
constexpr char FileName[] = "png_draw_bench.png";

// A disc with soft edges, filtered with Sub, in stored blocks: nobody is slowed down by the others' inflate.
Bytes IconRows() {
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
    return rows;
}

PngBytes StartedIcon() {
    return PngBytes().Header({.Width = IconExtent, .Height = IconExtent, .ColourType = 6});
}

Bytes BareIcon() { return StartedIcon().StoredImage(IconRows()).End(); }

// As most files of icon themes: with the chunk of the significant bits, which their writer leaves.
Bytes ThemeIcon() { return StartedIcon().Chunk("sBIT", {8, 8, 8, 8}).StoredImage(IconRows()).End(); }

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

// What no way of drawing a file can do without.
void ReadFileAlone(const std::u16string& path) {
    static std::uint8_t bytes[16 * 1024];
    const HANDLE file = CreateFileW(AsWide(path), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD count = 0;
    Demand(ReadFile(file, bytes, sizeof bytes, &count, nullptr) && count != 0, "reading the file");
    CloseHandle(file);
}

void DrawWithGdiPlus(const std::u16string& path, HDC dc) {
    Gdiplus::Graphics graphics(dc);
    Gdiplus::Image image(AsWide(path));
    // With its size, lest the dots per inch in the file have it scaled.
    Demand(graphics.DrawImage(&image, 0, 0, IconExtent, IconExtent) == Gdiplus::Ok, "GDI+");
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

struct Times {
    std::vector<double> First, Again, FileAlone, GdiPlus, Wic;
};

Times Measure(IWICImagingFactory* factory, const std::u16string& path) {
    test::TestSurface surface(64, 64);
    Times times;
    for (int round = 0; round < Rounds; ++round) {
        const FileStoreUser freshStore;
        TimeOnce(times.First, [&] { DrawWithOurs(path, surface.DC()); });
        TimeOnce(times.Again, [&] { DrawWithOurs(path, surface.DC()); });
        TimeOnce(times.FileAlone, [&] { ReadFileAlone(path); });
        TimeOnce(times.GdiPlus, [&] { DrawWithGdiPlus(path, surface.DC()); });
        TimeOnce(times.Wic, [&] { DrawWithWic(factory, path, surface.DC()); });
    }
    return times;
}

void Report(const char* icon, const Times& times) {
    const double first = Median(times.First), again = Median(times.Again);
    const auto row = [&](const char* who, const std::vector<double>& peer) {
        std::printf("| %d bit, %s | %s | %.0f | %.1f | %.1f |\n", static_cast<int>(8 * sizeof(void*)), icon,
                    who, Median(peer) * 1e6, Median(peer) / first, Median(peer) / again);
    };
    row("DrawPngFile, the first time", times.First);
    row("DrawPngFile of an unchanged file", times.Again);
    row("the file alone: open, read, close", times.FileAlone);
    row("GDI+ load and draw", times.GdiPlus);
    row("WIC decode, AlphaBlend", times.Wic);
}

void Run(IWICImagingFactory* factory, const char* name, const Bytes& icon) {
    {
        std::ofstream file(FileName, std::ios::binary);
        file.write(reinterpret_cast<const char*>(icon.data()), static_cast<std::streamsize>(icon.size()));
    }
    std::filesystem::last_write_time(FileName,
                                     std::filesystem::file_time_type::clock::now() - std::chrono::hours(1));
    Report(name, Measure(factory, FullPath(u"png_draw_bench.png")));
    DeleteFileA(FileName);
}

void RunAll() {
    ComPtr<IWICImagingFactory> factory;
    Demand(SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                      IID_IWICImagingFactory, factory.PutVoid())),
           "WIC");
    std::printf(
        "| build, icon | who draws | microseconds | times as long as ours, first | unchanged "
        "|\n|---|---|---|---|---|\n");
    Run(factory.Get(), "pixels only", BareIcon());
    Run(factory.Get(), "with sBIT", ThemeIcon());
}

} // namespace

} // namespace vantik::bench

int main() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    Gdiplus::GdiplusStartupInput input;
    ULONG_PTR token = 0;
    Gdiplus::GdiplusStartup(&token, &input, nullptr);
    vantik::bench::RunAll();
    Gdiplus::GdiplusShutdown(token);
    CoUninitialize();
}
