// A library under the name of the compiler's unwinder that does nothing but count who turns to it.
namespace {

int calls = 0;

} // namespace

extern "C" __declspec(dllexport) int CallsOfUnwinder() { return calls; }
extern "C" __declspec(dllexport) void __register_frame_info(const void*, void*) { ++calls; }
extern "C" __declspec(dllexport) void* __deregister_frame_info(const void*) {
    ++calls;
    return nullptr;
}
