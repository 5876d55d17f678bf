#ifndef FEEDESK_COMPARING_ALIKE_INSTRUMENTS_H
#define FEEDESK_COMPARING_ALIKE_INSTRUMENTS_H

#include <cstddef>
#include <vector>

#include "feedesk/alike/account_inputs.h"
#include "feedesk/comparing/compared_folder.h"

namespace feedesk {

/// An instrument that both folders have, by its places in their markets.
struct InstrumentPlaces {
    std::size_t before = 0;
    std::size_t after = 0;
};

/// An account that both folders have, and its lines on the day.
struct AccountSides {
    std::size_t before = 0;  ///< its places in the markets
    std::size_t after = 0;
    AccountDayLines linesBefore;
    AccountDayLines linesAfter;
};

/// Places in a list of instruments that both folders have, in groups: those of a group have the same inputs in both
/// folders, so that one of them can be asked for all.
using Alike = std::vector<std::vector<std::size_t>>;

/// Groups the instruments that the account's kind trades in either folder, of markets that both cover on the day.
Alike groupAlike(ComparedFolder& before, ComparedFolder& after, cost::Date day, const AccountSides& account,
                 const std::vector<InstrumentPlaces>& instruments);

}  // namespace feedesk

#endif  // FEEDESK_COMPARING_ALIKE_INSTRUMENTS_H
