#ifndef TESTS_FEECENTER_SUPPORT_CALL_LOG_H
#define TESTS_FEECENTER_SUPPORT_CALL_LOG_H

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "support/fake_host.h"

namespace test {

/// The names of the services that were called since it was made. For one thread.
class CallLog {
public:
    explicit CallLog(FakeHost& watched) : host(watched) {
        host.onCall = [this](const std::string& operation) { names.push_back(operation); };
    }
    CallLog(const CallLog&) = delete;
    CallLog& operator=(const CallLog&) = delete;
    ~CallLog() { host.onCall = nullptr; }

    [[nodiscard]] const std::vector<std::string>& calls() const { return names; }

    [[nodiscard]] std::size_t count(const std::string& operation) const {
        return static_cast<std::size_t>(std::count(names.begin(), names.end(), operation));
    }

private:
    FakeHost& host;
    std::vector<std::string> names;
};

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_CALL_LOG_H
