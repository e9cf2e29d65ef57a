#include "check/PngCheck.h"

#include <algorithm>

#include "base/FilePath.h"
#include "png/ByteSource.h"
#include "png/PngReader.h"
#include "render/PngSizeReading.h"

namespace vantik {

namespace {

// Bytes in the memory by the rule of a file, which ends one byte earlier for what is to be read.
class FileBytes final : public ByteSource {
public:
    explicit FileBytes(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    void Read(std::span<std::uint8_t> target) override {
        const std::size_t count = std::min(target.size(), bytes_.size() - position_);
        std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(position_), count, target.begin());
        position_ += count;
    }
    bool Fits(std::int32_t length) const override {
        return static_cast<std::int64_t>(position_) + 1 + length <= Size();
    }
    std::int64_t Size() const override { return static_cast<std::int64_t>(bytes_.size()); }

private:
    std::span<const std::uint8_t> bytes_;
    std::size_t position_ = 0;
};

std::string TroubleOf(std::int32_t errorNumber) {
    switch (errorNumber) {
    case PngReader::NoPngSignature: return "it is no PNG file";
    case PngReader::ChunkBeyondEnd: return "the file ends too early";
    case PngReader::NoImageData: return "there is no picture in it";
    default: return "it is a kind of PNG that nothing is drawn of";
    }
}

void Decode(std::span<const std::uint8_t> file, CheckedPng& png) {
    FileBytes source(file);
    PngReader reader;
    const bool hasPicture = reader.Read(source);
    png.Width = reader.Contents().Header.Width;
    png.Height = reader.Contents().Header.Height;
    if (!hasPicture || !reader.Decode({.AppliesTransparency = true, .AppliesAlpha = true}))
        png.Trouble = TroubleOf(reader.ErrorNumber());
}

std::optional<RunTimeErrorNumber> SizeErrorOf(std::span<const std::uint8_t> file) {
    try {
        PngSize size;
        ReadPngMemorySize(file, size);
        return std::nullopt;
    } catch (const RunTimeError& error) {
        return error.Number();
    }
}

} // namespace

CheckedPng CheckPng(std::span<const std::uint8_t> file) {
    CheckedPng png;
    try {
        Decode(file, png);
    } catch (const RunTimeError& error) {
        png.Trouble = error.Number() == RunTimeErrorNumber::OutOfMemory
                          ? "it would take more memory than the control allows"
                          : "its data are damaged";
    }
    png.SizeError = SizeErrorOf(file);
    if (png.SizeError && png.Trouble.empty()) png.Trouble = "it is wider or higher than 32,767 pixels";
    return png;
}

} // namespace vantik
