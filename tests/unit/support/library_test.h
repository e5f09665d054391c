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

    StandIn host;
};

}  // namespace standin
