#ifndef TESTS_HISTORIES_WORLD_H
#define TESTS_HISTORIES_WORLD_H

#include <array>
#include <boost/shared_ptr.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "histories/bytes.h"
#include "histories/reached.h"
#include "model/facts.h"

namespace histories {

using Account = boost::shared_ptr<qmservice::CAccountInfo>;
using Instrument = boost::shared_ptr<qmservice::CInstrument>;
using Record = boost::shared_ptr<qmservice::IData>;
using Records = std::vector<Record>;

/// The accounts that a history's changes are for. Every account is asked in any case.
enum class Focus { all, stockLike, futures, connect };
constexpr std::array<Focus, 4> kFocuses{Focus::all, Focus::stockLike, Focus::futures, Focus::connect};
/// In one word, such as "StockLike".
const char* nameOf(Focus focus);

/// What a history takes place in: what the host knows, and whom and what can be asked about. Instruments, accounts and
/// questions stay as they are; the facts change.
///
/// The facts' category tests refer to the world: it does not move.
class World {
public:
    World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    struct Question {
        std::string key;  ///< joined
        std::string market;
        std::string code;
        bool joins = true;  ///< whether the joined key is that of market and code
    };

    [[nodiscard]] const std::vector<Account>& accounts(Focus focus) const;

    model::Facts facts;
    /// What the histories in this world came to. Category tests are counted while `updating` says for which kind of
    /// account; set it only when no other thread asks them.
    Reached reached;
    std::optional<int> updating;
    /// In the catalogue or not, listed or not. The last one is empty.
    std::vector<Instrument> instruments;
    std::vector<Question> questions;

private:
    void addInstruments();
    void addOddities();
    void addAccounts();
    void addCategories();
    void addCategoryTests();
    bool counted(std::string_view test, bool answer);
    void addQuestions();
    void ask(const std::string& market, const std::string& code);

    std::array<std::vector<Account>, kFocuses.size()> accountsByFocus;
};

/// Text of category numbers and names, in range, at the edges, outside, and not numbers at all; the frequent ones are
/// there several times.
extern const std::array<const char*, 36> kCategoryTexts;
/// The numbers that instruments may be members of.
extern const std::array<int, 17> kCategoryNumbers;

}  // namespace histories

#endif  // TESTS_HISTORIES_WORLD_H
