#include "standalone/folder_contents.h"

#include <algorithm>
#include <map>
#include <set>
#include <type_traits>

#include "host/keys.h"
#include "standalone/loader/checked_folder.h"
#include "standalone/services/category_book.h"

namespace standalone {
namespace {

/// A content as bytes, each part separate from the next.
class Bytes {
public:
    template <class Number>
    Bytes& add(Number number) {
        static_assert(std::is_arithmetic_v<Number>);
        text.append(reinterpret_cast<const char*>(&number), sizeof(number));
        return *this;
    }
    Bytes& add(const std::string& part) {
        add(part.size());
        text += part;
        return *this;
    }

    std::string text;
};

Bytes bytesOf(const loader::KeptLine& kept) {
    const loader::LineCells& line = *kept.line;
    Bytes bytes;
    bytes.add(std::string(line.family->name)).add(line.item);
    bytes.add(line.update).add(line.category).add(line.hedgeFlag).add(line.marginMode).add(line.unitVolume);
    for (const double rate : kept.rates()) {
        bytes.add(rate);
    }
    return bytes;
}

int attributesOf(const ListedInstrument& listed, ContentNumbers& numbers) {
    const qmservice::CInstrument& instrument = *listed.record;
    Bytes bytes;
    bytes.add(instrument.market).add(listed.listMask).add(listed.types).add(listed.tradeUnit);
    bytes.add(instrument.feeType).add(instrument.openFee).add(instrument.closeFee).add(instrument.closeTodayFee);
    return numbers.of(bytes.text);
}

void addMarkets(const Market& market, Bytes& bytes) {
    bytes.add(market.markets.size());
    for (const MarketPlace& place : market.markets) {
        bytes.add(place.market).add(place.tradeUnit).add(place.foreign);
    }
    const std::set<int> platforms(market.simulationPlatforms.begin(), market.simulationPlatforms.end());
    bytes.add(platforms.size());
    for (const int platform : platforms) {
        bytes.add(platform);
    }
    for (const auto& [family, rates] : market.rateNames) {
        bytes.add(family).add(rates.size());
        for (const NamedRate& name : rates) {
            bytes.add(name.column).add(static_cast<int>(name.unit));
        }
    }
}

void addCategories(const loader::CheckedFolder& checked, Bytes& bytes) {
    bytes.add(checked.market.categories.size());
    for (const CategoryRule& rule : checked.market.categories) {
        bytes.add(rule.category).add(rule.name).add(rule.market).add(rule.code).add(rule.product);
    }
    bytes.add(checked.categories.custom.size());
    for (const auto& [category, members] : checked.categories.custom) {
        bytes.add(category).add(members.size());
        std::for_each(members.begin(), members.end(), [&](const std::string& member) { bytes.add(member); });
    }
    bytes.add(checked.categories.groups.size());
    for (const auto& [group, parts] : checked.categories.groups) {
        bytes.add(group).add(parts.size());
        for (const qmservice::CGroupCategorySubInfo& part : parts) {
            bytes.add(part.category).add(part.excluded);
        }
    }
}

/// By "SH:600519": the custom categories that have the instrument.
std::map<std::string, std::vector<int>> customCategoriesByMember(const loader::CheckedFolder& checked) {
    std::map<std::string, std::vector<int>> found;
    for (const auto& [category, members] : checked.categories.custom) {
        for (const std::string& member : members) {
            found[member].push_back(category);
        }
    }
    return found;
}

}  // namespace

int ContentNumbers::of(const std::string& content) {
    const auto found = texts.emplace(content, count);
    count += found.second ? 1 : 0;
    return found.first->second;
}

int ContentNumbers::of(int first, int second) {
    const std::uint64_t key = static_cast<std::uint64_t>(first) << 32U | static_cast<std::uint32_t>(second);
    const auto found = pairs.emplace(key, count);
    count += found.second ? 1 : 0;
    return found.first->second;
}

FolderContents::FolderContents(const MarketFolder& comparedFolder, ContentNumbers& sharedNumbers)
    : folder(comparedFolder), numbers(sharedNumbers) {
    for (const ListedInstrument& listed : content().market.instruments) {
        names.push_back(numbers.of(Bytes().add(listed.record->market).add(listed.record->code).text));
        attributes.push_back(attributesOf(listed, numbers));
    }
    numberLines();
    sameOnAllDays = frame();
}

void FolderContents::numberLines() {
    std::unordered_map<const void*, int> numberOfPlaces;
    const auto ofPlaces = [&](const loader::Places& places) {
        const auto known = numberOfPlaces.emplace(places.get(), 0);
        if (known.second) {
            Bytes bytes;
            std::for_each(places->begin(), places->end(), [&](std::size_t place) { bytes.add(names[place]); });
            known.first->second = numbers.of(bytes.text);
        }
        return known.first->second;
    };
    for (const loader::AccountLines& lines : content().accountLines) {
        feeLines.emplace_back();
        for (const loader::KeptFeeLine& line : lines.fees) {
            feeLines.back().push_back(numbers.of(numbers.of(bytesOf(line).text), ofPlaces(line.places)));
        }
        customLines.emplace_back();
        for (const loader::KeptLine& line : lines.customFees) {
            customLines.back().push_back(numbers.of(bytesOf(line).text));
        }
    }
    for (const loader::ConfiguredLine& line : content().configuredLines) {
        configuredLines.push_back(numbers.of(bytesOf(line).text));
    }
}

int FolderContents::frame() {
    Bytes bytes;
    addMarkets(content().market, bytes);
    addCategories(content(), bytes);
    for (std::size_t place = 0; place < names.size(); ++place) {
        bytes.add(names[place]).add(attributes[place]).add(content().market.instruments[place].record->productId);
    }
    return numbers.of(bytes.text);
}

std::vector<FolderContents::Line> FolderContents::linesOn(cost::Date day, std::size_t account) const {
    const loader::AccountLines& lines = content().accountLines[account];
    std::vector<Line> found;
    for (std::size_t i = 0; i < lines.fees.size(); ++i) {
        const loader::KeptFeeLine& line = lines.fees[i];
        if (line.line->days.contains(day)) {
            found.push_back({feeLines[account][i], InputKind::kFeeLine, line.position, line.places});
        }
    }
    for (std::size_t i = 0; i < lines.customFees.size(); ++i) {
        const loader::KeptLine& line = lines.customFees[i];
        if (line.line->days.contains(day)) {
            found.push_back({customLines[account][i], InputKind::kCustomFee, line.position, nullptr});
        }
    }
    return found;
}

int FolderContents::sharedOn(cost::Date day) {
    int shared = sameOnAllDays;
    for (std::size_t i = 0; i < configuredLines.size(); ++i) {
        const loader::ConfiguredLine& line = content().configuredLines[i];
        if (line.line->days.contains(day)) {
            shared = numbers.of(shared, numbers.of(names[line.place], configuredLines[i]));
        }
    }
    return shared;
}

void FolderContents::findCategoriesOfInstruments() {
    const CategoryBook book(content().market);
    const auto customOf = customCategoriesByMember(content());
    std::set<int> categories;
    for (const CategoryRule& rule : content().market.categories) {
        categories.insert(rule.category);
    }
    for (std::size_t place = 0; place < names.size(); ++place) {
        const qmservice::CInstrument& instrument = *content().market.instruments[place].record;
        Bytes bytes;
        for (const int category : categories) {
            if (book.holds(category, instrument.market, instrument.code, instrument.productId)) {
                bytes.add(category);
            }
        }
        bytes.add(0);
        const auto custom = customOf.find(utils::voStockKey(instrument.market, instrument.code));
        if (custom != customOf.end()) {
            std::for_each(custom->second.begin(), custom->second.end(), [&](int category) { bytes.add(category); });
        }
        inCategories.push_back(numbers.of(attributes[place], numbers.of(bytes.text)));
    }
}

const std::vector<int>& FolderContents::instrumentsOn(cost::Date day) {
    if (inCategories.empty()) {
        findCategoriesOfInstruments();
    }
    if (interval != folder.intervalOf(day)) {
        interval = folder.intervalOf(day);
        instruments = inCategories;
        for (std::size_t i = 0; i < configuredLines.size(); ++i) {
            const loader::ConfiguredLine& line = content().configuredLines[i];
            if (line.line->days.contains(day)) {
                int& instrument = instruments[line.place];
                instrument = numbers.of(instrument, configuredLines[i]);
            }
        }
    }
    return instruments;
}

std::vector<Position> FolderContents::linesLike(cost::Date day, const Position& position,
                                                const std::vector<std::size_t>& places) const {
    const std::vector<loader::ConfiguredLine>& lines = content().configuredLines;
    const auto line =
        std::find_if(lines.begin(), lines.end(), [&](const auto& each) { return each.position == position; });
    std::vector<Position> found;
    if (line == lines.end()) {
        for (const std::size_t place : places) {
            found.push_back(content().market.instruments[place].position);
        }
        return found;
    }
    const int meant = configuredLines[static_cast<std::size_t>(line - lines.begin())];
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (configuredLines[i] == meant && lines[i].line->days.contains(day) &&
            std::binary_search(places.begin(), places.end(), lines[i].place)) {
            found.push_back(lines[i].position);
        }
    }
    return found;
}

}  // namespace standalone
