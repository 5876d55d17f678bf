#ifndef CONFORMANCE_CONFORMANCE_H
#define CONFORMANCE_CONFORMANCE_H

#include <boost/shared_ptr.hpp>
#include <chrono>
#include <iosfwd>
#include <string>
#include <vector>

#include "host/account.h"

/// The conformance suite: it asks a host's own services, as a fee center does, whether they keep what the boundary's
/// headers promise of them, and says in words which promise is broken. A host links it into a test of its own, with its
/// services and the library. docs/host-guide.md lists the promises, and those that cannot be checked from outside.
namespace conformance {

/// An instrument that the host's catalogue knows at the time of the check.
struct SampleInstrument {
    std::string market;  ///< as its record has it
    std::string code;    ///< as its record has it
    int lists = 0;       ///< bits of qmservice::InstrumentList: lists that hold it; 0 where that is not to be checked
    int types = 0;       ///< bits of qmservice::InstrumentType: maps that hold it; likewise
};

/// What the suite may ask the host for. The host keeps all of it unchanged during the check; the suite changes nothing.
struct Sample {
    /// Two or more see most. A promise about instruments is not checked where there are none.
    std::vector<SampleInstrument> instruments;
    /// Accounts that the account store knows; none is empty. May be none.
    std::vector<boost::shared_ptr<qmservice::CAccountInfo>> accounts;
    /// The strand that is tried, and the name of a fee center that is built for the check.
    std::string strand = "conformance";
    /// What the host's crc64 is meant to give for the nine digits "123456789" from seed 0, such as 0x995DC9BBDF1939FA
    /// for the polynomial of CRC-64/XZ; 0 where it is not to be checked.
    qmservice::uint64 crc64OfDigits = 0;
    /// Whether the engine is to be tried with a job that throws. An engine without a catch around its jobs ends the
    /// program then.
    bool engineOutlivesExceptions = false;
    /// How long a job is held so that another one may wrongly run at the same time.
    std::chrono::milliseconds hold{100};
    /// How long a job may take to be run before it counts as not run.
    std::chrono::milliseconds patience{10000};
};

/// What became of a promise.
enum class Verdict { kKept, kBroken, kNotChecked };

/// What became of one promise.
struct Outcome {
    std::string promise;               ///< its name, such as "keys.split"
    Verdict verdict = Verdict::kKept;  ///< what became of it
    /// One sentence. Of a broken promise: what was called, what came back, what is required and how to correct it. Of
    /// one that was not checked: why. Empty for one that is kept.
    std::string sentence;
};

/// The names of all promises, in the order in which they are checked.
std::vector<std::string> promises();

/// Checks every promise. The host's services are there and its engine runs; the caller is none of the engine's threads
/// and no other check runs meanwhile. An exception of a service breaks the promise that was being checked, and goes no
/// further. Throws std::bad_alloc, and std::system_error where the system gives no thread.
std::vector<Outcome> check(const Sample& sample);

/// Checks every promise and writes what is broken or was not checked, one line each, and a line of numbers. True when
/// nothing is broken.
bool report(const Sample& sample, std::ostream& out);

}  // namespace conformance

#endif  // CONFORMANCE_CONFORMANCE_H
