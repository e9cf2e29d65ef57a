// Draws the skin's PNG icons onto the control's surface, each mixed over what lies there.
//
// A picture that cannot be read leaves its place as it was; the painting around it goes on.
#pragma once

#include <cstdint>
#include <map>
#include <optional>

#include "model/ControlState.h"
#include "platform/FileIdentity.h"
#include "platform/UserControl.h"
#include "skin/IconFailures.h"
#include "skin/MixedPictures.h"

namespace vantik {

// The colour treatments of the decoder that decorations use.
enum IconStyle : std::uint8_t { GreyFromBlue = 0, GreyFromGreen = 1, OwnColours = 3, Darkened = 4 };

class IconPainter {
public:
    IconPainter(UserControl& host, ControlState& state) noexcept
        : host_(host), state_(state), pictures_(state.SkinIcons) {}

    // What the system said of an icon's file, for what is drawn of it at once; nothing when there is nothing to draw.
    using Look = std::optional<FileIdentity>;

    // The size from the icon's file into the icon and LastPng; a file that says nothing leaves the icon's own. Nothing is
    // to be drawn when the file is locked or its size is beyond 16 bits.
    Look ReadSize(SkinIcon& icon);

    // For an icon that is to look as its file does now: reads the size, and releases the icon's pictures when the file
    // has changed since they were drawn. A file that says nothing gives the icon the size read last, whosever that was.
    Look Follow(std::int16_t icon);

    PixelBlock Read(std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height) {
        return ReadBlock(host_, x, y, width, height);
    }
    // Whether nothing is to be seen of a picture in this place of the room. One without extent is not known, and drawing
    // it tells what is wrong with it.
    static bool IsHidden(const LayoutRect& place, const LayoutRect& room) noexcept;

    // What lies beneath a picture in this place: as much of it as is seen, or all when none is.
    PixelBlock ReadBeneath(const LayoutRect& place, const LayoutRect& room);
    void Restore(const PixelBlock& block) { DrawBlock(host_.hDC(), block.X, block.Y, block); }

    // Where the pixels were read; they are what the picture is mixed over. A picture that was mixed over the same is
    // copied from the icon's slot, as much of it as covers them; a fresh one is drawn whole and kept in the slot. Who has
    // just looked at the file says so.
    void Draw(std::int16_t icon, std::uint8_t slot, IconStyle style, const PixelBlock& beneath,
              const Look& look = {});

    void Release(std::int16_t icon) noexcept { pictures_.Release(icon); }
    void Terminate() noexcept { pictures_.Terminate(); }

private:
    enum class Answer { None, Size, Refused };

    Answer ReadLast(const std::u16string& path, const FileIdentity& identity);
    void TakeLast(SkinIcon& icon) const noexcept;
    OwnedBitmap DrawFile(const std::u16string& path, const Look& look, IconStyle style,
                         const PixelBlock& beneath);

    UserControl& host_;
    ControlState& state_;
    MixedPictures pictures_;
    std::map<std::int16_t, FileIdentity> identities_; // of the icons that are followed
    IconFailures failures_;
};

} // namespace vantik
