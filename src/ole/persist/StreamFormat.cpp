#include "ole/persist/StreamFormat.h"

#include <algorithm>
#include <cstring>
#include <span>

#include "base/ErrorText.h"
#include "ole/com/ErrorInfo.h"
#include "ole/com/Fonts.h"
#include "platform/PictureLoading.h"
#include "skin/PictureFile.h"

namespace vantik {

namespace {

using Bytes = std::vector<std::byte>;
using View = std::span<const std::byte>;

constexpr std::uint32_t Magic = 0x54465456; // "VTFT"
constexpr std::uint16_t Version = 1;

struct Header {
    std::uint32_t Magic;
    std::uint16_t Version;
    std::uint16_t Reserved;
    std::uint32_t Size;
};
static_assert(sizeof(Header) == 12);

[[noreturn]] void RaiseBadStream() {
    throw HostError(STG_E_DOCFILECORRUPT,
                    ErrorText(u"The saved data are damaged, or none of this control's"));
}

template <class Number>
void Append(Bytes& bytes, Number number) {
    const auto raw = std::as_bytes(std::span(&number, 1));
    bytes.insert(bytes.end(), raw.begin(), raw.end());
}

template <class Number>
Number Take(View& bytes) {
    Number number;
    if (bytes.size() < sizeof number) RaiseBadStream();
    std::memcpy(&number, bytes.data(), sizeof number);
    bytes = bytes.subspan(sizeof number);
    return number;
}

View TakeBytes(View& bytes, std::size_t count) {
    if (bytes.size() < count) RaiseBadStream();
    const View taken = bytes.first(count);
    bytes = bytes.subspan(count);
    return taken;
}

std::u16string TextOf(View bytes) {
    std::u16string text(bytes.size() / sizeof(char16_t), u'\0');
    std::memcpy(text.data(), bytes.data(), text.size() * sizeof(char16_t));
    return text;
}

// Fewer bytes at the stream's end.
Bytes ReadUpTo(IStream& stream, std::size_t count) {
    Bytes bytes(count);
    ULONG read = 0;
    Check(stream.Read(bytes.data(), static_cast<ULONG>(count), &read));
    bytes.resize(std::min<std::size_t>(read, count));
    return bytes;
}

// In pieces: the size that a hostile stream claims is not what gets allocated.
Bytes ReadExactly(IStream& stream, std::size_t count) {
    constexpr std::size_t Piece = 1 << 16;
    Bytes all;
    while (all.size() < count) {
        const Bytes piece = ReadUpTo(stream, std::min(Piece, count - all.size()));
        if (piece.empty()) RaiseBadStream();
        all.insert(all.end(), piece.begin(), piece.end());
    }
    return all;
}

void WriteAll(IStream& stream, const void* bytes, std::size_t count) {
    ULONG written = 0;
    Check(stream.Write(bytes, static_cast<ULONG>(count), &written));
    if (written != count) RaiseHostError(STG_E_MEDIUMFULL);
}

ComPtr<IStream> NewMemoryStream() {
    ComPtr<IStream> stream;
    Check(CreateStreamOnHGlobal(nullptr, TRUE, stream.Put()));
    return stream;
}

void Rewind(IStream& stream) { Check(stream.Seek({}, STREAM_SEEK_SET, nullptr)); }

Bytes BytesOf(IStream& stream) {
    STATSTG state = {};
    Check(stream.Stat(&state, STATFLAG_NONAME));
    Rewind(stream);
    return ReadExactly(stream, static_cast<std::size_t>(state.cbSize.QuadPart));
}

Bytes SavedBytes(IUnknown* object) {
    const auto persist = QueryFor<IPersistStream>(object);
    if (!persist) RaiseHostError(E_NOINTERFACE);
    const auto stream = NewMemoryStream();
    Check(persist->Save(stream.Get(), FALSE));
    return BytesOf(*stream.Get());
}

ComPtr<IUnknown> RestoredFont(View bytes) {
    auto font = StandardFont().As<IUnknown>();
    const auto persist = font.As<IPersistStream>();
    if (!persist) RaiseHostError(E_NOINTERFACE);
    const auto stream = NewMemoryStream();
    WriteAll(*stream.Get(), bytes.data(), bytes.size());
    Rewind(*stream.Get());
    Check(persist->Load(stream.Get()));
    return font;
}

// Picture objects save themselves as a magic number, the length of a picture file, and the file. Their own way back
// believes all that it reads there.
ComPtr<IUnknown> RestoredPicture(View bytes) {
    constexpr std::uint32_t PictureMagic = 0x0000746C; // "lt"
    if (Take<std::uint32_t>(bytes) != PictureMagic) RaiseBadStream();
    const View file = TakeBytes(bytes, Take<std::uint32_t>(bytes));
    if (file.empty()) return EmptyPicture().As<IUnknown>();
    const std::span plain(reinterpret_cast<const BYTE*>(file.data()), file.size());
    const auto picture = IsWholePicture(plain) ? PictureFrom(plain) : nullptr;
    if (!picture) RaiseBadStream();
    return picture.As<IUnknown>();
}

// Only objects of the two standard kinds are made, whatever a stream says.
ComPtr<IUnknown> RestoredObject(PropertyType type, View bytes) {
    return type == PropertyType::Font ? RestoredFont(bytes) : RestoredPicture(bytes);
}

Bytes BytesOf(const VARIANT& value) {
    Bytes bytes;
    switch (value.vt) {
    case VT_I2:
    case VT_BOOL: Append(bytes, value.iVal); break;
    case VT_I4: Append(bytes, value.lVal); break;
    case VT_BSTR: {
        const auto text = std::as_bytes(std::span(value.bstrVal, SysStringLen(value.bstrVal)));
        bytes.assign(text.begin(), text.end());
        break;
    }
    default: bytes = SavedBytes(value.punkVal); break;
    }
    return bytes;
}

} // namespace

StreamReader::StreamReader(IStream& stream) {
    const Bytes head = ReadExactly(stream, sizeof(Header));
    View rest = head;
    const auto header = Take<Header>(rest);
    if (header.Magic != Magic || header.Version < 1) RaiseBadStream();
    const Bytes records = ReadExactly(stream, header.Size);
    for (rest = records; !rest.empty();) {
        const auto keyLength = Take<std::uint16_t>(rest);
        auto key = TextOf(TakeBytes(rest, keyLength * sizeof(char16_t)));
        const auto type = Take<std::uint16_t>(rest);
        const View value = TakeBytes(rest, Take<std::uint32_t>(rest));
        values_[std::move(key)] = {type, Bytes(value.begin(), value.end())};
    }
}

bool StreamReader::Fetch(const PropertyInfo& info, Variant& value) {
    const auto found = values_.find(std::u16string_view(info.Key));
    if (found == values_.end()) return false;
    View bytes = found->second.Bytes;
    switch (found->second.Type) {
    case VT_I2:
    case VT_BOOL: value.iVal = Take<std::int16_t>(bytes); break;
    case VT_I4: value.lVal = Take<std::int32_t>(bytes); break;
    case VT_BSTR: value.bstrVal = NewBstr(TextOf(bytes)); break;
    case VT_UNKNOWN: value.punkVal = RestoredObject(info.Type, bytes).Copy(); break;
    default: RaiseBadStream();
    }
    value.vt = found->second.Type;
    return true;
}

void StreamWriter::Store(const PropertyInfo& info, VARIANT& value) {
    const std::u16string_view key = info.Key;
    const Bytes bytes = BytesOf(value);
    Append(records_, static_cast<std::uint16_t>(key.size()));
    const auto text = std::as_bytes(std::span(key));
    records_.insert(records_.end(), text.begin(), text.end());
    Append(records_, static_cast<std::uint16_t>(value.vt));
    Append(records_, static_cast<std::uint32_t>(bytes.size()));
    records_.insert(records_.end(), bytes.begin(), bytes.end());
}

std::size_t StreamWriter::Size() const noexcept { return sizeof(Header) + records_.size(); }

void StreamWriter::Flush(IStream& stream) const {
    const Header header = {Magic, Version, 0, static_cast<std::uint32_t>(records_.size())};
    WriteAll(stream, &header, sizeof header);
    if (!records_.empty()) WriteAll(stream, records_.data(), records_.size());
}

} // namespace vantik
