#ifndef KELMORA_TESTS_SUPPORT_FAULTS_H
#define KELMORA_TESTS_SUPPORT_FAULTS_H

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace kelmora_test {

/// Reports what a checked call (harness/call.h) found wrong.
inline void expect_none(const std::vector<std::string> &faults)
{
    for (const std::string &fault : faults)
        ADD_FAILURE() << fault;
}

} // namespace kelmora_test

#endif
