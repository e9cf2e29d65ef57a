// The filtered scanlines, inflated as far as somebody needs them.
#pragma once

#include <cstddef>
#include <cstdint>

#include "base/RunTimeError.h"
#include "png/Inflate.h"

namespace vantik {

class RawScanlines {
public:
    explicit RawScanlines(Inflater& inflater) : inflater_(inflater) {}

    // The start of the scanlines, of which `size` bytes are there; SubscriptOutOfRange when there are fewer.
    // A few bytes behind them may be read too.
    const std::uint8_t* UpTo(std::size_t size) {
        if (inflater_.Output().size() < size)
            inflater_.ContinueTo(size); // mostly there: a match may be many rows
        const ByteView output = inflater_.Output();
        if (output.size() < size) Raise(RunTimeErrorNumber::SubscriptOutOfRange);
        return output.data();
    }

    // Everything that the stream gives, however much that is.
    ByteView All() {
        Finish();
        return inflater_.Output();
    }

    // Inflates what nobody needed: faults of the stream show wherever they are.
    void Finish() { inflater_.ContinueTo(SIZE_MAX); }

private:
    Inflater& inflater_;
};

} // namespace vantik
