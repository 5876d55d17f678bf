// Nothing of the host is included: the exported headers compile alone.
#include <gtest/gtest.h>

#include <type_traits>

#include "CFeeCenter.h"
#include "IFeeCenter.h"

namespace {

using qmservice::CFeeCenter;
using qmservice::IFeeCenter;

TEST(ExportedHeaders, InterfaceIsAbstractWithoutVirtualDestructor) {
    EXPECT_TRUE(std::is_abstract_v<IFeeCenter>);
    EXPECT_FALSE(std::has_virtual_destructor_v<IFeeCenter>);
    EXPECT_FALSE(std::has_virtual_destructor_v<CFeeCenter>);
    EXPECT_EQ(sizeof(IFeeCenter), sizeof(void*)) << "the interface has no data";
}

TEST(ExportedHeaders, FeeCenterIsAnInterfaceMadeFromAName) {
    EXPECT_TRUE((std::is_base_of_v<IFeeCenter, CFeeCenter>));
    EXPECT_TRUE((std::is_convertible_v<CFeeCenter*, IFeeCenter*>));
    EXPECT_TRUE((std::is_constructible_v<CFeeCenter, const std::string&>));
    EXPECT_FALSE(std::is_default_constructible_v<CFeeCenter>);
    EXPECT_FALSE(std::is_copy_constructible_v<CFeeCenter>);
}

/// A class that derives may copy and move the interface.
class Derived : public IFeeCenter {
public:
    void initFees(const boost::shared_ptr<qmservice::CAccountInfo>&,
                  const std::vector<boost::shared_ptr<qmservice::IData>>&) override {}
    void updateCustomFee(const boost::shared_ptr<qmservice::CAccountInfo>&,
                         const boost::shared_ptr<qmservice::IData>&) override {}
    boost::shared_ptr<qmservice::CInstrumentFee> getFee(const boost::shared_ptr<qmservice::CAccountInfo>&,
                                                        const std::string&) override {
        return {};
    }
    boost::shared_ptr<qmservice::CInstrumentFee> getFee(const boost::shared_ptr<qmservice::CAccountInfo>&,
                                                        const std::string&, const std::string&) override {
        return {};
    }
    bool getFees(const boost::shared_ptr<qmservice::CAccountInfo>&,
                 std::vector<boost::shared_ptr<qmservice::CInstrumentFee>>&) override {
        return false;
    }
};

TEST(ExportedHeaders, InterfaceIsCopiedAndMovedByAClassThatImplementsIt) {
    EXPECT_TRUE(std::is_nothrow_default_constructible_v<Derived>);
    EXPECT_TRUE(std::is_nothrow_copy_constructible_v<Derived>);
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<Derived>);
    EXPECT_TRUE(std::is_nothrow_copy_assignable_v<Derived>);
    EXPECT_TRUE(std::is_nothrow_move_assignable_v<Derived>);
    // A class with virtual operations is never trivial to the language; its destructor is.
    EXPECT_TRUE(std::is_trivially_destructible_v<IFeeCenter>);
}

}  // namespace
