// Anything in the registry's values: the plug-in starts, lists its items and runs each of them,
// and no note is lost that the options do not ask to clear.
#include <fuzzer/FuzzedDataProvider.h>
#include <iostream>
#include <memory>

#include "platform/headless/session.h"
#include "tests/unit/support/dialog_desk.h"
#include "tests/unit/support/plugin_driver.h"

using namespace standin;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr std::pair<const char*, const char*> kValues[] = {{"Plyweld", "ZKCF22000"},
                                                           {"Plyweld", "WPOS22000"},
                                                           {"Save Settings", "ZKSC22001"},
                                                           {"Save Settings", "ZKSC22002"},
                                                           {"Save Settings", "ZKSC22003"},
                                                           {"Save Settings", "WPOS20003"},
                                                           {"Dont Show Again Alert", "CKAT20003"}};

void Store(FuzzedDataProvider& input) {
    constexpr std::size_t kMaxBytes = 400;
    for (const auto& [owner, name] : kValues) {
        if (input.ConsumeBool()) {
            const auto bytes =
                input.ConsumeBytes<u8>(input.ConsumeIntegralInRange<std::size_t>(0, kMaxBytes));
            Plugin::StoreBytes(owner, name, bytes.data(), static_cast<u32>(bytes.size()));
        }
    }
}

void RunEachItem(const Plugin& plugin, StandIn& host, DialogDesk& desk) {
    MenuItemDescriptor item{};
    i16 count = 0;
    while (count < 8 && plugin.Enumerate(count, &item) != 0) {
        plugin.Status(count++);
    }
    for (i16 i = 0; i < count; ++i) {
        plugin.Invoke(host, static_cast<u16>(i));
        if (DialogDesk::OpenDialog* open = desk.Newest()) {
            open->Press(kGo);
            desk.Then([&desk](DialogDesk::OpenDialog& save) {
                constexpr u16 kDelete = 9;
                desk.Then([](DialogDesk::OpenDialog& question) { question.Press(1); });
                save.Press(kDelete);
                save.Type(7, u"Mine");
                save.Press(1);
            });
            open->Press(kSaveSettings);
            open->Press(kClose);
        }
        plugin.InvokeWithShift(host);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const auto plugin = std::make_unique<Plugin>();
    platform::headless::Reset();
    FuzzedDataProvider input{data, size};
    Store(input);
    StandIn host{1, 1};
    host.Layer(1, 1, 0, "h:c4 h:r");
    host.Layer(1, 1, 1, "h:e4 h:f4");
    host.SelectAll();
    DialogDesk desk;
    const std::vector<std::string> music = Music(host.Score());
    plugin->Version(kInterfaceVersion);
    if (plugin->Init() != 0) {
        RunEachItem(*plugin, host, desk);
    }
    while (desk.Newest() != nullptr) {
        desk.Newest()->Send(kCloseMessage);
    }
    if (App().menuCommands.empty() && Music(host.Score()) != music) {
        std::cerr << "music was lost\n";
        std::abort();
    }
    return 0;
}
