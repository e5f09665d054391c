// What tests of the class library on a score have in common.
#pragma once

#include <gtest/gtest.h>
#include <string>

#include "tests/unit/support/pending_error.h"
#include "tests/unit/support/stand_in.h"

namespace standin {

// What a call that must fail has posted.
inline std::string ErrorOf(i16 result) {
    return (result == 0 ? "" : "succeeded: ") + TakePendingError();
}

// Another document is current for as long as it lives, and nothing may change that.
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

// Whatever the library posts, the test takes.
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
    // Of the calls of the kind that follow, this one alone.
    static void RefuseOnly(HostCall call, u64 nth) {
        App().ResetCounts();
        App().faults.refuseKind = FaultPlan::OfKind{call, nth, nth};
    }

    StandIn host;
};

}  // namespace standin
