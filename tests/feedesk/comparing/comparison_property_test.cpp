// What the comparison of two folders finds, held against every answer of both, asked one by one as `fee` does.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

#include "feedesk/comparing/comparison.h"
#include "feedesk/instruments/traded_instruments.h"
#include "feedesk/session/running_engine.h"
#include "feedesk/session/session.h"
#include "feedesk/text/numbers.h"
#include "standalone/families.h"
#include "standalone/loader.h"
#include "tests/feedesk/support/random_folder.h"

namespace feedesk::test {
namespace {

// One of each interval between the days on which random folders change, from their own day on.
const std::vector<std::string> kDays = {"2024-01-02", "2024-02-01", "2024-07-01"};

cost::Date dayOf(const std::string& text) { return *cost::Date::parse(text); }

/// A rate of an answer: day, account, instrument, part, item and column; of the level the column is empty.
using RateName = std::tuple<std::string, std::string, std::string, std::string, std::string, std::string>;

struct FoundRate {
    std::string text;
    std::string source;
};

using FoundRates = std::map<RateName, FoundRate>;

void addRates(const Answer& answer, const std::string& day, const std::string& account, const std::string& instrument,
              const standalone::Market& market, FoundRates& rates) {
    for (const FeeLine& line : answer.lines) {
        const std::string source = line.origin.position ? market.where(*line.origin.position) : "";
        const auto add = [&](const std::string& column, const std::string& text) {
            rates[{day, account, instrument, line.part, line.item, column}] = {text, source};
        };
        add("", levelName(line.origin.level));
        for (const TitledRates& titled : line.rates) {
            for (const ShownRate& rate : titled.rates) {
                add(rate.column, plainNumber(rate.value));
            }
        }
    }
}

/// Every rate that the accounts of the folder pay for what their kind trades.
FoundRates ratesOf(const SampleFolder& folder) {
    FoundRates rates;
    Session session(SessionOptions{folder.path()});
    for (const std::string& day : kDays) {
        for (const standalone::Account& account : session.market().accounts) {
            const std::string id = account.record->accountId;
            for (const Question& question : tradedInstruments(account.record->accountType, session.market())) {
                const DatedFee dated = session.feeOn(dayOf(day), id, question);
                addRates(dated.answer, day, id, question.market + ":" + question.code, *dated.market, rates);
            }
        }
    }
    return rates;
}

FoundRate rateOf(const FoundRates& rates, const RateName& name) {
    const auto found = rates.find(name);
    return found == rates.end() ? FoundRate{std::get<5>(name).empty() ? "not set" : "-", ""} : found->second;
}

struct FoundChange {
    std::string before;
    std::string after;
    std::set<std::string> sourcesBefore;
    std::set<std::string> sourcesAfter;
};

using Changes = std::map<RateName, FoundChange>;

/// What differs, found rate by rate. A level is reported where no rate of its line differs.
Changes expectedChanges(const FoundRates& before, const FoundRates& after) {
    std::set<RateName> names;
    for (const FoundRates* rates : {&before, &after}) {
        for (const auto& [name, rate] : *rates) {
            names.insert(name);
        }
    }
    Changes changes;
    std::set<RateName> linesWithRates;
    const auto levelNameOf = [](RateName name) {
        std::get<5>(name).clear();
        return name;
    };
    for (auto name = names.rbegin(); name != names.rend(); ++name) {  // the level of a line comes behind its rates
        const FoundRate old = rateOf(before, *name);
        const FoundRate now = rateOf(after, *name);
        if (old.text == now.text || (std::get<5>(*name).empty() && linesWithRates.count(*name) == 1)) {
            continue;
        }
        changes[*name] = {old.text, now.text, {old.source}, {now.source}};
        linesWithRates.insert(levelNameOf(*name));
    }
    return changes;
}

std::string textOf(const AnsweredRate& rate, bool isLevel) {
    return isLevel ? levelName(rate.level) : rate.value ? plainNumber(*rate.value) : "-";
}

/// Of a change that several parts have, the account's: that of its kind, where this trades one family alone.
std::string partOf(const Change& change, const standalone::Account& account) {
    const auto* const traded = standalone::tradedFamily(account.record->accountType);
    const std::string own = traded == nullptr ? "stock" : traded->name;
    return std::count(change.parts.begin(), change.parts.end(), own) != 0 ? own : change.difference.part;
}

/// What the comparison reports, spread out over days, accounts and instruments.
Changes comparedChanges(const SampleFolder& folderBefore, const SampleFolder& folderAfter) {
    standalone::ContentNumbers numbers;
    ComparedFolder before(standalone::loadFolder(folderBefore.path()).folder, numbers);
    ComparedFolder after(standalone::loadFolder(folderAfter.path()).folder, numbers);
    Comparison comparison(before, after);
    const RunningEngine engine(1);
    Changes changes;
    for (const Change& change : comparison.changesOn({dayOf(kDays.front()), {}})) {
        const RateDifference& difference = change.difference;
        const FoundChange found = {textOf(difference.before, difference.column.empty()),
                                   textOf(difference.after, difference.column.empty()),
                                   {change.sourcesBefore.begin(), change.sourcesBefore.end()},
                                   {change.sourcesAfter.begin(), change.sourcesAfter.end()}};
        for (const std::string& day : kDays) {
            for (const std::size_t account : change.accounts) {
                for (const std::size_t instrument : difference.instruments) {
                    const qmservice::CInstrument& record =
                        *before.instruments()[comparison.instruments()[instrument].before].record;
                    const RateName name = {day,
                                           before.accounts()[account].record->accountId,
                                           record.market + ":" + record.code,
                                           partOf(change, before.accounts()[account]),
                                           difference.item,
                                           difference.column};
                    if (change.days.contains(dayOf(day))) {
                        EXPECT_TRUE(changes.emplace(name, found).second) << "reported twice";
                    }
                }
            }
        }
    }
    return changes;
}

std::string textOf(const RateName& name) {
    const auto& [day, account, instrument, part, item, column] = name;
    return day + " " + account + " " + instrument + " " + part + " " + item + " " + column;
}

void expectSource(const std::set<std::string>& expected, const std::set<std::string>& reported,
                  const std::string& where) {
    const std::string& source = *expected.begin();
    EXPECT_TRUE(source.empty() ? reported.empty() : reported.count(source) == 1) << where << " " << source;
}

/// How many rates differ.
std::size_t expectTheRightChanges(const RandomFolder& before, const RandomFolder& after) {
    const SampleFolder folderBefore;
    const SampleFolder folderAfter;
    before.writeTo(folderBefore);
    after.writeTo(folderAfter);
    const Changes expected = expectedChanges(ratesOf(folderBefore), ratesOf(folderAfter));
    const Changes reported = comparedChanges(folderBefore, folderAfter);
    for (const auto& [name, change] : expected) {
        const auto found = reported.find(name);
        if (found == reported.end()) {
            ADD_FAILURE() << "not reported: " << textOf(name) << " " << change.before << " -> " << change.after;
            continue;
        }
        EXPECT_EQ(found->second.before, change.before) << textOf(name);
        EXPECT_EQ(found->second.after, change.after) << textOf(name);
        expectSource(change.sourcesBefore, found->second.sourcesBefore, textOf(name));
        expectSource(change.sourcesAfter, found->second.sourcesAfter, textOf(name));
    }
    for (const auto& [name, change] : reported) {
        EXPECT_EQ(expected.count(name), 1U) << "reported: " << textOf(name) << change.before << " -> " << change.after;
    }
    return expected.size();
}

constexpr std::size_t kStep = 6 * ONE_LINE_OF;

class ComparedFolders : public testing::TestWithParam<unsigned> {};

TEST_P(ComparedFolders, OfTheSameTextHaveNoChanges) {
    const RandomFolder random(GetParam());
    const SampleFolder one;
    const SampleFolder other;
    random.writeTo(one);
    random.writeTo(other);
    EXPECT_TRUE(comparedChanges(one, other).empty());
}

TEST_P(ComparedFolders, WithOneLineChangedHaveTheChangesOfItsAnswers) {
    const RandomFolder before(GetParam());
    const std::vector<RandomFolder::RateLine> all = before.rateLines();
    std::size_t count = 0;
    for (std::size_t i = GetParam(); i < all.size(); i += kStep) {
        RandomFolder after = before;
        if ((i / kStep) % 2 == 0) {
            after.changeRate(all[i]);
        } else {
            after.takeAway(all[i]);
        }
        count += expectTheRightChanges(before, after);
    }
    EXPECT_GT(count, 5U / ONE_LINE_OF);
}

TEST_P(ComparedFolders, OfAnotherTextHaveTheChangesOfTheirAnswers) {
    for (const unsigned other : {100U, 200U, 300U, 400U}) {
        EXPECT_GT(expectTheRightChanges(RandomFolder(GetParam()), RandomFolder(GetParam() + other)), 100U);
    }
}

INSTANTIATE_TEST_SUITE_P(Random, ComparedFolders, testing::Range(1U, 1U + RANDOM_FOLDERS));

}  // namespace
}  // namespace feedesk::test
