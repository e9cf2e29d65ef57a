// pngprobe: what the decoder makes of a PNG file.
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "base/FilePath.h"
#include "base/RunTimeError.h"
#include "png/ByteSource.h"
#include "png/Composite.h"
#include "png/PngReader.h"
#include "tools/pngprobe/CommandLine.h"
#include "tools/pngprobe/PixelExport.h"

namespace vantik {

namespace {

constexpr int PictureCameOut = 0;
constexpr int NoPicture = 1;
constexpr int WrongUsage = 2;

constexpr char Usage[] = {
#include "Usage.txt"
};

class PlainColour final : public BackgroundSource {
public:
    explicit PlainColour(std::uint32_t rgb) : rgb_(rgb) {}

    void ReadRows(std::int32_t width, std::int32_t height, std::span<std::uint8_t> rows) noexcept override {
        const auto stride = static_cast<std::size_t>(DibStride(width, 24));
        for (std::size_t y = 0; y < static_cast<std::size_t>(height); ++y) {
            for (std::size_t x = 0; x < static_cast<std::size_t>(width); ++x) {
                for (unsigned channel = 0; channel < 3; ++channel) {
                    rows[y * stride + 3 * x + channel] = static_cast<std::uint8_t>(rgb_ >> 8 * channel);
                }
            }
        }
    }

private:
    const std::uint32_t rgb_;
};

// Line by line; characters 0 and other controls are shown as \0 and the like.
std::string Printable(const std::u16string& text) {
    std::string shown;
    for (const char byte : ToUtf8(text)) {
        const auto code = static_cast<unsigned char>(byte);
        if (code == 0) {
            shown += "\\0";
        } else if (code < 0x20 || code == 0x7F) {
            char escaped[8];
            std::snprintf(escaped, sizeof escaped, "\\x%02X", code);
            shown += escaped;
        } else {
            shown += byte;
        }
    }
    return shown;
}

const char* InWords(std::int32_t errorNumber) noexcept {
    switch (errorNumber) {
    case PngReader::NoPngSignature: return " (no PNG signature)";
    case PngReader::ChunkBeyondEnd: return " (a chunk reaches beyond the end of the file)";
    case PngReader::NoImageData: return " (no image data)";
    default: return "";
    }
}

void Print(const PngReader& reader) {
    const PngContents& png = reader.Contents();
    std::printf("size: %d x %d\n", png.Header.Width, png.Header.Height);
    std::printf("depth: %d\n", png.Header.BitDepth);
    std::printf("colour type: %d\n", png.Header.ColourType);
    std::printf("interlace: %d\n", png.Header.Interlace);
    std::printf("error number: %d%s\n", reader.ErrorNumber(), InWords(reader.ErrorNumber()));
    std::printf("text: %s\n", Printable(png.Text).c_str());
    std::printf("zText: %s\n", Printable(png.CompressedText).c_str());
    std::printf("time: %s\n", Printable(png.ModificationTime).c_str());
    std::printf("gamma: %g\n", png.Gamma / 100000.0);
    if (png.HasBackground) {
        const auto colour = static_cast<unsigned>(png.BackgroundColour);
        std::printf("background: #%02X%02X%02X\n", colour & 0xFF, colour >> 8 & 0xFF, colour >> 16);
    } else {
        std::printf("background: none\n");
    }
}

bool WriteFile(const std::u16string& path, const std::vector<std::uint8_t>& bytes) {
#ifdef _WIN32
    std::FILE* const file = _wfopen(reinterpret_cast<const wchar_t*>(path.c_str()), L"wb");
#else
    std::FILE* const file = std::fopen(ToUtf8(path).c_str(), "wb");
#endif
    if (!file) return false;
    const bool isWritten = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    return std::fclose(file) == 0 && isWritten;
}

bool Save(const Options& options, DibImage image) {
    if (options.WritesRgba) return WriteFile(options.Output, ToRgba(image));
    if (!options.Over) return true;
    PlainColour background(*options.Over);
    if (image.IsTransparent) image = Composite(image, options.Style, &background);
    return WriteFile(options.Output, ToRgb(image));
}

int Probe(const Options& options) {
    FileSource file(options.File);
    PngReader reader;
    const bool hasPicture = reader.Read(file);
    Print(reader);
    if (!hasPicture) return NoPicture;
    DibImage image = reader.Decode({.AppliesTransparency = true, .AppliesAlpha = true});
    if (!image) return NoPicture;
    if (Save(options, std::move(image))) return PictureCameOut;
    std::fprintf(stderr, "pngprobe: cannot write %s\n", ToUtf8(options.Output).c_str());
    return NoPicture;
}

bool AsksForHelp(const std::vector<std::u16string>& arguments) {
    return arguments.size() == 1 && (arguments[0] == u"--help" || arguments[0] == u"-h");
}

int Run(const std::vector<std::u16string>& arguments) try {
    if (AsksForHelp(arguments)) {
        std::fputs(Usage, stdout);
        return PictureCameOut;
    }
    const auto options = ParseCommandLine(arguments);
    if (options) return Probe(*options);
    std::fputs(Usage, stderr);
    return WrongUsage;
} catch (const RunTimeError& error) {
    std::fprintf(stderr, "pngprobe: run-time error %d: %s\n", static_cast<int>(error.Number()),
                 ToUtf8(error.Description()).c_str());
    return NoPicture;
}

} // namespace

} // namespace vantik

#ifdef _WIN32

int wmain(int count, wchar_t** arguments) {
    std::vector<std::u16string> texts;
    for (int i = 1; i < count; ++i) texts.emplace_back(reinterpret_cast<const char16_t*>(arguments[i]));
    return vantik::Run(texts);
}

#else

int main(int count, char** arguments) {
    std::vector<std::u16string> texts;
    for (int i = 1; i < count; ++i) texts.push_back(std::filesystem::path(arguments[i]).u16string());
    return vantik::Run(texts);
}

#endif
