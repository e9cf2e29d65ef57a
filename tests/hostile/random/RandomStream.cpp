#include "hostile/random/RandomStream.h"

#include <algorithm>
#include <cstring>

namespace vantik {

HRESULT RandomStream::Read(void* bytes, ULONG count, ULONG* read) noexcept {
    const ComPtr<RandomStream> alive(this);
    world_.Visit("stream: Read");
    if (read) *read = 0;
    if (fails_ && world_.Draw.OneIn(4)) return STG_E_READFAULT;
    ULONG given =
        static_cast<ULONG>(std::min<std::size_t>(count, bytes_.size() - std::min(next_, bytes_.size())));
    if (fails_ && given) given = static_cast<ULONG>(world_.Draw.Below(given + 1));
    if (given) std::memcpy(bytes, bytes_.data() + next_, given);
    next_ += given;
    if (read) *read = fails_ && world_.Draw.OneIn(8) ? count + 100 : given;
    return given == count ? S_OK : S_FALSE;
}

HRESULT RandomStream::Write(const void* bytes, ULONG count, ULONG* written) noexcept {
    const ComPtr<RandomStream> alive(this);
    world_.Visit("stream: Write");
    if (written) *written = 0;
    if (fails_ && world_.Draw.OneIn(4)) return STG_E_MEDIUMFULL;
    const ULONG taken = fails_ ? static_cast<ULONG>(world_.Draw.Below(count + 1)) : count;
    const auto* first = static_cast<const std::byte*>(bytes);
    bytes_.insert(bytes_.end(), first, first + taken);
    if (written) *written = taken;
    return S_OK;
}

} // namespace vantik
