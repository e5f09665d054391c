#include "host/cli/run_command.h"

int main(int argc, char** argv) {
    return standin::cli::RunCommandLine({argv + 1, argv + argc});
}
