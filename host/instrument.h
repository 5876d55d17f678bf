#ifndef HOST_INSTRUMENT_H
#define HOST_INSTRUMENT_H

#include <cstdint>
#include <string>

#include "host/data.h"
#include "host/host_export.h"

namespace qmservice {

/// How the exchange itself charges futures, as CInstrument::getFeeType() answers; any other value: not at all.
enum ExchangeFeeType : std::int32_t {
    kPerLotFee = 1,      ///< in yuan per lot
    kPerTurnoverFee = 2  ///< in parts of turnover, of which kPartsOfTurnover are the whole
};
/// So many parts are the whole turnover.
constexpr double kPartsOfTurnover = 10000;

/// An instrument of the catalogue. The catalogue's records are shared with every answer and are not written after they
/// have been published.
class HOST_EXPORT CInstrument : public RecordOf<CInstrument> {
public:
    CInstrument() = default;
    CInstrument(const CInstrument&) = default;
    CInstrument& operator=(const CInstrument&) = default;
    ~CInstrument() override;

    /// An ExchangeFeeType; any other value for an instrument that the exchange charges nothing.
    [[nodiscard]] virtual std::int32_t getFeeType() const;
    /// @{
    /// The exchange's own fee for opening, closing and closing on the same day, in yuan per lot or ten-thousandths of
    /// turnover as getFeeType() tells; -1.0 when not set.
    [[nodiscard]] virtual double getOpenFee() const;
    [[nodiscard]] virtual double getCloseFee() const;
    [[nodiscard]] virtual double getCloseTodayFee() const;
    /// @}

    std::string market;         ///< exchange code, such as "SH", "HK", "SHFE"
    std::string code;           ///< code within the market
    std::string productId;      ///< product or board; the third string of the category tests
    std::string name;           ///< what a person calls the instrument
    double volumeMultiple = 0;  ///< contract multiplier; 0 where it has none
    double priceTick = 0;       ///< smallest price step; 0 where not known
    std::int32_t feeType = 0;   ///< an ExchangeFeeType: what getFeeType() answers
    double openFee = 0;         ///< what getOpenFee() answers
    double closeFee = 0;        ///< what getCloseFee() answers
    double closeTodayFee = 0;   ///< what getCloseTodayFee() answers
};

}  // namespace qmservice

#endif  // HOST_INSTRUMENT_H
