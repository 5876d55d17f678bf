#include "feecenter/interface_symbols.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

// The class is hidden in the shared library, so this test is in the program that links the objects. That the library
// exports the interface's constructors and assignments is guarded elsewhere, by the check of its symbols
// (artefact.exports); here is what they do.

namespace {

using namespace qmservice;

/// Tells by its answer which class it is.
template <bool Answer>
class Answering : public InterfaceSymbols {
public:
    void initFees(const boost::shared_ptr<CAccountInfo>&, const std::vector<boost::shared_ptr<IData>>&) override {}
    void updateCustomFee(const boost::shared_ptr<CAccountInfo>&, const boost::shared_ptr<IData>&) override {}
    boost::shared_ptr<CInstrumentFee> getFee(const boost::shared_ptr<CAccountInfo>&, const std::string&) override {
        return {};
    }
    boost::shared_ptr<CInstrumentFee> getFee(const boost::shared_ptr<CAccountInfo>&, const std::string&,
                                             const std::string&) override {
        return {};
    }
    bool getFees(const boost::shared_ptr<CAccountInfo>&, std::vector<boost::shared_ptr<CInstrumentFee>>&) override {
        return Answer;
    }
};

bool answerOf(IFeeCenter& center) {
    std::vector<boost::shared_ptr<CInstrumentFee>> fees;
    return center.getFees({}, fees);
}

TEST(InterfaceSymbols, CopiedAndMovedObjectsAnswerAsTheirClassDoes) {
    Answering<true> made;
    Answering<true> copied(made);
    Answering<true> moved(std::move(made));
    EXPECT_TRUE(answerOf(copied));
    EXPECT_TRUE(answerOf(moved));
}

TEST(InterfaceSymbols, AssignedObjectKeepsTheOperationsOfItsOwnClass) {
    Answering<true> yes;
    Answering<false> no;
    InterfaceSymbols& assigned = no;
    assigned = static_cast<const InterfaceSymbols&>(yes);
    EXPECT_FALSE(answerOf(no));
    assigned = static_cast<InterfaceSymbols&&>(yes);
    EXPECT_FALSE(answerOf(no));
}

}  // namespace
