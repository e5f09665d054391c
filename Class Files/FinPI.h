// A command of the plug-in, from the host's invoke call to the end of a run: it resolves a saved
// setting, reads the Shift key, chooses the region, and walks the measures and staves of that
// region. A command class implements the virtual operations below.
#pragma once

#include "shell/host/host_frames.h"
#include "shell/host/host_types.h"
#include "shell/module/ModuleState.h"

class ProgressCounter;

class FinPI {
public:
    // item: the menu item the command was invoked from; 0 is the command itself.
    FinPI(WindowHandle owner, u16 item, u16 commandID) noexcept;
    FinPI(const FinPI&) = delete;
    FinPI& operator=(const FinPI&) = delete;

    // The order of the virtual operations is the interface; those without a caller keep it.
    virtual ~FinPI();
    virtual i16 UnusedQuery() { return 0; }
    virtual u16 SkipsDialog() const { return m_skipDialog; }
    // The run entry. selection is null when nothing is selected; wholeDocument covers the
    // document. Always 0. The object owns itself: it is gone afterwards unless its dialog is open.
    virtual i16 Start(const EREGION* selection, const EREGION* wholeDocument) = 0;
    virtual u16 GetCommandID() const { return m_commandID; }
    virtual u32 GetSettingsSize() const = 0;  // bytes
    virtual void* GetSettings() = 0;
    // Lets all questions appear again that the user had turned off.
    virtual void ResetAlerts();
    // Drops the stored dialog position of a saved setting; identifier 0 is the command's own.
    virtual void ForgetWindowPlace(u16 identifier);
    // A saved setting with this identifier was added.
    virtual void OnSavedSettingAdded(u16 /*identifier*/) {}
    virtual const char16* GetName() const = 0;  // never null
    // Nonzero = the settings record is filled, from the store or with the defaults.
    virtual i32 LoadSettings() { return 1; }
    virtual void SaveSettings() {}
    // The title and the measure range, cut to length - 1 units; length in units.
    virtual void GetUndoText(char16* buffer, i32 length, const EREGION& region) const;
    // stringID 0: the saved setting's name when one is used, else GetName; otherwise that
    // string of the plug-in's own. Cut to length - 1 units.
    virtual void GetTitle(char16* buffer, i32 length, u16 stringID) const;
    // The highest item that is a command rather than a saved setting.
    virtual u16 GetLastCommandItem() const { return g_module.lastCommandItem; }
    // 0 turns progress reports off.
    virtual i16 AllowProgress(u64 workSteps, i16 layers);
    virtual i16 KeepEdit() { return 1; }
    virtual i16 ChangesGeneralPrefs() { return 0; }
    // Walks the region: 1 when it ran to its end, 0 when a hook, an error or the user stopped it.
    // firstMeasure -1 is the region's own. Clearing continueFlag stops the walk.
    virtual i16 DoProcessDocument(const EREGION& region, i16 walkMode, i16 reportStaves,
                                  i16 reportMeasures, i16 reportLayers, i16 firstMeasure,
                                  i16 measureHook, i16 skipMultimeasureRests, u16* continueFlag);
    // Once, before the first measure. 0 stops the walk, as with every Process operation.
    virtual i16 PrepareDocument() { return 1; }
    virtual i16 ProcessMeasure() { return 1; }
    virtual i16 ProcessStaffMeasure(i16 slot, u16 staff, i16 measure, u16 staffSystem);
    virtual i16 ProcessFrame() { return 1; }
    virtual i16 ProcessEntry() { return 1; }
    virtual i16 ProcessNote() { return 1; }
    virtual i16 UnusedHook() { return 1; }
    // Nonzero: the dialog is open and controls the object from now on.
    virtual i16 ShowDialog(const EREGION* selection, const EREGION* wholeDocument);
    // The command's work: nonzero when something changed.
    virtual i16 Execute(const EREGION* selection, const EREGION* wholeDocument);
    // String ids of yes/no questions; 0 = none is asked.
    virtual u16 GetWholeDocumentQuestion() const { return 0; }
    virtual u16 GetAllDocumentsQuestion() const { return 0; }
    virtual u16 GetOtherDocumentsQuestion() const { return 0; }

    WindowHandle OwnerWindow() const noexcept { return m_ownerWindow; }
    u16 ItemIndex() const noexcept { return m_item; }
    const EREGION& ProcessingRegion() const noexcept { return m_region; }

    // The saved setting in use: the number it has now (0 = none is, or it is gone and another has
    // its number) and the identifier stored with it. The Save Settings dialog moves the command to
    // another one.
    i16 SavedSettingNumber() const;
    u16 SavedSettingIdentifier() const noexcept { return m_savedSettingID; }
    u16 CommandItem() const noexcept { return m_commandItem; }
    void UseSavedSetting(i16 number, u16 identifier);

protected:
    // Prepares a run. False: the command must not run, and the user has been shown the reason.
    bool Invoke(const EREGION* selection, const EREGION& wholeDocument);
    // The selection when there is one, in a single staff list; else the whole document.
    void ChooseRegion(const EREGION* selection, const EREGION& wholeDocument);
    // Walks the processing region of the current document; as DoProcessDocument.
    i16 ProcessCurrentDocument();

    WindowHandle m_ownerWindow;
    i16 m_savedSetting = 0;
    u16 m_savedSettingID = 0;
    char16 m_savedSettingName[256]{};
    u16 m_item;
    u16 m_stop = 0;  // the user stopped the progress display
    u16 m_commandID;
    u16 m_skipDialog = 0;
    u16 m_commandItem;
    u16 m_wholeMeasures = 0;
    u16 m_wholeStaves = 0;
    u16 m_noSelection = 0;
    EREGION m_region{};

private:
    struct MeasureRange {
        i16 first;
        i16 last;
    };

    bool ResolveSavedSetting();
    // The walk itself: one ProcessStaffMeasure per staff and measure, until the flag is cleared.
    void ProcessEvery(const EREGION& region, MeasureRange measures, i16 layers,
                      ProgressCounter& progress, u16& continueFlag);
};
