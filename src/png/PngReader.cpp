#include "png/PngReader.h"

#include "png/AncillaryChunks.h"
#include "png/ChunkReader.h"
#include "png/OutOfMemory.h"

namespace vantik {

bool PngReader::Fail(std::int32_t errorNumber) noexcept {
    errorNumber_ = errorNumber;
    return false;
}

bool PngReader::Read(ByteSource& source) {
    png_.HasBackground = false;
    png_.HasTransparency = false;
    png_.ImageData.clear();
    return WithOutOfMemory([&] { return ReadChunks(source); });
}

bool PngReader::ReadChunks(ByteSource& source) {
    ChunkReader chunks(source);
    if (!chunks.ReadSignature()) return Fail(NoPngSignature);
    do {
        if (!chunks.Next()) return Fail(ChunkBeyondEnd);
        TakeChunk(chunks.Name(), chunks.Data());
    } while (chunks.Name() != ChunkName("IEND"));
    return png_.ImageData.empty() ? Fail(NoImageData) : true;
}

void PngReader::TakeChunk(std::uint32_t name, ByteView data) {
    switch (name) {
    case ChunkName("IHDR"): png_.Header = ParseHeader(data); break;
    case ChunkName("PLTE"): png_.Palette.assign(data.begin(), data.end()); break;
    case ChunkName("IDAT"): png_.ImageData.insert(png_.ImageData.end(), data.begin(), data.end()); break;
    case ChunkName("bKGD"): ApplyBackgroundChunk(data); break;
    case ChunkName("gAMA"): png_.Gamma = BigEndianLong(data, 0); break;
    case ChunkName("tEXt"): AppendText(png_.Text, data); break;
    case ChunkName("zTXt"): InflateTextChunk(png_.CompressedText, data, inflater_); break;
    case ChunkName("tIME"): png_.ModificationTime = FormatTime(data); break;
    case ChunkName("tRNS"):
        png_.HasTransparency = true;
        png_.Transparency.assign(data.begin(), data.end());
        break;
    default: break; // all others, critical ones too, are skipped
    }
}

void PngReader::ApplyBackgroundChunk(ByteView data) {
    png_.BackgroundColour = BackgroundColourOf(data, png_.Header, png_.Palette);
    png_.HasBackground = true;
}

DibImage PngReader::Decode(const ConversionSettings& settings) {
    hasAlpha_ = false;
    DibImage image = WithOutOfMemory([&] { return DecodePixels(png_, settings, inflater_); });
    hasAlpha_ = HasAlphaChannel(png_.Header.ColourType);
    return image;
}

} // namespace vantik
