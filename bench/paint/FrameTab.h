// The built control on a form, early bound.
#pragma once

#include <memory>

#include "Subject.h"

namespace vantik::bench {

enum class Side : std::uint8_t { Top, Left };

// Whether the host tells which controls stand on the control, as forms do, or leaves it to look for windows there.
enum class Host : std::uint8_t { ListsControls, Plain };

std::unique_ptr<Subject> MakeFrameTab(Side side, Host host);

} // namespace vantik::bench
