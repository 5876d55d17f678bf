#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "feedesk/reconciling/proven_proposals.h"
#include "tests/feedesk/support/statement_folder.h"

// Changes of a folder that do not hold are withheld.

namespace feedesk::test {
namespace {

/// Line 2 pays the folder's 0.025 % commission, line 3 pays 0.04 %.
class ProvenProposals : public testing::Test {
protected:
    ProvenProposals() {
        std::vector<WrongLine> wrong;
        statement = statementIn({"日期,代码,买卖,数量,价格,佣金,印花税,过户费,单号,笔数,发生",
                                 "20240102,600519,买,100,1000,25.00,0,0,,1,-100025.00",
                                 "20240103,600519,买,100,1000,40.00,0,0,,1,-100040.00"},
                                "statement", FolderLayouts(folder.path()).all(), wrong);
        Session session{SessionOptions{folder.path()}};
        found = Reconciler(session, "S100").reconcile(statement);
    }

    /// Puts another rate from another day on in the place of what was found.
    void claim(const char* rate, const char* from) {
        auto claimed = std::make_shared<SolvedRate>(*found.rates.at(0));
        claimed->rate = *cost::Decimal::parse(rate);
        claimed->sources.at(0).days.from = cost::Date::parse(from);
        found.rates = {claimed};
        found.orders.at(1).solved = claimed;
    }

    [[nodiscard]] Proposals proposals() const { return provenProposals(found, statement, "S100", folder.path()); }

    const StatementFolder folder;
    Statement statement;
    Reconciliation found;
};

TEST_F(ProvenProposals, AreThoseThatHold) {
    const Proposals proven = proposals();
    EXPECT_EQ(proven.lines.size(), 1U);
    EXPECT_NE(proven.patch, "");
    EXPECT_TRUE(proven.withheld.empty());
}

TEST_F(ProvenProposals, WithholdWhatWouldMakeATradeDifferThatAgrees) {
    claim("0.0004", "2024-01-02");
    const Proposals proven = proposals();
    EXPECT_EQ(proven.patch, "");
    EXPECT_EQ(proven.withheld,
              std::vector<std::string>{"no line is proposed for the commission 0.0004, as line 2, which "
                                       "agrees, would differ with it"});
}

TEST_F(ProvenProposals, WithholdWhatWouldNotMakeItsTradesAgree) {
    claim("0.0005", "2024-01-03");
    const Proposals proven = proposals();
    EXPECT_EQ(proven.patch, "");
    EXPECT_EQ(proven.withheld,
              std::vector<std::string>{"no line is proposed for the commission 0.0005, as line 3 would "
                                       "differ with it as well"});
}

}  // namespace
}  // namespace feedesk::test
