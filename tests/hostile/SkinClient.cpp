// A host that others start beside: each line of its input is a skin's folder; a control is loaded with that, and the answer
// is a line of what the load returned and of what the control looks like.
#include <iostream>
#include <string>

#include "host/BuiltControl.h"
#include "host/ControlModule.h"
#include "host/OleApartment.h"
#include "host/TextPropertyBag.h"
#include "ole/Canvas.h"

namespace vantik {

namespace {

constexpr int Width = 240, Height = 60;

std::uint32_t LooksOf(IUnknown* control) {
    Canvas canvas(Width, Height);
    Draw(control, canvas.DC(), {0, 0, Width, Height});
    std::uint32_t sum = 2166136261u;
    for (int y = 0; y < Height; ++y)
        for (int x = 0; x < Width; ++x) sum = (sum ^ canvas.At(x, y)) * 16777619u;
    return sum;
}

std::string LoadFrom(const ControlModule& module, const std::string& skinPath) {
    const auto control = module.Create();
    const auto bag = MakeCom<TextPropertyBag>();
    bag->Parse("TabCount = 3\nActiveTab = 0\nBarWidth = 60\nDelButton = True\nSkinPath = \"" + skinPath +
               "\"\n");
    const HRESULT loaded = QueryFor<IPersistPropertyBag>(control.Get())->Load(bag.Get(), nullptr);
    return std::to_string(HRESULT_CODE(loaded)) + " " + std::to_string(LooksOf(control.Get()));
}

} // namespace

} // namespace vantik

int main() {
    using namespace vantik;
    const OleApartment apartment;
    const ControlModule module(FindBuiltControl());
    for (std::string skinPath; std::getline(std::cin, skinPath);)
        std::cout << LoadFrom(module, skinPath) << std::endl;
}
