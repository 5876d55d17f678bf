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
};

/// The cut after which this rate of a column is out of date; null where it is up to date or no duty. The duties are the
/// columns whose names begin with stamp_duty.
const DutyCut* dutyCutOf(const standalone::RateFamily& family, std::string_view column, double rate);

}  // namespace feedesk::checking

#endif  // FEEDESK_CHECKING_DUTY_CUTS_H
