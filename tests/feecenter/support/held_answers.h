#ifndef TESTS_FEECENTER_SUPPORT_HELD_ANSWERS_H
#define TESTS_FEECENTER_SUPPORT_HELD_ANSWERS_H

#include <gtest/gtest.h>

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

#include "histories/record_fields.h"
#include "support/builders.h"
#include "support/scene.h"

namespace test {

/// The kinds of account for which getFee answers.
constexpr int kAnsweredKinds[] = {1, 2, 3, 5, 6, 7, 8, 10, 11, 12, 16};

/// A scene's fees as a host got them and keeps them, for every kind of account, with entries and without, and what
/// was in every field then. The records in them are the tables' own: whatever happens to the tables may not be seen
/// in them.
class HeldAnswers {
public:
    explicit HeldAnswers(OpenFeeCenter& center) {
        for (const int kind : kAnsweredKinds) {
            for (const uint64 key : {kBystander, kKnown, kNew}) {
                const auto fee = center.getFee(makeAccount(kind, key), "SH", "A");
                EXPECT_TRUE(fee) << "kind " << kind << " account " << key;
                all.push_back({fee, histories::describe(fee.get())});
            }
        }
    }

    /// Which answer is another than it was; empty when none is.
    [[nodiscard]] std::string difference() const {
        for (const auto& held : all) {
            const std::string now = histories::describe(held.fee.get());
            if (now != held.text) {
                return "was " + held.text + " and is " + now;
            }
        }
        return "";
    }

private:
    struct Held {
        boost::shared_ptr<qmservice::CInstrumentFee> fee;
        std::string text;
    };
    std::vector<Held> all;
};

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_HELD_ANSWERS_H
