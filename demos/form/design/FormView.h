// A form as its text describes it, under design or in use: the control, its children and the colour around them.
#pragma once

#include "PageColour.h"
#include "demos/form/design/PlacedChildren.h"
#include "demos/form/design/model/FormText.h"
#include "host/HostForm.h"

namespace vantik {

class FormView {
public:
    enum class Purpose { Design, Use };

    FormView(ControlModule& module, const FormFont& font, Purpose purpose, FormLayout layout,
             FormHandlers handlers);

    // Throws HostError: for properties that cannot be read with nothing changed, for what the control refuses with an
    // empty form.
    void Open(const DesignedForm& form);
    void OpenNew();      // as wide and as high as the form
    DesignedForm Form(); // as it stands now

    SIZE Size() const;        // the form's own, in pixels
    void Resize(SIZE pixels); // the control grows with it
    void TakeColour();        // that the control paints now

    HostForm& Host() noexcept { return form_; }
    PlacedChildren& Children() noexcept { return children_; }

private:
    FormHandlers WithColours(FormHandlers handlers);

    DesignedForm frame_; // the form and the control's place on it; the rest is asked for
    PageColour colour_;
    HostForm form_;
    PlacedChildren children_;
};

SIZE PixelsOf(const DesignedForm& form);

} // namespace vantik
