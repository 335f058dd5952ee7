#include "Cases.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

/// Repeats one piece of work, for a tool that counts instructions: korvo_instructions NAME COUNT. Prints the
/// names when it has no arguments, and the first payload when the argument is --payload.
int main(int argc, char** argv) {
    if (argc == 2 && std::strcmp(argv[1], "--payload") == 0) {
        std::puts(korvo::bench::cases().front().payload.c_str());
        return 0;
    }
    std::size_t sum = 0;
    for (const korvo::bench::Work& work : korvo::bench::allWork()) {
        if (argc != 3) {
            std::puts(work.name.c_str());
        } else if (work.name == argv[1]) {
            for (long left = std::strtol(argv[2], nullptr, 10); left > 0; --left) {
                sum += work.run();
            }
        }
    }
    return argc == 3 && sum == 0 ? 1 : 0;
}
