#ifndef HOST_INSTRUMENT_H
#define HOST_INSTRUMENT_H

#include <cstdint>
#include <string>

#include "host/data.h"

namespace qmservice {

/// An instrument of the catalogue. The catalogue's records are shared with every answer and are not written after they
/// have been published.
class CInstrument : public RecordOf<CInstrument> {
public:
    CInstrument() = default;
    CInstrument(const CInstrument&) = default;
    CInstrument& operator=(const CInstrument&) = default;
    ~CInstrument() override;

    /// How the exchange itself charges futures: 1 per lot, 2 in ten-thousandths of turnover; any other value, not at
    /// all.
    [[nodiscard]] virtual std::int32_t getFeeType() const;
    /// The exchange's own fee for opening, closing and closing on the same day, in yuan per lot or ten-thousandths of
    /// turnover as getFeeType() tells; -1.0 when not set.
    [[nodiscard]] virtual double getOpenFee() const;
    [[nodiscard]] virtual double getCloseFee() const;
    [[nodiscard]] virtual double getCloseTodayFee() const;

    std::string market;         ///< exchange code, such as "SH", "HK", "SHFE"
    std::string code;           ///< code within the market
    std::string productId;      ///< product or board; the third string of the category tests
    std::string name;           ///< what a person calls the instrument
    double volumeMultiple = 0;  ///< contract multiplier; 0 where it has none
    double priceTick = 0;       ///< smallest price step; 0 where not known
    std::int32_t feeType = 0;   ///< what getFeeType() answers
    double openFee = 0;         ///< what getOpenFee() answers
    double closeFee = 0;        ///< what getCloseFee() answers
    double closeTodayFee = 0;   ///< what getCloseTodayFee() answers
};

}  // namespace qmservice

#endif  // HOST_INSTRUMENT_H
