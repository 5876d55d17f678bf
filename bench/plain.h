#ifndef BENCH_PLAIN_H
#define BENCH_PLAIN_H

#include <boost/version.hpp>
#include <mutex>
#include <optional>
#include <shared_mutex>
#include <string>
#include <unordered_map>

#include "bench/world.h"

#if BOOST_VERSION >= 108100
#include <boost/unordered/unordered_flat_map.hpp>
#endif

namespace bench {

// What one would write without a fee center: for each account a table from joined key to rates, under one lock. An
// answer is a copy of the rates. It knows neither catalogue nor configuration nor defaults: what they say of an
// instrument is written into the table beforehand. Pools, answers that outlive the table, custom fees and updates of
// single entries by category are not there.

struct StandardMap {
    template <class Value>
    using Table = std::unordered_map<std::string, Value>;
};

struct ManyReaders {
    using Mutex = std::shared_mutex;
    using ReadLock = std::shared_lock<Mutex>;
};

struct SharedMutex : StandardMap, ManyReaders {
    static constexpr const char* kName = "std::unordered_map, shared_mutex";
};

struct OneMutex : StandardMap {
    static constexpr const char* kName = "std::unordered_map, mutex";
    using Mutex = std::mutex;
    using ReadLock = std::unique_lock<Mutex>;
};

#if BOOST_VERSION >= 108100
struct FlatMap : ManyReaders {
    static constexpr const char* kName = "boost::unordered_flat_map, shared_mutex";
    template <class Value>
    using Table = boost::unordered_flat_map<std::string, Value>;
};
#endif

template <class Way, class Rates>
class Plain {
public:
    static constexpr const char* kName = Way::kName;

    std::optional<Rates> ask(const Account& account, const std::string& key) const {
        const typename Way::ReadLock lock(mutex);
        const auto table = accounts.find(account->accountId);
        if (table == accounts.end()) {
            return std::nullopt;
        }
        const auto rates = table->second.find(key);
        return rates == table->second.end() ? std::nullopt : std::optional<Rates>(rates->second);
    }

    void set(const Account& account, const std::string& key, const Rates& rates) {
        const std::unique_lock<typename Way::Mutex> lock(mutex);
        accounts[account->accountId][key] = rates;
    }

private:
    mutable typename Way::Mutex mutex;
    typename Way::template Table<typename Way::template Table<Rates>> accounts;
};

}  // namespace bench

#endif  // BENCH_PLAIN_H
