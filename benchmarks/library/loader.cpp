// SPDX-License-Identifier: BSD-3-Clause

// usage: bench-library-loader LIBRARY [LOADED BEFORE]...
//
// Loads a library as a program does that starts, and prints how many nanoseconds that took. With C only, so that
// everything the library needs is loaded with it, but for what is named to be loaded before.

#include <cstdio>
#include <ctime>
#include <dlfcn.h>

static long long now()
{
    timespec time;
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * 1000000000LL + time.tv_nsec;
}

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s LIBRARY [LOADED BEFORE]...\n", argv[0]);
        return 2;
    }
    for (int i = 2; i < argc; ++i) {
        if (dlopen(argv[i], RTLD_NOW | RTLD_GLOBAL) == nullptr) {
            std::fprintf(stderr, "%s: %s\n", argv[0], dlerror());
            return 1;
        }
    }
    const long long begin = now();
    if (dlopen(argv[1], RTLD_NOW | RTLD_GLOBAL) == nullptr) {
        std::fprintf(stderr, "%s: %s\n", argv[0], dlerror());
        return 1;
    }
    std::printf("%lld\n", now() - begin);
    return 0;
}
