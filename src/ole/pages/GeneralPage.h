// The page "General": where the row of bars is, and what its bars are like.
#pragma once

#include "ole/pages/PropertyPage.h"

namespace vantik {

class GeneralPage final : public PropertyPage {
public:
    GeneralPage();

private:
    ~GeneralPage() override = default;

    void FillLists() override;
};

} // namespace vantik
