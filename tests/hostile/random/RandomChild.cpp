#include "hostile/random/RandomChild.h"

#include "host/UnknownEnumerator.h"

namespace vantik {

namespace {

// Its answers differ from time to time, and end some day.
class RandomEnumerator final : public ComObject<IEnumUnknown> {
public:
    RandomEnumerator(World& world, ComPtr<IEnumUnknown> real) : world_(world), real_(std::move(real)) {}

    STDMETHODIMP Next(ULONG count, IUnknown** objects, ULONG* fetched) noexcept override {
        for (ULONG i = 0; i < count; ++i) objects[i] = nullptr;
        if (fetched) *fetched = 0;
        const HRESULT result = world_.Called("Next");
        if (FAILED(result)) return result;
        return world_.IsRough(6) ? S_OK : real_->Next(count, objects, fetched);
    }
    STDMETHODIMP Skip(ULONG count) noexcept override { return real_->Skip(count); }
    STDMETHODIMP Reset() noexcept override { return real_->Reset(); }
    STDMETHODIMP Clone(IEnumUnknown** copy) noexcept override { return real_->Clone(copy); }

private:
    World& world_;
    ComPtr<IEnumUnknown> real_;
};

} // namespace

ComPtr<IEnumUnknown> RandomList(World& world, int place) {
    std::vector<ComPtr<IUnknown>> objects;
    for (int i = world.Draw.Below(4); i > 0; --i)
        objects.push_back(MakeCom<RandomChild>(world, place).As<IDispatch>().As<IUnknown>());
    for (const Place& each : world.Places())
        if (each.Control && world.Draw.OneIn(2)) objects.push_back(each.Control);
    const auto real = MakeCom<UnknownEnumerator>(std::move(objects)).As<IEnumUnknown>();
    return MakeCom<RandomEnumerator>(world, real).As<IEnumUnknown>();
}

} // namespace vantik
