#ifndef TESTS_HISTORIES_HANDED_H
#define TESTS_HISTORIES_HANDED_H

#include <string>
#include <vector>

#include "histories/world.h"

namespace histories {

/// Records that belong to somebody else than the fee center. It may write nothing into them but what the model writes
/// into its own: the empty lists of custom categories that a change asks for and does not find.
class Handed {
public:
    /// A record that is never to be written. Keeps it alive.
    void watch(const Record& record);
    /// Records of a change, and those that the model is handed in their place. To be called before the fee center runs
    /// the change.
    void watch(const Records& records, const Records& models);

    /// Which record is another than it is to be once the model has made the same changes; empty when none is.
    [[nodiscard]] std::string difference() const;
    /// The same where the last change was broken off: each of its limits and details may be as it was, too.
    [[nodiscard]] std::string differenceMidway() const;

    /// Forgets the records: nobody writes them any more.
    void clear() { watched.clear(); }

private:
    struct Watched {
        Record record;
        Record before;
        Record models;
    };
    std::vector<Watched> watched;
};

}  // namespace histories

#endif  // TESTS_HISTORIES_HANDED_H
