#include "host/cli/io/held_interrupt.h"

#include <csignal>
#include <cstdlib>
#include <mutex>

namespace standin::cli {

namespace {

constexpr int kExitCode = 130;  // as a shell has it
volatile std::sig_atomic_t g_hasCome = 0;
std::mutex g_holding;
int g_holders = 0;
void (*g_before)(int) = SIG_DFL;

void Mark(int) {
    g_hasCome = 1;
}

}  // namespace

HeldInterrupt::HeldInterrupt() {
    const std::lock_guard lock{g_holding};
    if (g_holders++ == 0) {
        g_hasCome = 0;
        g_before = std::signal(SIGINT, Mark);
        if (g_before == SIG_IGN) {
            std::signal(SIGINT, SIG_IGN);
        }
    }
}

HeldInterrupt::~HeldInterrupt() {
    const std::lock_guard lock{g_holding};
    if (--g_holders == 0) {
        std::signal(SIGINT, g_before);
        if (g_hasCome != 0 && g_before == SIG_DFL) {
            std::_Exit(kExitCode);
        }
        if (g_hasCome != 0) {
            std::raise(SIGINT);
        }
    }
}

bool HeldInterrupt::HasCome() noexcept {
    return g_hasCome != 0;
}

}  // namespace standin::cli
