// A thread that does what it is told, one thing after the other, and lives on in between.
#pragma once

#include <functional>

#include "host/OleApartment.h"

namespace vantik {

class Worker {
public:
    Worker() : thread_(CreateThread(nullptr, 0, Run, this, 0, nullptr)) {}
    ~Worker() {
        Do(nullptr);
        WaitForSingleObject(thread_, INFINITE);
        for (const HANDLE handle : {thread_, wanted_, done_}) CloseHandle(handle);
    }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    // What is to be done must not throw; nothing ends the thread.
    void Begin(std::function<void()> work) {
        work_ = std::move(work);
        SetEvent(wanted_);
    }
    void Finish() { WaitForSingleObject(done_, INFINITE); }
    void Do(std::function<void()> work) {
        Begin(std::move(work));
        Finish();
    }

private:
    static DWORD WINAPI Run(void* self) {
        static_cast<Worker*>(self)->Run();
        return 0;
    }
    void Run() {
        const OleApartment apartment;
        for (bool goesOn = true; goesOn; SetEvent(done_)) {
            WaitForSingleObject(wanted_, INFINITE);
            goesOn = work_ != nullptr;
            if (goesOn) work_();
        }
    }

    std::function<void()> work_;
    HANDLE wanted_ = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    HANDLE done_ = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    HANDLE thread_; // begins when the rest is there
};

} // namespace vantik
