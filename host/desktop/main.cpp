#include "host/cli/run_command.h"
#include "host/desktop/desktop_program.h"
#include "host/system/machine.h"
#include "host/texts/texts.h"
#include "platform/text.h"

// Windows gives the arguments in UTF-16; the program takes them in UTF-8.
int wmain(int argc, wchar_t** argv) {
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) {
        const std::u16string_view argument{reinterpret_cast<const char16_t*>(argv[i])};
        arguments.push_back(platform::Utf8Of(argument));
    }
    standin::SetLanguage(standin::machine::UserLanguage());
    if (!standin::cli::TakeManners(arguments)) {
        return 2;
    }
    if (standin::desktop::WantsWindow(arguments)) {
        return standin::desktop::RunWindow(arguments);
    }
    return standin::cli::RunCommandLine(std::move(arguments));
}
