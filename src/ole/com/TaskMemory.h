// Memory that the caller of an interface frees.
#pragma once

#include <cstring>
#include <memory>
#include <string_view>

#include "base/RunTimeError.h"
#include "platform/mDeclares.h"

namespace vantik {

struct TaskMemoryFreer {
    void operator()(void* memory) const noexcept { CoTaskMemFree(memory); }
};

// Given away by release().
template <class Item>
using TaskArray = std::unique_ptr<Item[], TaskMemoryFreer>;

template <class Item>
TaskArray<Item> NewTaskArray(std::size_t count) {
    TaskArray<Item> items(static_cast<Item*>(CoTaskMemAlloc(count * sizeof(Item))));
    if (!items && count) Raise(RunTimeErrorNumber::OutOfMemory);
    return items;
}

inline TaskArray<wchar_t> TaskCopy(std::wstring_view text) {
    auto copy = NewTaskArray<wchar_t>(text.size() + 1);
    std::memcpy(copy.get(), text.data(), text.size() * sizeof(wchar_t));
    copy[text.size()] = L'\0';
    return copy;
}

} // namespace vantik
