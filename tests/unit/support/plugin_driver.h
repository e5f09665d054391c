// The real plug-in, newly loaded and called through its exports, as by a host.
#pragma once

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "host/verify/merge_options.h"
#include "shell/host/host_functions.h"
#include "tests/unit/support/stand_in.h"

namespace standin {

class Plugin {
public:
    // Loads the library, from this path or the one just built.
    explicit Plugin(const std::string& path = {});
    ~Plugin();
    Plugin(const Plugin&) = delete;
    Plugin& operator=(const Plugin&) = delete;

    u32 Version(u32 hostVersion) const { return m_version(hostVersion); }
    i16 Init(u32* flags = nullptr, WindowHandle hostWindow = nullptr) const {
        return m_init(hostWindow, flags);
    }
    i16 Enumerate(i16 item, MenuItemDescriptor* out) const {
        return m_enumerate(nullptr, item, out);
    }
    i16 Status(i16 item) const { return m_status(item); }
    // With the score's own selection.
    i16 Invoke(StandIn& host, u16 item = 0) const;
    // Holds Shift: one run without the dialog, or the dialog of a setting that skips it.
    i16 InvokeWithShift(StandIn& host, u16 item = 0) const;
    // Stores the options, then runs with Shift.
    void Merge(StandIn& host, const MergeOptions& options = {}) const;

    static void Store(const MergeOptions& options);
    struct Setting {
        std::string name;
        bool skipsDialog = false;
        bool useSubmenu = false;
        u8 identifier = 1;
        MergeOptions options = {};
    };
    // As a saved setting is stored.
    static void StoreSetting(int number, const Setting& setting);
    static std::vector<u8> Stored(const std::string& owner, const std::string& value);
    static void StoreBytes(const std::string& owner, const std::string& value, const void* data,
                           u32 size);

private:
    template <typename Function>
    void Find(Function*& function, const char* name);

    void* m_library;
    FinaleExtensionVersionFunction* m_version = nullptr;
    FinaleExtensionInitFunction* m_init = nullptr;
    FinaleExtensionEnumerateFunction* m_enumerate = nullptr;
    FinaleExtensionGetMenuStatusFunction* m_status = nullptr;
    FinaleExtensionInvokeFunction* m_invoke = nullptr;
    FinaleExtensionTerminateFunction* m_terminate = nullptr;
};

// All sounding notes of all layers, which no merge may change. One line per note: staff, measure,
// onset, actual duration, pitch, ties.
std::vector<std::string> Music(const Document& document);

// The alerts shown, each with its number and a line break.
std::string AlertTexts();
// Each with a line break.
std::string Lines(const std::vector<std::string>& lines);

}  // namespace standin
