// The stored records of saved settings, and their move from the older owner.
#include <cstring>

#include "Class Files/foundation/FinPIException.h"
#include "tests/unit/settings_support.h"
#include "tests/unit/support/registry_values.h"

namespace {

namespace headless = platform::headless;

TEST_F(SavedSettingsTest, LongNamesAreCutBetweenCharacters) {
    SavedSettingPtr record{0};
    record.SetName(std::u16string(126, u'x') + u"\u00E1");
    EXPECT_EQ(record.Name(), std::u16string(126, u'x'));
    record.SetName(std::u16string(300, u'y'));
    EXPECT_EQ(record.Name(), std::u16string(127, u'y'));
    record.SetName(std::u16string(42, u'\u3042'));
    EXPECT_EQ(record.Name(), std::u16string(42, u'\u3042')) << "three bytes each";
    record.SetName(u"z");
    EXPECT_EQ(record.Name(), u"z") << "nothing of the longer name is left";
    std::memset(record.Header().name, 'z', sizeof(record.Header().name));
    EXPECT_EQ(record.Name(), std::u16string(128, u'z')) << "a stored name without its end";
    record.PutToFile(22001);
    char16 name[128];
    ReadSavedSetting(kCommand, 1, name, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(std::u16string(name, 128), std::u16string(128, u'z'));
}

TEST_F(SavedSettingsTest, IncompatibleRecordIsReported) {
    SavedSettingPtr record{4};
    record.Header().headerSize = 150;
    ASSERT_EQ(record.PutToFile(22001), 1);
    EXPECT_EQ(ReadSavedSetting(kCommand, 1, nullptr, nullptr, nullptr, nullptr, nullptr), 0);
    EXPECT_EQ(Alerts(), 1U);
    PutSettings(1);
    EXPECT_EQ(Alerts(), 2U);
}

TEST_F(SavedSettingsTest, RecordWithoutSettingsIsNotRead) {
    ASSERT_EQ(SavedSettingPtr{0}.PutToFile(22001), 1);
    char settings[] = "own";
    EXPECT_EQ(ReadSavedSettingRecord(kCommand, 1, settings, sizeof(settings)), 0U);
    EXPECT_STREQ(settings, "own");
}

TEST_F(SavedSettingsTest, AreFoundWhereTheyMovedTo) {
    Store(1, u"first", 50);
    Store(99, u"last", 60);
    EXPECT_EQ(SavedSettings::CurrentNumber(kCommand, 2, 50), 1);
    EXPECT_EQ(SavedSettings::CurrentNumber(kCommand, 1, 60), 99);
    EXPECT_EQ(SavedSettings::CurrentNumber(kCommand, 1, 70), 0);
}

TEST_F(SavedSettingsTest, OldSettingsMoveToNewOwner) {
    const std::string owner = kPreferences + "\\Save Settings";
    const std::string old = kPreferences + "\\Einstellungen speichern";
    for (const char* name : {"ZKSC22000", "ZKSC22001", "ZKSC22002", "ZKSC22004"}) {
        StoreValue(old, name, name);
    }
    headless::RefuseRegistryCall(headless::RegistryCall::kSetValue, 2);
    SavedSettings::MoveFromOldOwner(kCommand);
    EXPECT_EQ(StoredValue(old, "ZKSC22001"), "ZKSC22001") << "it could not be written";
    EXPECT_EQ(StoredValue(owner, "ZKSC22002"), "ZKSC22002") << "the others could";
    SavedSettings::MoveFromOldOwner(kCommand);
    for (const std::string name : {"ZKSC22000", "ZKSC22001", "ZKSC22002"}) {
        EXPECT_EQ(StoredValue(owner, name), name);
    }
    EXPECT_EQ(StoredValue(owner, "ZKSC22004"), std::nullopt) << "behind a gap";
    EXPECT_FALSE(KeyExists(old));
    for (const char* name : {"ZKSC24000", "ZKSC24002"}) {
        StoreValue(old, name, name);
    }
    SavedSettings::MoveFromOldOwner(24000);
    EXPECT_EQ(StoredValue(owner, "ZKSC24002"), std::nullopt) << "they count from 1";
    const auto read = [] {
        ReadSavedSetting(23000, 1, nullptr, nullptr, nullptr, nullptr, nullptr);
    };
    read();
    StoreValue(old, "ZKSC23001", "x");
    read();
    EXPECT_TRUE(KeyExists(old)) << "looked for once a session";
}

TEST_F(SavedSettingsTest, ExcessOldSettingsMoveToo) {
    for (int number = 22001; number <= 22101; ++number) {
        StoreValue(kPreferences + "\\Einstellungen speichern", "ZKSC" + std::to_string(number),
                   "x");
    }
    SavedSettings::MoveFromOldOwner(kCommand);
    EXPECT_EQ(StoredValue(kPreferences + "\\Save Settings", "ZKSC22101"), "x");
}

TEST_F(SavedSettingsTest, RewritesOnlySettingsPart) {
    Store(1, u"Slow", 7, 1);
    PutSettings(1);
    EXPECT_EQ(Stored(), Notes{"Slow 7 1 wxyz"});
    SavedSettingPtr record{4};
    record.GetFromFile(22001);
    EXPECT_EQ(record.Header().hostVersion, SavedSettingPtr{0}.Header().hostVersion);
    record.PutToFile(kCommand);
    EXPECT_EQ(ReadSavedSetting(kCommand, 0, nullptr, nullptr, nullptr, nullptr, nullptr), 0)
        << "numbers count from 1";
    record.Header().commandItem = 3;
    record.PutToFile(22001);
    u16 commandItem = 0;
    EXPECT_EQ(ReadSavedSetting(kCommand, 1, nullptr, &commandItem, nullptr, nullptr, nullptr), 1);
    EXPECT_EQ(commandItem, 3);
    char settings[4];
    EXPECT_EQ(ReadSavedSettingRecord(kCommand, 1, settings, 4), 4U);
    PutSettings(2);
    EXPECT_EQ(Alerts(), 1U) << "there is none to rewrite";
    headless::RefuseRegistryCall(headless::RegistryCall::kSetValue, 1);
    PutSettings(1);
    EXPECT_TRUE(standin::App().alerts.back().text.starts_with(
        u"SavedSettingPtr::PutToFile->Unable to write to config"));
    Run([](OpenDialog& open) {
        headless::RefuseRegistryCall(headless::RegistryCall::kSetValue, 1);
        open.Press(Control::kOk);
        open.Press(Control::kDeleteAll);
    });
    EXPECT_EQ(StoredValue(kPreferences + "\\Save Settings", "ZKSC22002"), std::nullopt);
    EXPECT_EQ(command.SavedSettingNumber(), 0) << "nothing is left to work on";
    // Another error must not look like a refused write.
    PostError(FinPIAppError{"elsewhere", "before"});
    Run([](OpenDialog& open) {
        open.Press(Control::kOk);
        EXPECT_TRUE(open.ended);
    });
    EXPECT_EQ(Alerts(), 3U);
}

}  // namespace
