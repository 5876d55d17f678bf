#include "conformance/asking.h"

#include <iomanip>
#include <locale>
#include <sstream>

namespace conformance {

std::string inQuotes(const std::string& text) {
    std::string written = "\"";
    for (const char c : text) {
        if (c == '\0' || c == '\n') {
            written += c == '\0' ? "\\0" : "\\n";
        } else {
            written += c;
        }
    }
    return written + "\"";
}

std::string beginningOf(const std::string& text) {
    constexpr std::size_t kMost = 60;
    return text.size() <= kMost ? inQuotes(text) : inQuotes(text.substr(0, kMost)) + " ...";
}

std::string plain(double value) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << value;
    return out.str();
}

std::string hex(qmservice::uint64 value) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << "0x" << std::hex << std::setw(16) << std::setfill('0') << value;
    return out.str();
}

std::string nameOf(const qmservice::CInstrument* instrument) {
    return instrument != nullptr ? instrument->market + " " + instrument->code : "an empty pointer";
}

std::string callOf(const char* function, const std::string& market, const std::string& code) {
    return std::string(function) + "(" + inQuotes(market) + ", " + inQuotes(code) + ")";
}

qmservice::uint64 keyOf(const std::string& market, const std::string& code) {
    return utils::hash(utils::voStockKey(market, code));
}

qmservice::IInstrumentCenter& catalogue() { return *qmservice::TraderCenter::instance()->getInstCenter(); }

boost::shared_ptr<qmservice::IDataCenter> accountStore() {
    return qmservice::TraderCenter::instance()->getDataCenter();
}

boost::shared_ptr<qmservice::CInstrument> find(Witness& witness, const std::string& market, const std::string& code) {
    return witness.call("IInstrumentCenter::findInstrument(key of " + market + " " + code + ")",
                        [&] { return catalogue().findInstrument(keyOf(market, code)); });
}

const std::vector<SampleInstrument>& instrumentsOf(const Sample& sample) {
    if (sample.instruments.empty()) {
        throw NotChecked{"the sample names no instrument: add two that the catalogue knows to Sample::instruments"};
    }
    return sample.instruments;
}

const std::vector<boost::shared_ptr<qmservice::CAccountInfo>>& accountsOf(const Sample& sample) {
    if (sample.accounts.empty()) {
        throw NotChecked{"the sample names no account: add one that the account store knows to Sample::accounts"};
    }
    return sample.accounts;
}

}  // namespace conformance
