// A typed handle to one record of a host document: its key, a copy of its bytes, and their data
// version.
#pragma once

#include <array>

#include "Class Files/foundation/FinPIDoc.h"
#include "Class Files/foundation/FinPISerializableObject.h"
#include "shell/host/host_types.h"

// The words that address a record, in the order of its family; what a family leaves unused is
// not looked at.
using EnigmaKey = std::array<u16, 4>;

// An inci of this value addresses no record; creating with it appends.
inline constexpr u16 kNoInci = 0xFFFF;

// Records are read and written in the host's current document, and deleted in the one that they
// were read in. Results are nonzero for success.
// A failure posts an error where the operation says so and leaves key and data as they were.
class FinPIEnigmaData : public FinPISerializableObject, public FinPIDoc {
public:
    // The order of the virtual operations, those of the serialized form first, is the interface;
    // hooks without a use in the library keep it.
    u16 GetSerialVersion() const override { return 2; }
    i16 AcceptsSerialVersion(u16 /*olderVersion*/) const override { return 1; }
    i32 GetFieldSize(u16 field, u16 serialVersion) const override;
    i16 GetField(u16 field, u16 serialVersion, void* out, u32 size) const override;
    i16 PutField(u16 field, u16 serialVersion, const void* bytes, u32 size) override;
    void ClearData() override;

    virtual i16 IsNull() const { return m_inci == kNoInci; }
    virtual void SetNull(u16 inci);
    // Before the first record of the tag, for walking with LoadNext.
    virtual void Rewind();
    // FX_LoadEData at exactly this key; does nothing when loaded already. Posts no error.
    virtual i16 Load();
    // FX_NextEData: the first record after this key, whatever its item. At the end the record
    // addresses nothing. Posts no error.
    virtual i16 LoadNext();
    // Deletes a loaded record whose data is all zero, saves a loaded one, creates one that is
    // not; does nothing for data that is zero and was never loaded.
    virtual i16 Commit();
    // For data that the score and its linked parts keep separately: commits in the score too,
    // before the current part; commits in every part as well, when called from the score.
    virtual i16 CommitInScoreFirst();
    virtual i16 CommitInScoreAndParts();
    // FX_DeleteEData; afterwards the record addresses nothing. Posts no error.
    virtual i16 Delete();
    // Deletes the record in the score, and creates it there again with its present data.
    virtual i16 DeleteAndRecreateInScore();
    // Whether the record may be deleted from what is current: the score, or a part.
    virtual i16 ChooseLinkedPartHook();
    virtual u16 GetCmper1() const { return m_cmper1; }
    // The last record of the tag; the last record of this item or, when the item has none, of a
    // lower one, which the caller finds out from GetCmper1. Rest on FX_PreviousEData.
    virtual i16 LoadLast() { return LoadLastCmper1(0xFFFF); }
    virtual i16 LoadLastInci();
    // At most GetDataSize bytes are set; the copy is zero-filled beyond them.
    virtual void SetData(const void* bytes, u32 size);
    virtual void GetDataCopy(void* out, u32 size) const;
    virtual i32 GetDataLength() const { return static_cast<i32>(GetDataSize()); }
    virtual i16 CopyAttributes(const FinPIEnigmaData& other);
    virtual i16 UnusedHook1() { return 1; }
    virtual void SetVersion(u32 version) { m_version = version; }
    // Whether data of this version can be taken from a serialized record.
    virtual i16 AcceptsVersion(u32 /*version*/) const { return 1; }
    // Makes the item the one after this.
    virtual void NextCmper1() { ++m_cmper1; }
    // Forgets what was loaded and addresses this inci.
    virtual void Reset(u16 inci);
    // FX_SaveEData; refuses, and posts, when never loaded or when the record's document is not
    // the current one.
    virtual i16 Save();
    // FX_CreateEData and a load of what was created; refuses, and posts, when loaded.
    virtual i16 Create();
    virtual i16 IsEmpty() const;
    virtual i16 IsSame(const FinPIEnigmaData& other) const;
    virtual i16 IsSameExact(const FinPIEnigmaData& other) const;
    virtual const void* GetData() const = 0;       // null when there is no data buffer
    virtual u32 GetDataSize() const = 0;           // bytes
    virtual u16 GetKey(EnigmaKey& out) const = 0;  // the key's length in bytes
    virtual void SetKey(const EnigmaKey& key) = 0;
    virtual i16 IsLoaded() const { return static_cast<i16>(m_loaded); }
    virtual i16 UnusedHook2() { return 1; }
    virtual i16 CopyDependentStructs(const FinPIEnigmaData& /*source*/) { return 1; }
    virtual i16 CopyDependentStructsPostCommit(const FinPIEnigmaData& /*source*/) { return 1; }
    virtual void SetDataOrClear(const void* bytes, u32 size);
    // Dependent structures count from 2. The size written, or without a buffer the size needed; 0 =
    // there are no more, or the buffer is too small.
    virtual u32 GetSerializedDependentStruct(u16 index, u16 serialVersion, void* out,
                                             u32 size) const;
    virtual i16 PutSerializedDependentStruct(u16 index, u16 serialVersion, const void* bytes,
                                             u32 size);
    virtual i16 Reload() { return Load(); }
    // Whether the score and each linked part keep data of their own.
    virtual i16 IsPartSpecific() const { return 0; }
    virtual i16 CanDeleteInScore() { return 1; }
    virtual i16 CanDeleteInPart() { return 1; }
    // Called by the commits for score and parts, with that part current.
    virtual void OnCommittedInScore() {}
    virtual void OnCommittedInPart() {}
    virtual i16 UnusedHook3() { return 0; }
    virtual i16 UnusedHook4() { return 1; }
    virtual i16 IsSameKey(const FinPIEnigmaData& other) const = 0;
    virtual i16 UsesSerializedForm() const { return 0; }

    i16 LoadLastCmper1(u16 cmper1);

    u32 Tag() const noexcept { return m_tag; }
    u32 Version() const noexcept { return m_version; }
    u16 Cmper2() const noexcept { return m_cmper2; }
    u16 Inci() const noexcept { return m_inci; }
    void SetCmpers(u16 cmper1, u16 cmper2 = 0xFFFF);  // a Reset or a load follows
    void SetKeepWhenEmpty(bool keep) noexcept { m_keepWhenEmpty = keep ? 1 : 0; }
    bool WasCreated() const noexcept { return m_created != 0; }
    bool WasFilledFromCopy() const noexcept { return m_filledFromCopy != 0; }

protected:
    FinPIEnigmaData(u32 tag, u16 cmper1, u16 cmper2, u16 inci, u32 version,
                    bool clearOnReset) noexcept;
    ~FinPIEnigmaData() = default;

    void* MutableData() { return const_cast<void*>(GetData()); }

    u32 m_tag;
    u16 m_cmper1;
    u16 m_cmper2;
    u16 m_inci;
    u16 m_loaded = 0;
    u32 m_version;
    u16 m_clearOnReset;
    u16 m_keepWhenEmpty = 0;
    u16 m_created = 0;         // Commit created the record
    u16 m_filledFromCopy = 0;  // the data came from a serialized copy

private:
    i16 LoadBefore(const char* function);
    i16 TakeFound(i16 found, const EnigmaKey& key);
};
