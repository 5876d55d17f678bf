#ifndef TESTS_FEECENTER_SUPPORT_OPERATIONS_H
#define TESTS_FEECENTER_SUPPORT_OPERATIONS_H

#include <functional>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "support/scene.h"

namespace test {

/// Whom an operation is about. Changes are about all instruments of the scene.
struct Subject {
    boost::shared_ptr<qmservice::CAccountInfo> account;
    Scene::Instrument instrument;
    uint64 accountKey = 0;
    uint64 instrumentKey = 0;
};

/// One operation of the fee center, ready to run on a scene.
struct Operation {
    enum class Kind { kLoad, kUpdate, kLookup, kList };

    /// The names of the locks that it takes in the course of its run, one after the other.
    using Locks = std::set<std::string>;

    std::string name;
    Kind kind = Kind::kLookup;
    int accountKind = 0;  ///< the kind of account for which an entry operation comes here
    Locks shared;
    Locks exclusive;
    /// Runs it. What a query answers, as answerText() puts it; a list's answers by code, "A: limit 70; B: limit 71; ".
    std::function<std::string(const Scene&, OpenFeeCenter&, const Subject&)> run;
    /// Hands the same change to the entry operation, which queues it. Queries have none.
    std::function<void(const Scene&, OpenFeeCenter&, const Subject&)> post;
    /// The custom fee that an update hands in, a new one each time. Others have none.
    std::function<Scene::Record(const Scene&)> customFee;
    /// The market in which it looks the instrument up; the scene's own where this is empty.
    std::string market;

    [[nodiscard]] bool isChange() const { return kind == Kind::kLoad || kind == Kind::kUpdate; }
};

void PrintTo(const Operation& operation, std::ostream* out);

/// The rate of the first instrument after a change; a load gives the second instrument the next rate, and so on.
constexpr double kChangedRate = 70;

/// Seven loads and eight updates. Each update holds a group's entry before the one for all, with 10 more, and "B" is in
/// the group; the update of one instrument is about "A".
const std::vector<Operation>& changes();

/// The family lookups, prime brokerage's once for each family that a market leads to.
const std::vector<Operation>& lookups();

/// The family lists.
const std::vector<Operation>& lists();

/// getFee and getFees for each kind of account that they answer.
const std::vector<Operation>& entryQueries();

/// All of them.
std::vector<Operation> allOperations();

/// The subject for an account of the scene and one of its instruments, which an operation with a market of its own
/// replaces by that market's.
Subject subjectOf(const Scene& scene, const Operation& operation, uint64 account, std::size_t instrument = 0);

/// Adds what the operations need to a scene that has the instruments "A" and "B".
void stageOperations(Scene& scene);

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_OPERATIONS_H
