// The common part of tests of the class library on a score.
#pragma once

#include <gtest/gtest.h>
#include <string>

#include "tests/unit/support/pending_error.h"
#include "tests/unit/support/stand_in.h"

namespace standin {

// The error posted by a call that must fail.
inline std::string ErrorOf(i16 result) {
    return (result == 0 ? "" : "succeeded: ") + TakePendingError();
}

// Makes another document current for as long as it lives, and fails if that changes.
class OtherDocument {
public:
    OtherDocument() { App().SetCurrentDocument(m_document.Number()); }
    ~OtherDocument() {
        App().faults = {};
        EXPECT_EQ(App().CurrentDocument(), &m_document);
        App().SetCurrentDocument(m_before);
    }
    Document* operator->() const { return &m_document; }

private:
    u16 m_before = App().CurrentNumber();
    Document& m_document = App().OpenDocument(u"other");
};

// Takes all errors that the library posts.
class LibraryTest : public testing::Test {
protected:
    explicit LibraryTest(int staves = 1, int measures = 1) : host{staves, measures} {}
    ~LibraryTest() override { EXPECT_EQ(TakePendingError(), ""); }

    // Stores a record, whether there is one or not.
    template <typename Content>
    void Put(u32 tag, RecordKey key, const Content& content) {
        host.Score().Records().Exchange(tag, key, BytesOf(content));
    }
    // Null when there is none.
    const Bytes* Stored(u32 tag, RecordKey key) { return host.Score().Records().Find(tag, key); }

    static void Refuse(HostCall call) { App().faults.refuseKind = FaultPlan::AllOf(call); }
    // Only this one of the following calls of the kind.
    static void RefuseOnly(HostCall call, u64 nth) {
        App().ResetCounts();
        App().faults.refuseKind = FaultPlan::OfKind{call, nth, nth};
    }

    StandIn host;
};

}  // namespace standin
