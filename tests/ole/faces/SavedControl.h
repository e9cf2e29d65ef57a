// Saved controls, for the tests of saving and loading: streams and storages in memory, a control that has nothing of its
// default, and what it says of itself.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "ole/LooseControl.h"

namespace vantik {

ComPtr<IStream> NewStream();
ComPtr<IStorage> NewStorage();
void Rewind(IStream& stream);
std::vector<std::byte> BytesOf(IStream& stream); // all of them
ComPtr<IStream> StreamOf(const std::vector<std::byte>& bytes);
ComPtr<IStorage> StorageOf(const std::vector<std::byte>& bytes); // as the control saves into one

// Every property away from its default, pictures and fonts included.
void Change(LooseControl& control);

// What a changed control saves.
std::vector<std::byte> BytesOfChanged();

std::wstring FontText(IDispatch& tab);
std::wstring PictureText(IDispatch& tab);
std::string StateOf(LooseControl& control); // all that is saved, as one text

// A control's saved bytes, written record by record.
class SavedBytes {
public:
    void Add(std::u16string_view key, std::uint16_t type, const std::vector<std::uint16_t>& value) {
        Number(records_, static_cast<std::uint16_t>(key.size()));
        for (const char16_t letter : key) Number(records_, letter);
        Number(records_, type);
        Number(records_, static_cast<std::uint32_t>(value.size() * 2));
        for (const auto word : value) Number(records_, word);
    }
    ComPtr<IStream> Stream(std::uint16_t version = 1) const {
        std::vector<std::byte> bytes;
        Number(bytes, std::uint32_t{0x54465456});
        Number(bytes, version);
        Number(bytes, std::uint16_t{0});
        Number(bytes, static_cast<std::uint32_t>(records_.size()));
        bytes.insert(bytes.end(), records_.begin(), records_.end());
        return StreamOf(bytes);
    }

private:
    template <class Value>
    static void Number(std::vector<std::byte>& bytes, Value value) {
        const auto* raw = reinterpret_cast<const std::byte*>(&value);
        bytes.insert(bytes.end(), raw, raw + sizeof value);
    }

    std::vector<std::byte> records_;
};

} // namespace vantik
