#ifndef FEEDESK_ANSWERS_POOLED_ENTRIES_H
#define FEEDESK_ANSWERS_POOLED_ENTRIES_H

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "feedesk/answers/answer.h"

namespace feedesk {

/// What accounts have in one family, and the records that it is pooled in.
struct PooledEntries {
    std::set<const qmservice::CAccountInfo*> accounts;
    std::size_t entries = 0;
    std::set<boost::shared_ptr<const void>> records;  ///< kept, so that no other one takes the place of one of them
    std::size_t recordBytes = 0;                      ///< of one record

    [[nodiscard]] std::size_t bytes() const { return records.size() * recordBytes; }
    /// What a record for each entry would take.
    [[nodiscard]] std::size_t bytesUnpooled() const { return entries * recordBytes; }
};

/// The part of `whole` bytes that is saved where `bytes` are left; 0 of nothing.
double savedShare(std::size_t bytes, std::size_t whole);

/// By part of the answers.
using PooledFamilies = std::map<std::string, PooledEntries>;

/// Adds the answers of an account's list. A rate that is built in, of the exchange or not set is no entry.
void addEntries(PooledFamilies& families, const std::vector<Answer>& listed);

}  // namespace feedesk

#endif  // FEEDESK_ANSWERS_POOLED_ENTRIES_H
