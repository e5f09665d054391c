// What the program needs of the machine it runs on, beyond what platform/ gives the plug-in.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

#include "host/texts/texts.h"

namespace standin::machine {

// The folder that the program's own file is in.
std::filesystem::path ProgramFolder();

// A library of code, closed when the object ends.
class Library {
public:
    // Null when it cannot be loaded; problem then says why.
    static std::unique_ptr<Library> Open(const std::filesystem::path& file, std::string& problem);
    ~Library();
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    void* FindExport(const char* name) const;  // null when it exports none of this name

private:
    explicit Library(void* handle) : m_handle{handle} {}
    void* m_handle;
};

// From here on nobody finds this export of the program. False: it cannot be hidden.
bool HideExport(const char* name);

// The file name of the plug-in.
extern const char* const kPluginFile;

// Holds the Shift key down until the scope ends.
class ShiftHeld {
public:
    ShiftHeld();
    ~ShiftHeld();
    ShiftHeld(const ShiftHeld&) = delete;
    ShiftHeld& operator=(const ShiftHeld&) = delete;
};

// Lets the timers that the plug-in started run, as a program does between two commands.
void RunTimers();

// Standard input and output carry bytes, not lines. A file that would outgrow what is allowed is
// an error for who writes it, not the program's end.
void PrepareStreams();

// Makes the file, or empties it, and brings the bytes to the disk. Returns what failed.
std::error_code WriteThrough(const std::filesystem::path& file, std::string_view bytes);

// A new folder for files of this run alone, among the system's temporary files. Throws when there
// can be none.
std::filesystem::path MakeTemporaryFolder();

// Brings the names in a folder to the disk, where the system can do that.
void FlushFolder(const std::filesystem::path& folder);

bool ErrorsGoToTerminal();
bool OutputGoesToTerminal();

// That of the user interface: on Windows the user's choice, elsewhere the environment's.
Language UserLanguage();

// Whether the plug-in's stored settings are there in the program's next run.
bool SettingsOutliveTheProgram();

}  // namespace standin::machine
