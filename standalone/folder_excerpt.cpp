#include "standalone/folder_excerpt.h"

#include <algorithm>
#include <boost/make_shared.hpp>
#include <utility>

#include "standalone/loader/checked_folder.h"
#include "standalone/loader/expand.h"

namespace standalone {
namespace {

using loader::AccountLines;
using loader::CheckedFolder;
using loader::ConfiguredLine;
using loader::KeptLine;
using loader::LineCells;

/// The market without instruments and accounts.
Market frameOf(const Market& whole) {
    Market frame;
    frame.folder = whole.folder;
    frame.title = whole.title;
    frame.engineThreads = whole.engineThreads;
    frame.files = whole.files;
    frame.markets = whole.markets;
    frame.simulationPlatforms = whole.simulationPlatforms;
    frame.categories = whole.categories;
    frame.rateNames = whole.rateNames;
    return frame;
}

/// The places within `chosen` of those that are among `places`; both ascend.
loader::Places placesWithin(const std::vector<std::size_t>& chosen, const std::vector<std::size_t>& places) {
    auto within = std::make_shared<std::vector<std::size_t>>();
    for (std::size_t i = 0; i < chosen.size(); ++i) {
        if (std::binary_search(places.begin(), places.end(), chosen[i])) {
            within->push_back(i);
        }
    }
    return within;
}

AccountLines cutLines(const AccountLines& whole, const std::vector<std::size_t>& chosen) {
    AccountLines cut;
    cut.customFees = whole.customFees;
    for (const loader::KeptFeeLine& line : whole.fees) {
        loader::Places within = placesWithin(chosen, *line.places);
        if (!within->empty()) {
            cut.fees.push_back(line);
            cut.fees.back().places = std::move(within);
        }
    }
    return cut;
}

std::vector<ConfiguredLine> cutConfigured(const std::vector<ConfiguredLine>& whole,
                                          const std::vector<std::size_t>& chosen) {
    std::vector<ConfiguredLine> cut;
    for (const ConfiguredLine& line : whole) {
        const auto found = std::lower_bound(chosen.begin(), chosen.end(), line.place);
        if (found != chosen.end() && *found == line.place) {
            cut.push_back(line);
            cut.back().place = static_cast<std::size_t>(found - chosen.begin());
        }
    }
    return cut;
}

std::shared_ptr<const CheckedFolder> cutOut(const CheckedFolder& whole, std::size_t account,
                                            const std::vector<std::size_t>& instruments) {
    auto cut = std::make_shared<CheckedFolder>();
    cut->market = frameOf(whole.market);
    cut->market.accounts = {whole.market.accounts[account]};
    for (const std::size_t place : instruments) {
        cut->market.instruments.push_back(whole.market.instruments[place]);
    }
    cut->categories = whole.categories;
    cut->rates = whole.rates;
    cut->configuredLines = cutConfigured(whole.configuredLines, instruments);
    cut->accountLines = {cutLines(whole.accountLines[account], instruments)};
    return cut;
}

bool hasExchangeFee(const ListedInstrument& instrument) { return instrument.record->feeType != 0; }

RateInput inputOf(InputKind kind, const KeptLine& line) {
    return {kind, line.line->family, line.position, line.line->days, line.line->update, line.line->category};
}

std::vector<RateInput> inputsOf(const CheckedFolder& cut) {
    std::vector<RateInput> inputs;
    for (const ConfiguredLine& line : cut.configuredLines) {
        inputs.push_back(inputOf(InputKind::kConfiguredLimit, line));
    }
    for (const loader::KeptFeeLine& line : cut.accountLines.front().fees) {
        inputs.push_back(inputOf(InputKind::kFeeLine, line));
    }
    for (const KeptLine& line : cut.accountLines.front().customFees) {
        inputs.push_back(inputOf(InputKind::kCustomFee, line));
    }
    for (const ListedInstrument& instrument : cut.market.instruments) {
        if (hasExchangeFee(instrument)) {
            inputs.push_back({InputKind::kExchangeFee, nullptr, instrument.position, {}});
        }
    }
    return inputs;
}

/// Moves those of `lines` that are kept to `made`, in force on every day; `kept` goes on behind them.
template <class Line>
void keep(const std::vector<Line>& lines, std::vector<bool>::const_iterator& kept, std::vector<Line>& made) {
    for (const Line& line : lines) {
        if (*kept++) {
            made.push_back(line);
            LineCells always = *line.line;
            always.days = {};
            made.back().line = std::make_shared<const LineCells>(std::move(always));
        }
    }
}

void takeFeeAway(ListedInstrument& instrument) {
    instrument.record = boost::make_shared<qmservice::CInstrument>(*instrument.record);
    instrument.record->feeType = 0;
}

}  // namespace

FolderExcerpt::FolderExcerpt(const MarketFolder& folder, std::size_t account,
                             const std::vector<std::size_t>& instruments)
    : cut(cutOut(folder.content(), account, instruments)), inputs(inputsOf(*cut)) {}

Market FolderExcerpt::market(const std::vector<bool>& kept) const {
    CheckedFolder part;
    part.market = cut->market;
    part.categories = cut->categories;
    part.accountLines.resize(1);
    auto next = kept.begin();
    keep(cut->configuredLines, next, part.configuredLines);
    keep(cut->accountLines.front().fees, next, part.accountLines.front().fees);
    keep(cut->accountLines.front().customFees, next, part.accountLines.front().customFees);
    for (ListedInstrument& instrument : part.market.instruments) {
        if (hasExchangeFee(instrument) && !*next++) {
            takeFeeAway(instrument);
        }
    }
    return loader::expand(part, {});
}

Market FolderExcerpt::marketOn(cost::Date day) const { return loader::expand(*cut, day); }

}  // namespace standalone
