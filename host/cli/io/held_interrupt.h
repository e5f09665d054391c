// Ctrl-C that waits until a file is whole or gone.
#pragma once

namespace standin::cli {

// While an object lives, in any thread, Ctrl-C only leaves a mark. When the last one goes, it takes
// effect: the handler from before runs, or the program ends with exit code 130.
class HeldInterrupt {
public:
    HeldInterrupt();
    ~HeldInterrupt();
    HeldInterrupt(const HeldInterrupt&) = delete;
    HeldInterrupt& operator=(const HeldInterrupt&) = delete;

    static bool HasCome() noexcept;
};

}  // namespace standin::cli
