// random_host --seed N --actions N [--log]: a host that does random things to controls, the same ones for the same seed. The
// last line says what it did; what went wrong stands on the error stream, with the last things that were done before.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "hostile/random/CrashReport.h"
#include "hostile/random/OwnDesktop.h"
#include "hostile/random/Watchdog.h"
#include "hostile/random/World.h"

namespace {

struct Wanted {
    unsigned long long Seed = 1;
    long Actions = 1000;
    bool Prints = false;
};

// False for arguments that there are not.
bool Read(Wanted& wanted, int count, char** arguments) {
    for (int i = 1; i < count; ++i) {
        const char* const name = arguments[i];
        const char* const value = i + 1 < count ? arguments[i + 1] : nullptr;
        if (!std::strcmp(name, "--log")) {
            wanted.Prints = true;
            continue;
        }
        if (!value) return false;
        if (!std::strcmp(name, "--seed"))
            wanted.Seed = std::strtoull(value, nullptr, 10);
        else if (!std::strcmp(name, "--actions"))
            wanted.Actions = std::strtol(value, nullptr, 10);
        else
            return false;
        ++i;
    }
    return true;
}

void Run(vantik::World& world, const Wanted& wanted) {
    vantik::Watchdog watchdog(world.Log);
    for (long i = 0; i < wanted.Actions; ++i, watchdog.Fed()) world.Act();
    world.End();
    std::printf("seed %llu: %ld actions, digest %016llx\n", wanted.Seed, wanted.Actions,
                static_cast<unsigned long long>(world.Log.Digest()));
}

} // namespace

int main(int count, char** arguments) {
    Wanted wanted;
    if (!Read(wanted, count, arguments)) {
        std::fputs("usage: random_host [--seed N] [--actions N] [--log]\n", stderr);
        return 2;
    }
    const vantik::OwnDesktop desktop;
    vantik::World world(wanted.Seed, wanted.Prints);
    const vantik::CrashReport report(world.Log);
    try {
        Run(world, wanted);
        return 0;
    } catch (const std::exception& error) {
        world.Log.PrintEnd(error.what());
        std::_Exit(1); // what is wrong already is not taken apart
    }
}
