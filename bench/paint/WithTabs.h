// A control that is brought to a number of tabs before each round, so that two of these can take turns on one control:
// two controls of the same kind differ by more, from where their surfaces lie in memory.
#pragma once

#include <memory>
#include <utility>

#include "Subject.h"

namespace vantik::bench {

struct SharedSubject {
    std::unique_ptr<Subject> Control; // with one tab at first
    int Tabs = 1;
};

class WithTabs final : public Subject {
public:
    WithTabs(std::shared_ptr<SharedSubject> shared, int tabs) : shared_(std::move(shared)), tabs_(tabs) {}

    void GetReady() override {
        Subject& control = *shared_->Control;
        control.GetReady();
        const int more = tabs_ - std::exchange(shared_->Tabs, tabs_);
        if (more > 0) control.Insert(more);
        if (more < 0) control.Remove(-more);
        control.RepaintFully();
    }

    void Insert(int tabs) override { shared_->Control->Insert(tabs); }
    void Remove(int tabs) override { shared_->Control->Remove(tabs); }
    void Show() override { shared_->Control->Show(); }
    void RepaintFully() override { shared_->Control->RepaintFully(); }
    void PaintWindow() override { shared_->Control->PaintWindow(); }
    void RepaintBars() override { shared_->Control->RepaintBars(); }
    void MovePointer(int x, int y) override { shared_->Control->MovePointer(x, y); }

private:
    std::shared_ptr<SharedSubject> shared_;
    int tabs_;
};

} // namespace vantik::bench
