#ifndef TESTS_HISTORIES_SHARING_H
#define TESTS_HISTORIES_SHARING_H

#include <boost/shared_ptr.hpp>
#include <unordered_map>

namespace histories {

/// Which record of the fee center matches which one of the model, both ways: the pooled, the default and the
/// configured ones. A record of an answer that is not among them must be the answer's own.
///
/// The records must outlive this.
class Sharing {
public:
    /// False when one of the two matches another one already.
    template <class Record>
    bool pair(const boost::shared_ptr<Record>& modelled, const boost::shared_ptr<Record>& real) {
        return pairs.emplace(modelled.get(), real.get()).first->second == real.get() &&
               reverse.emplace(real.get(), modelled.get()).first->second == modelled.get();
    }

    /// The fee center's record for one of the model's; null when that is no shared record.
    [[nodiscard]] const void* realOf(const void* modelled) const {
        const auto found = pairs.find(modelled);
        return found == pairs.end() ? nullptr : found->second;
    }

    [[nodiscard]] bool isShared(const void* real) const { return reverse.count(real) != 0; }

private:
    std::unordered_map<const void*, const void*> pairs;
    std::unordered_map<const void*, const void*> reverse;
};

}  // namespace histories

#endif  // TESTS_HISTORIES_SHARING_H
