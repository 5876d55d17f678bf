#ifndef FEEDESK_CHECKING_DUTY_CUTS_H
#define FEEDESK_CHECKING_DUTY_CUTS_H

#include <string>
#include <string_view>
#include <vector>

#include "cost/date.h"
#include "standalone/families.h"

namespace feedesk::checking {

/// A stamp duty that was cut: who still charges the old one charges too much.
struct DutyCut {
    standalone::RateRecords records;  ///< of the families that pay it
    double before;
    double after;
    cost::Date from;  ///< the first day of the new one

    /// "a stamp duty of 0.1%, which is out of date: 0.05% since 2023-08-28".
    [[nodiscard]] std::string text() const;
    /// Whether a line is in force on a day on which both the question and the new duty are.
    [[nodiscard]] bool isOutlivedBy(const cost::DateRange& days, cost::Date asked) const;
};

/// Whether a column is a stamp duty: its name begins with stamp_duty.
bool isDuty(std::string_view column);

/// The cut after which this rate of a column is out of date; null where it is up to date or no duty.
const DutyCut* dutyCutOf(const standalone::RateFamily& family, std::string_view column, double rate);

}  // namespace feedesk::checking

#endif  // FEEDESK_CHECKING_DUTY_CUTS_H
