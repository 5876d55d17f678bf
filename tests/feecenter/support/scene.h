#ifndef TESTS_FEECENTER_SUPPORT_SCENE_H
#define TESTS_FEECENTER_SUPPORT_SCENE_H

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <string>
#include <vector>

#include "support/fake_host.h"
#include "support/open_fee_center.h"

namespace test {

// The accounts of a scene.
constexpr uint64 kBystander = 1;  ///< an account that no operation changes
constexpr uint64 kKnown = 2;      ///< has entries before the operation
constexpr uint64 kNew = 3;        ///< has none

/// A host with a few instruments that every family lists, and fees for them in every family at once. Category 5 holds
/// every instrument. Records differ by one rate, from which all their values follow from.
class Scene {
public:
    using Instrument = boost::shared_ptr<qmservice::CInstrument>;
    using Record = boost::shared_ptr<qmservice::IData>;

    /// Fills the host with instruments of market "SH".
    explicit Scene(const std::vector<std::string>& codes);

    /// A record with a rate for every family.
    static boost::shared_ptr<qmservice::CInstrumentFee> fullFee(const Instrument& instrument, double rate);

    /// One for each instrument, the first with `rate`, the second with `rate` + 1 and so on.
    [[nodiscard]] std::vector<Record> records(double rate) const;

    /// A custom fee of every stock family, stock options included, for all instruments.
    static boost::shared_ptr<qmservice::CCustomStockInstrumentFee> stockCustom(double rate, std::int32_t thirdCode);

    /// The bystander gets every family's rates of all instruments, from 10 on, the known account those of all but the
    /// last, from 20 on. Stock options have the first rate for all instruments.
    void prepare(OpenFeeCenter& center) const;

    FakeHost& host = FakeHost::instance();
    std::vector<Instrument> instruments;
};

/// An instrument that an exchange charges 1, 2 and 3 per lot for, and that tells the host when it is asked.
Scene::Instrument makeSceneInstrument(const std::string& market, const std::string& code);

/// What an answer holds, each field with the rate that all of its record's values follow from: "limit 70;". "default"
/// for a default's values, "simulation" for the exchange's, "torn" for values that do not belong together, "-" for an
/// empty margin, "none" for no fee.
std::string answerText(const boost::shared_ptr<qmservice::CInstrumentFee>& fee);

/// Its words for margins that are the defaults.
inline const std::string kDefaultMargins = "margin default;margin default;margin default;";
/// For the default futures fee on a simulation.
inline const std::string kSimulationFee = "commission simulation;" + kDefaultMargins;
inline const std::string kIncomeSwapFee =
    "commission default;margin income swap;margin income swap;margin income swap;";
/// For prime brokerage's answer where no family has one.
inline const std::string kFullDefaultFee =
    "limit default;hgt default;sgt default;option default;commission default;" + kDefaultMargins;

}  // namespace test

#endif  // TESTS_FEECENTER_SUPPORT_SCENE_H
