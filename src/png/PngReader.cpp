#include "png/PngReader.h"

#include "png/AncillaryChunks.h"
#include "png/ChunkReader.h"
#include "png/MemoryLimit.h"
#include "png/OutOfMemory.h"

namespace vantik {

namespace {

using Buffer = std::vector<std::uint8_t>;

// Both beside what the memory holds already, the buffer itself included.
void Assign(Buffer& buffer, ByteView data, std::int64_t memory) {
    if (data.size() > buffer.capacity()) NeedMemory(memory + static_cast<std::int64_t>(data.size()));
    buffer.assign(data.begin(), data.end());
}

void Append(Buffer& buffer, ByteView data, std::int64_t memory) {
    NeedMemory(memory + GrowthOf(buffer, static_cast<std::int64_t>(data.size())));
    buffer.insert(buffer.end(), data.begin(), data.end());
}

} // namespace

bool PngReader::Fail(std::int32_t errorNumber) noexcept {
    errorNumber_ = errorNumber;
    return false;
}

void PngReader::Reset() noexcept {
    png_.Clear();
    errorNumber_ = 0;
    hasAlpha_ = false;
}

void PngReader::Begin() noexcept {
    png_.HasBackground = false;
    png_.HasTransparency = false;
    png_.ImageData.clear();
}

bool PngReader::Read(ByteSource& source) {
    Begin();
    return WithOutOfMemory([&] { return ReadChunks(source); });
}

bool PngReader::ReadChunks(ByteSource& source) {
    ChunkReader chunks(source, std::move(chunkMemory_));
    if (!chunks.ReadSignature()) return Fail(NoPngSignature);
    do {
        if (!chunks.Next(png_.Memory())) return Fail(ChunkBeyondEnd);
        TakeChunk(chunks);
    } while (chunks.Name() != ChunkName("IEND"));
    chunkMemory_ = Emptied(chunks.TakeMemory());
    return png_.ImageData.empty() ? Fail(NoImageData) : true;
}

void PngReader::TakeChunk(const ChunkReader& chunk) {
    const ByteView data = chunk.Data();
    const std::int64_t memory = png_.Memory() + HeldBytes(chunk.Buffer());
    switch (chunk.Name()) {
    case ChunkName("IHDR"): png_.Header = ParseHeader(data); break;
    case ChunkName("PLTE"): Assign(png_.Palette, data, memory); break;
    case ChunkName("IDAT"): Append(png_.ImageData, data, memory); break;
    case ChunkName("bKGD"): ApplyBackgroundChunk(data); break;
    case ChunkName("gAMA"): png_.Gamma = BigEndianLong(data, 0); break;
    case ChunkName("tEXt"): AppendText(png_.Text, data, memory - HeldBytes(png_.Text)); break;
    case ChunkName("zTXt"):
        InflateTextChunk(png_.CompressedText, data, inflater_, memory - HeldBytes(png_.CompressedText));
        break;
    case ChunkName("tIME"): png_.ModificationTime = FormatTime(data); break;
    case ChunkName("tRNS"):
        png_.HasTransparency = true;
        Assign(png_.Transparency, data, memory);
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
