#include "standalone/market_folder.h"

#include <algorithm>
#include <ctime>
#include <utility>

#include "standalone/loader/checked_folder.h"
#include "standalone/loader/expand.h"

namespace standalone {
namespace {

std::shared_ptr<const loader::CheckedFolder> emptyFolder(const std::string& name) {
    auto content = std::make_shared<loader::CheckedFolder>();
    content->market.folder = name;
    return content;
}

}  // namespace

cost::Date today() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return cost::Date::of(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday).value_or(cost::Date());
}

MarketFolder::MarketFolder(const std::string& name) : MarketFolder(emptyFolder(name)) {}

MarketFolder::MarketFolder(std::shared_ptr<const loader::CheckedFolder> content) : checked(std::move(content)) {}

const std::string& MarketFolder::name() const { return checked->market.folder; }

const Coverage& MarketFolder::coverage() const { return checked->coverage; }

cost::Date MarketFolder::defaultDay() const { return checked->asOf ? *checked->asOf : today(); }

const cost::Schedule& MarketFolder::schedule() const { return checked->schedule; }

const std::vector<cost::Date>& MarketFolder::changeDates() const { return checked->changeDates; }

std::size_t MarketFolder::intervalOf(cost::Date day) const {
    const std::vector<cost::Date>& changes = changeDates();
    return static_cast<std::size_t>(std::upper_bound(changes.begin(), changes.end(), day) - changes.begin());
}

const Market& MarketFolder::everyDay() const { return checked->market; }

Market MarketFolder::marketOn(cost::Date day) const { return loader::expand(*checked, day); }

Market MarketFolder::sharedMarketOn(cost::Date day) const { return loader::expandShared(*checked, day); }

Account MarketFolder::accountOn(cost::Date day, std::size_t account) const {
    return loader::expandAccount(*checked, day, account);
}

std::vector<CustomFee> MarketFolder::customFeesOn(cost::Date day, std::size_t account) const {
    return loader::expandCustomFees(*checked, day, account);
}

FeeCounts MarketFolder::feeCountsOn(cost::Date day, std::size_t account) const {
    return {loader::countFees(*checked, day, account), loader::countCustomFees(*checked, day, account)};
}

}  // namespace standalone
