#include <cstdio>
#include <cstring>

int main(int argc, char* argv[]) {
    if (argc == 2 && std::strcmp(argv[1], "--version") == 0) {
        std::puts("orvane " ORVANE_VERSION);
        return 0;
    }
    std::fputs("usage: orvane --version\n", stderr);
    return 2;
}
