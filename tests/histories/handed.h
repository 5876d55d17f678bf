#ifndef TESTS_HISTORIES_HANDED_H
#define TESTS_HISTORIES_HANDED_H

#include <string>
#include <vector>

#include "histories/world.h"

namespace histories {

/// Records that belong to somebody else than the fee center, and what they were when it was given them. It may write
/// nothing into them.
class Handed {
public:
    /// Keeps the record alive.
    void watch(const Record& record);

    /// Which record is another than it was; empty when none is.
    [[nodiscard]] std::string difference() const;

    /// Forgets the records: nobody writes them any more.
    void clear() { watched.clear(); }

private:
    struct Watched {
        Record record;
        Record before;
    };
    std::vector<Watched> watched;
};

}  // namespace histories

#endif  // TESTS_HISTORIES_HANDED_H
