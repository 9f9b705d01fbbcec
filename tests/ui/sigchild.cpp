// A process that ends by the program's own signal handler: it installs it as
// the program does, says "ready", and waits for a signal, or faults at once
// when asked to.
#include "application.h"
#include "debugqt.h"

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <unistd.h>

int main(int argc, char* argv[])
{
    DebugQt::instance(0x8ED0007, nullptr);
    signal(SIGTERM, sig_handler);
    signal(SIGHUP, sig_handler);
    signal(SIGSEGV, sig_handler);

    if (argc > 1 && strcmp(argv[1], "fault") == 0) {
        volatile uintptr_t address = 64; // unmapped, and not null
        *reinterpret_cast<volatile int*>(address) = 1;
    }
    puts("ready");
    fflush(stdout);
    for (;;)
        pause();
}
