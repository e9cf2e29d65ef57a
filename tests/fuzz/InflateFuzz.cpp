// Deflate streams: decoding in steps, and as machines without free shifts do it, gives what decoding at once gives, errors
// and results included.
#include <algorithm>
#include <cstdlib>
#include <vector>

#include "base/RunTimeError.h"
#include "png/Inflate.h"

namespace vantik {

namespace {

struct Outcome {
    std::vector<std::uint8_t> Output;
    std::int32_t Result = 1;
    int Error = 0;

    friend bool operator==(const Outcome&, const Outcome&) = default;
};

template <class Work>
Outcome OutcomeOf(Work work) {
    Outcome outcome;
    try {
        work(outcome);
    } catch (const RunTimeError& error) {
        outcome = {{}, 1, static_cast<int>(error.Number())};
    }
    return outcome;
}

Outcome AtOnce(ByteView stream, std::int32_t expectedSize, bool deflate64) {
    return OutcomeOf([&](Outcome& outcome) {
        std::int32_t size = expectedSize;
        std::vector<std::uint8_t> data(stream.begin(), stream.end());
        Inflater().Inflate(data, size, deflate64, outcome.Result);
        outcome.Output = std::move(data);
    });
}

Outcome InSteps(ByteView stream, std::int32_t expectedSize, bool deflate64, std::size_t step) {
    return OutcomeOf([&](Outcome& outcome) {
        std::int32_t size = expectedSize;
        Inflater inflater(false);
        inflater.Begin(stream, size, deflate64);
        for (std::size_t wanted = 0; !inflater.HasEnded(); wanted += step) inflater.ContinueTo(wanted);
        outcome.Output.assign(inflater.Output().begin(), inflater.Output().end());
        outcome.Result = inflater.Result();
    });
}

} // namespace

} // namespace vantik

// Two bytes for the expected size, one for the step and the flag, then the stream.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) return 0;
    const std::int32_t expectedSize = data[0] | data[1] << 8;
    const bool deflate64 = data[2] == 255;
    const vantik::ByteView stream(data + 3, size - 3);
    const auto once = vantik::AtOnce(stream, expectedSize, deflate64);
    if (once != vantik::InSteps(stream, expectedSize, deflate64, std::size_t{data[2]} + 1)) std::abort();
    return 0;
}
