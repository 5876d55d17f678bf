#ifndef TESTS_MODEL_CONTENT_TEXT_H
#define TESTS_MODEL_CONTENT_TEXT_H

#include <string>

#include "host/records.h"

namespace model {

// The text that a record's content key is made of: its values in decimal one after the other, nothing between them.
// Records with one text share a pool entry, also where the digits of their values only happen to join alike.

std::string contentText(const qmservice::CCommissionRateDetail& detail);
std::string contentText(const qmservice::CCustomCommissionRateDetail& detail);
std::string contentText(const qmservice::CMarginRateDetail& detail);
std::string contentText(const qmservice::CCustomMarginRateDetail& detail);
std::string contentText(const qmservice::CStkExchangeRateLimit& limit, int tradeUnit);
std::string contentText(const qmservice::CCustomStkExchangeRateLimit& limit, int tradeUnit);
std::string contentText(const qmservice::CCustomHGTExchangeRateLimit& limit, int tradeUnit);
std::string contentText(const qmservice::CCustomSgtExchangeRateLimit& limit, int tradeUnit);

}  // namespace model

#endif  // TESTS_MODEL_CONTENT_TEXT_H
