#ifndef TESTS_HISTORIES_SIDE_BY_SIDE_H
#define TESTS_HISTORIES_SIDE_BY_SIDE_H

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "histories/answers.h"
#include "histories/handed.h"
#include "histories/sharing.h"
#include "histories/world.h"
#include "model/model.h"
#include "support/fake_host.h"
#include "support/open_fee_center.h"

namespace histories {

/// A fee center on the scripted host and a model: the same is done to both, and what they answer is compared.
/// There is one scripted host, so only one of these may be alive.
class SideBySide {
public:
    /// Starts over with an empty fee center. The world must outlive this.
    explicit SideBySide(World& world);
    SideBySide(const SideBySide&) = delete;
    SideBySide& operator=(const SideBySide&) = delete;
    ~SideBySide();

    // Each queues a change on both sides. Each side gets records of its own.
    void initFees(const Account& account, const Records& records);
    void updateCustomFee(const Account& account, const Record& record);

    /// Runs the oldest queued change, and nothing else; nothing when none is queued.
    void runJob();
    void runJobs();

    /// To be called when the world's facts have changed.
    void publish();

    /// Compares every answer to every account, the tables and the records behind them. The first difference in words;
    /// empty when there is none.
    std::string compareAll();

    /// How many answers have been compared: each fee that getFee gives, and each one in a list of getFees. Answers that
    /// are empty are compared too but not counted.
    [[nodiscard]] std::uint64_t answersCompared() const { return answers; }

    test::OpenFeeCenter& feeCenter() { return center; }

    // For a test that changes the fee center by itself and says what state that leads to. No change may be queued then.
    [[nodiscard]] const model::Model& state() const { return *model; }
    void setState(const model::Model& reached) { model = std::make_unique<model::Model>(reached); }
    Sharing& sharedRecords() { return sharing; }

private:
    /// Empties the scripted host, with the world's facts in it, before the fee center is built on it.
    struct Host {
        explicit Host(const World& world);
        test::FakeHost& fake = test::FakeHost::instance();
    };

    void posted(const Account& account, std::size_t queuedBefore);
    void runModelsOldest();
    void watchHost();
    bool watchOnce(const Record& record);
    std::string compareFees(const Account& account);
    std::string compareFee(const Account& account, const World::Question& question, bool byName);
    std::string compareList(const Account& account);
    void countAnswer(const Account& account, const Fee& answer);
    [[nodiscard]] std::string_view originOf(const void* record) const;

    World& world;
    Host host;
    test::OpenFeeCenter center;
    std::unique_ptr<model::Model> model;
    Sharing sharing;
    Handed handed;    ///< records of changes that have not run
    Handed hostsOwn;  ///< accounts, instruments, and every limit that was ever configured
    std::set<const void*> watched;
    std::set<const void*> defaults;  ///< the model's
    /// A change that waits.
    struct Change {
        std::size_t jobs;  ///< how many it queued in the model
        int kind;          ///< of its account
    };
    std::deque<Change> changes;
    bool stepping = false;
    Fee previous;  ///< the answer before is kept while the next one is asked for
    std::uint64_t answers = 0;
    std::size_t round = 0;
};

}  // namespace histories

#endif  // TESTS_HISTORIES_SIDE_BY_SIDE_H
