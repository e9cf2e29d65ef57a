#include "hostile/random/RandomObject.h"

#include "hostile/random/RandomDispatch.h"
#include "hostile/random/RandomFont.h"
#include "hostile/random/RandomPicture.h"
#include "hostile/random/World.h"

namespace vantik {

namespace {

ComPtr<IDispatch> StandardFontOf(Random& random) {
    static constexpr const wchar_t* Names[] = {L"Tahoma", L"Arial", L"", L"No Such Font", L"Symbol"};
    FONTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = const_cast<wchar_t*>(random.Of(Names)); // NOLINT: copied
    description.cySize.int64 = random.OneIn(4) ? random.Number() : 10'0000;
    description.sWeight = random.Short();
    description.sCharset = static_cast<SHORT>(random.Below(256));
    description.fItalic = random.OneIn(2);
    ComPtr<IDispatch> font;
    OleCreateFontIndirect(&description, IID_IDispatch, font.PutVoid());
    return font;
}

ComPtr<IDispatch> StandardPictureOf(Random& random) {
    PICTDESC description = {};
    description.cbSizeofstruct = sizeof description;
    description.picType = PICTYPE_BITMAP;
    description.bmp.hbitmap = CreateBitmap(random.Between(1, 40), random.Between(1, 40), 1, 1, nullptr);
    ComPtr<IDispatch> picture;
    const bool empty = random.OneIn(3);
    OleCreatePictureIndirect(empty ? nullptr : &description, IID_IDispatch, TRUE, picture.PutVoid());
    if (empty || !picture) DeleteObject(description.bmp.hbitmap);
    return picture;
}

} // namespace

ComPtr<IDispatch> RandomObject(World& world) {
    switch (world.Draw.Below(6)) {
    case 0: return nullptr;
    case 1: return MakeCom<RandomDispatch>(world).As<IDispatch>();
    case 2: return MakeCom<RandomFont>(world).As<IDispatch>();
    case 3: return MakeCom<RandomPicture>(world).As<IDispatch>();
    case 4: return StandardFontOf(world.Draw);
    default: return StandardPictureOf(world.Draw);
    }
}

} // namespace vantik
