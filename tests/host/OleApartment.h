// COM and OLE for the thread that uses the container.
#pragma once

#include "host/HostError.h"

namespace vantik {

class OleApartment {
public:
    OleApartment() { Check(OleInitialize(nullptr), "OleInitialize"); }
    ~OleApartment() { OleUninitialize(); }
    OleApartment(const OleApartment&) = delete;
    OleApartment& operator=(const OleApartment&) = delete;
};

} // namespace vantik
