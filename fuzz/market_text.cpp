#include "fuzz/market_text.h"

#include <ostream>
#include <sstream>

namespace fuzz {
namespace {

using namespace standalone;

std::ostream& operator<<(std::ostream& out, const Position& position) {
    return out << position.file << ':' << position.line;
}

std::ostream& operator<<(std::ostream& out, const std::vector<Position>& positions) {
    for (const Position& position : positions) {
        out << ' ' << position;
    }
    return out;
}

/// The record behind a pointer, on one line.
struct Logged {
    const qmservice::IData* record;
};

std::ostream& operator<<(std::ostream& out, const Logged& logged) {
    if (logged.record == nullptr) {
        return out << "none";
    }
    logged.record->toLogStream(out);
    return out;
}

void write(std::ostream& out, const Account& account) {
    out << "account " << account.position << ' ' << Logged{account.record.get()} << '\n';
    for (const FeeRecord& fee : account.fees) {
        out << " fee " << fee.position << fee.margins << ' ' << Logged{fee.record.get()} << '\n';
    }
    for (const CustomFee& fee : account.customFees) {
        out << " custom" << fee.entries << ' ' << Logged{fee.record.get()} << '\n';
    }
}

template <class Limit>
void write(std::ostream& out, const std::vector<ConfiguredLimit<Limit>>& limits) {
    for (const ConfiguredLimit<Limit>& limit : limits) {
        out << "limit " << limit.position << ' ' << limit.market << ' ' << limit.code << ' '
            << Logged{limit.limit.get()} << '\n';
    }
}

void writeNames(std::ostream& out, const Market& market) {
    out << market.folder << '\n' << market.title << '\n' << market.engineThreads << '\n';
    for (const std::string& file : market.files) {
        out << "file " << file << '\n';
    }
    for (const int platform : market.simulationPlatforms) {
        out << "platform " << platform << '\n';
    }
    for (const MarketPlace& place : market.markets) {
        out << "market " << place.market << ' ' << place.title << ' ' << place.tradeUnit << ' ' << place.foreign
            << '\n';
    }
    for (const auto& [family, rates] : market.rateNames) {
        out << "rates " << family << '\n';
        for (const NamedRate& rate : rates) {
            out << ' ' << rate.field << ' ' << rate.column << ' ' << rate.title << ' ' << static_cast<int>(rate.unit)
                << '\n';
        }
    }
}

void write(std::ostream& out, const Market& market) {
    writeNames(out, market);
    for (const ListedInstrument& listed : market.instruments) {
        out << "instrument " << listed.position << ' ' << listed.listMask << ' ' << listed.types << ' '
            << listed.tradeUnit << ' ' << Logged{listed.record.get()} << '\n';
    }
    for (const Account& account : market.accounts) {
        write(out, account);
    }
    write(out, market.stockLimits);
    write(out, market.hgtLimits);
    write(out, market.sgtLimits);
    for (const CategoryRule& rule : market.categories) {
        out << "category " << rule.position << ' ' << rule.category << ' ' << rule.name << ' ' << rule.market << ' '
            << rule.code << ' ' << rule.product << '\n';
    }
}

}  // namespace

std::string textOf(const LoadResult& result) {
    std::ostringstream out;
    for (const LoadError& error : result.errors) {
        out << error.text(result.market.folder) << '\n';
    }
    for (const FurtherErrors& further : result.further) {
        out << further.text(result.market.folder) << '\n';
    }
    write(out, result.market);
    return out.str();
}

}  // namespace fuzz
