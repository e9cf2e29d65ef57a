// The chunks that describe a picture beside its pixels.
#pragma once

#include <cstdint>
#include <string>

#include "png/Inflate.h"
#include "png/PngContents.h"

namespace vantik {

// Both raise OutOfMemory for a text that is too long beside the other memory that is held.

// tEXt: keyword, separator and text as they stand, followed by a character 0.
void AppendText(std::u16string& text, ByteView data, std::int64_t otherMemory);

// zTXt: the keyword, a character 0, what the compressed bytes give, a character 0. The compressed bytes are taken to end
// before their first byte 0, which shortens most real streams; readers of the text rely on it. Where inflating raises,
// the keyword is there already.
void InflateTextChunk(std::u16string& text, ByteView data, Inflater& inflater, std::int64_t otherMemory);

// The number of bytes before the first 0.
std::size_t FindZero(ByteView data) noexcept;

// tIME as day.month.year hour:minute:second; SubscriptOutOfRange for less than 7 bytes.
std::u16string FormatTime(ByteView data);

// The colour of a bKGD chunk by the colour type known so far, red in the low byte; 0 when the data does not fit it.
std::int32_t BackgroundColourOf(ByteView data, const ImageHeader& header, ByteView palette);

} // namespace vantik
