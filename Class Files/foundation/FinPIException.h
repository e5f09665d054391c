// The error objects of the library, and the one slot that keeps the first error of a run.
//
// Errors are posted, not thrown: the code that detects a failure builds the error on its
// stack, posts it and returns its failure value. Posting keeps a copy only while the slot is
// empty, so that the user sees the failure that came first.
#pragma once

#include <memory>

#include "shell/host/host_types.h"

class FinPIException {
public:
    virtual ~FinPIException() = default;
    // Shows the error in a host alert, in the language of the user interface.
    virtual void Report();
    // A copy of the complete object.
    virtual std::unique_ptr<FinPIException> Clone() const = 0;

    u32 m_msgID;           // the message format's id in the string table
    char m_function[100];  // the operation that failed; cut at 99 characters
    u16 m_stop = 1;        // the error stops the run
    char m_message[512];   // the message format, UTF-8

protected:
    FinPIException(u32 messageID, const char* function);
    FinPIException(const FinPIException&) = default;
    FinPIException& operator=(const FinPIException&) = default;

    void LoadMessage();
};

// The pending error; null = none. Only the thread of the host's user interface touches it.
extern std::unique_ptr<FinPIException> g_pendingError;

// An error with the message id 0 counts as none.
bool ErrorIsPending() noexcept;

// Keeps a copy of the error when none is pending.
void PostError(const FinPIException& error);

// Reports the pending error and empties the slot. Gives the error's m_stop; 0 = none pending.
u16 ReportPendingError();

// Gives an error class its Clone.
template <typename Error, typename Base = FinPIException>
class FinPIClonedError : public Base {
public:
    std::unique_ptr<FinPIException> Clone() const final {
        return std::make_unique<Error>(static_cast<const Error&>(*this));
    }

protected:
    using Base::Base;
};

// The errors that the library posts, one class per message

// A failure inside the library: the operation and what went wrong.
class FinPIAppError final : public FinPIClonedError<FinPIAppError> {
public:
    FinPIAppError(const char* function, const char* detail);
    void Report() override;

    char m_detail[256];  // cut at 255 characters
};

// The host refused an operation on the record with this tag.
class FinPIEDataIOFailed : public FinPIException {
public:
    void Report() override;

    u32 m_extag = 0;

protected:
    using FinPIException::FinPIException;
};

class FinPILoadEDataFailed final
    : public FinPIClonedError<FinPILoadEDataFailed, FinPIEDataIOFailed> {
public:
    static constexpr u32 kMessage = 29998;
    explicit FinPILoadEDataFailed(const char* function) : FinPIClonedError(kMessage, function) {}
};

class FinPICreateEDataFailed final
    : public FinPIClonedError<FinPICreateEDataFailed, FinPIEDataIOFailed> {
public:
    explicit FinPICreateEDataFailed(const char* function) : FinPIClonedError(29997, function) {}
};

class FinPISaveEDataFailed final
    : public FinPIClonedError<FinPISaveEDataFailed, FinPIEDataIOFailed> {
public:
    explicit FinPISaveEDataFailed(const char* function) : FinPIClonedError(29996, function) {}
};

class FinPIDeleteEDataFailed final
    : public FinPIClonedError<FinPIDeleteEDataFailed, FinPIEDataIOFailed> {
public:
    explicit FinPIDeleteEDataFailed(const char* function) : FinPIClonedError(29995, function) {}
};

class FinPIConfigWriteError final : public FinPIClonedError<FinPIConfigWriteError> {
public:
    explicit FinPIConfigWriteError(const char* function) : FinPIClonedError(29990, function) {}
};

// A serialized record that a newer version of the library wrote, or one too old to read.
class FinPISerialVersionError final : public FinPIClonedError<FinPISerialVersionError> {
public:
    explicit FinPISerialVersionError(const char* function) : FinPIClonedError(29989, function) {}
};

// A serialized record whose data follows a version of the host that its class refuses.
class FinPISerialVersionFinaleError final : public FinPIClonedError<FinPISerialVersionFinaleError> {
public:
    explicit FinPISerialVersionFinaleError(const char* function)
        : FinPIClonedError(29988, function) {}
};

// Errors that the user can correct; they name no operation.
class FinPINoOpenDocumentError final : public FinPIClonedError<FinPINoOpenDocumentError> {
public:
    FinPINoOpenDocumentError() : FinPIClonedError(29987, "") {}
};

class FinPINotPageViewVisibleError final : public FinPIClonedError<FinPINotPageViewVisibleError> {
public:
    FinPINotPageViewVisibleError() : FinPIClonedError(29986, "") {}
};

class FinPIEntryNotVisibleError final : public FinPIClonedError<FinPIEntryNotVisibleError> {
public:
    FinPIEntryNotVisibleError() : FinPIClonedError(29985, "") {}
};

// Posts an Error of the record classes for this tag.
template <typename Error>
void PostRecordError(const char* function, u32 tag) {
    Error error(function);
    error.m_extag = tag;
    PostError(error);
}
