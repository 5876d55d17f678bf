#ifndef TESTS_HISTORIES_ANSWERS_H
#define TESTS_HISTORIES_ANSWERS_H

#include <boost/shared_ptr.hpp>
#include <string>

#include "histories/sharing.h"
#include "host/records.h"

namespace histories {

using Fee = boost::shared_ptr<qmservice::CInstrumentFee>;

/// What is wrong with an answer of the fee center, next to the model's; empty when nothing is. Nobody but the caller
/// may hold the answer. Shared records are only distinguished here: what is in them is compared where the
/// tables are.
std::string differenceOfAnswers(const Sharing& sharing, const Fee& expected, const Fee& actual);

}  // namespace histories

#endif  // TESTS_HISTORIES_ANSWERS_H
