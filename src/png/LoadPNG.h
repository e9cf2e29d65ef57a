// Loads one PNG per call and paints it at once: set the object up, then open a file or a block of memory.
//
// An object may be opened any number of times. Texts grow from open to open, the error number is only ever set: whoever
// needs a fresh state makes a fresh object. Run-time errors of the opens: what PngReader and FileSource raise.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "gfx/Handles.h"
#include "model/Enumerations.h"
#include "png/ByteSource.h"
#include "png/PicturePainting.h"
#include "png/PngReader.h"

namespace vantik {

class LoadPNG {
public:
    // 0 to 3 select channels, 4 and above recolour transparent pictures.
    void Style(std::uint8_t style) noexcept { place_.Style = style; }
    // A turn that some callers ask for; drawing takes no notice of it.
    void Direct(std::int16_t direct) noexcept { direct_ = direct; }

    std::int32_t OpenPNG(const std::u16string& filename); // always 0

    std::int32_t width() const noexcept { return Header().Width; }
    std::int32_t height() const noexcept { return Header().Height; }
    std::int32_t Bitdepht() const noexcept { return Header().BitDepth; }
    std::int32_t ColorType() const noexcept { return Header().ColourType; }
    std::int32_t Compression() const noexcept { return Header().Compression; }
    std::int32_t Filter() const noexcept { return Header().Filter; }
    std::int32_t Interlacing() const noexcept { return Header().Interlace; }
    // 1 no PNG signature, 3 a chunk beyond the end, 4 no image data.
    std::int32_t ErrorNumber() const noexcept { return reader_.ErrorNumber(); }
    Boolean HaveAlpha() const noexcept { return ToBoolean(reader_.HasAlpha()); }
    Boolean HaveTransparence() const noexcept { return ToBoolean(Contents().HasTransparency); }

    void SetTrans(Boolean vNewValue) noexcept { appliesTransparency_ = vNewValue; }
    void SetAlpha(Boolean vNewValue) noexcept { appliesAlpha_ = vNewValue; } // only exactly True applies it

    Boolean HasBKGDChunk() const noexcept { return ToBoolean(Contents().HasBackground); }
    std::int32_t BkgdColor() const noexcept { return Contents().BackgroundColour; }
    const std::u16string& Text() const noexcept { return Contents().Text; }
    const std::u16string& zText() const noexcept { return Contents().CompressedText; }
    const std::u16string& ModiTime() const noexcept { return Contents().ModificationTime; }
    double gama() const noexcept { return Contents().Gamma / 100000.0; }

    // Transparent pictures are mixed with what this context shows at the position of SetToBkgrnd; with black when none
    // is set.
    void BackgroundHdc(HDC dc) noexcept { backgroundDC_ = dc; }
    void BackgroundHbmp(HBITMAP bitmap) noexcept { backgroundBitmap_ = bitmap; } // not consulted
    // Neither the switch nor the colour affects drawing.
    void SetOwnBkgndColor(Boolean OwnBkgndOn, std::int32_t BackColor = 0) noexcept;

    void PicBox(HDC NewPicBox) noexcept { place_.PicBox = NewPicBox; } // receives the picture
    void SetToBkgrnd(Boolean SetToBG, std::int32_t X = 0, std::int32_t Y = 0) noexcept;

    // lData is the address of the first of xLong bytes.
    std::int32_t OpenPNGfromRes(std::uintptr_t lData, std::int32_t xLong); // always 0

    void SetDstXY(std::int32_t X, std::int32_t Y) noexcept;

    // What an open of the file would draw, drawn by nobody; without a picture when it is none.
    DibImage DecodeFile(const std::u16string& filename);

    // The bitmap that was drawn last; empty when nothing was, and when it was taken already.
    OwnedBitmap TakeBitmap() noexcept { return std::move(bitmap_); }

private:
    const PngContents& Contents() const noexcept { return reader_.Contents(); }
    const ImageHeader& Header() const noexcept { return Contents().Header; }
    static Boolean ToBoolean(bool value) noexcept { return value ? True : False; }

    DibImage Decode(ByteSource& source);
    void Paint(DibImage image);

    PngReader reader_;
    Boolean appliesAlpha_ = False;
    Boolean appliesTransparency_ = False;
    PicturePlace place_;
    std::int32_t backgroundX_ = 0;
    std::int32_t backgroundY_ = 0;
    HDC backgroundDC_ = nullptr;
    HBITMAP backgroundBitmap_ = nullptr;
    Boolean ownBackgroundOn_ = False;
    std::int32_t ownBackgroundColour_ = 0;
    Boolean usesBackground_ = False;
    std::int16_t direct_ = 0;
    OwnedBitmap bitmap_;
};

} // namespace vantik
