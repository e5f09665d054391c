// The operating system services that the program needs beyond platform/.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

#include "host/texts/texts.h"

namespace standin::machine {

// The folder of the program's own file.
std::filesystem::path ProgramFolder();

// A shared library, closed when the object ends.
class Library {
public:
    // Null when it cannot be loaded; problem then says why.
    static std::unique_ptr<Library> Open(const std::filesystem::path& file, std::string& problem);
    ~Library();
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    void* FindExport(const char* name) const;  // null if it exports nothing of this name

private:
    explicit Library(void* handle) : m_handle{handle} {}
    void* m_handle;
};

// Hides this export of the program from now on. False: it cannot be hidden.
bool HideExport(const char* name);

// The file name of the plug-in.
extern const char* const kPluginFile;

// Holds the Shift key down until the end of the scope.
class ShiftHeld {
public:
    ShiftHeld();
    ~ShiftHeld();
    ShiftHeld(const ShiftHeld&) = delete;
    ShiftHeld& operator=(const ShiftHeld&) = delete;
};

// Lets the timers that the plug-in started run, as a program does between two commands.
void RunTimers();

// Standard input and output carry bytes, not lines. A file beyond the allowed size is a write error
// and does not end the program.
void PrepareStreams();

// Creates or overwrites the file and flushes the bytes to the disk. Returns the error.
std::error_code WriteThrough(const std::filesystem::path& file, std::string_view bytes);

// A new folder for temporary files of this run. Throws if it cannot be created.
std::filesystem::path MakeTemporaryFolder();

// Flushes a folder's names to the disk, where the system can do that.
void FlushFolder(const std::filesystem::path& folder);

bool ErrorsGoToTerminal();
bool OutputGoesToTerminal();

// Whether the terminal understands codes for colors and for erasing a line.
bool TerminalTakesCodes();

// The language of the user interface: on Windows the user's choice, elsewhere from the environment.
Language UserLanguage();

// Whether the plug-in's stored settings survive the end of the program.
bool SettingsOutliveTheProgram();

}  // namespace standin::machine
