#ifndef CONFORMANCE_ASKING_H
#define CONFORMANCE_ASKING_H

#include <boost/shared_ptr.hpp>
#include <string>

#include "conformance/conformance.h"
#include "conformance/witness.h"
#include "host/records.h"
#include "host/services.h"

// What the checks of several topics ask of a host, and how they write it.

namespace conformance {

/// A market and a code that no host has.
constexpr const char* kNoMarket = "NONE";
constexpr const char* kNoCode = "000000";

std::string inQuotes(const std::string& text);
/// In quotes, its beginning alone where it is long.
std::string beginningOf(const std::string& text);
std::string hex(qmservice::uint64 value);
std::string plain(double value);
/// "SH 600519"; "an empty pointer".
std::string nameOf(const qmservice::CInstrument* instrument);
/// f("SH", "600519")
std::string callOf(const char* function, const std::string& market, const std::string& code);

qmservice::uint64 keyOf(const std::string& market, const std::string& code);
qmservice::IInstrumentCenter& catalogue();
/// Shared: a host may make the store when it is asked for it.
boost::shared_ptr<qmservice::IDataCenter> accountStore();

/// Asks the catalogue for the instrument by its key.
boost::shared_ptr<qmservice::CInstrument> find(Witness& witness, const std::string& market, const std::string& code);

/// The sample's instruments; ends the check where there are none.
const std::vector<SampleInstrument>& instrumentsOf(const Sample& sample);
/// The sample's accounts, likewise.
const std::vector<boost::shared_ptr<qmservice::CAccountInfo>>& accountsOf(const Sample& sample);

}  // namespace conformance

#endif  // CONFORMANCE_ASKING_H
