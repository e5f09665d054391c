// Hosts of every manner that the interface leaves open.
#pragma once

#include <gtest/gtest.h>
#include <string>

#include "host/score/application.h"

namespace standin {

// The host has this manner until the scope ends.
class Mannered {
public:
    explicit Mannered(const Manner& manner) : Mannered{manner.flag} {}
    explicit Mannered(bool Manners::*manner) { App().manners.*manner = true; }
    ~Mannered() { App().manners = {}; }
    Mannered(const Mannered&) = delete;
    Mannered& operator=(const Mannered&) = delete;
};

// For parameterized tests.
inline std::string NameOfManner(const testing::TestParamInfo<Manner>& test) {
    return test.param.name;
}

// Counts what ran under the manner, for the report of all tests.
inline void RecordRuns(const Manner& manner, std::size_t runs) {
    testing::Test::RecordProperty(std::string{"manner_"} + manner.name, std::to_string(runs));
}

}  // namespace standin
