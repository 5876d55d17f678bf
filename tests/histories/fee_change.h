#ifndef TESTS_HISTORIES_FEE_CHANGE_H
#define TESTS_HISTORIES_FEE_CHANGE_H

#include <string>

#include "histories/bytes.h"
#include "histories/world.h"

namespace histories {

/// A change that is handed to a fee center: a load or a custom fee.
struct FeeChange {
    enum class Kind { load, customFee };

    Kind kind = Kind::load;
    Account account;
    Records records;   ///< of a load
    Record customFee;  ///< of a custom fee; may be empty

    /// Hands it to a fee center or a model, which keep the records.
    template <class Side>
    void handTo(Side& side) const {
        if (kind == Kind::load) {
            side.initFees(account, records);
        } else {
            side.updateCustomFee(account, customFee);
        }
    }

    /// The same with records of its own.
    [[nodiscard]] FeeChange copy() const;
    /// Each record that is handed in, empty ones too.
    [[nodiscard]] Records handedIn() const;
    /// For a person, as "initFees(account of ..., ...)".
    [[nodiscard]] std::string describe() const;
};

FeeChange chooseLoad(Bytes& bytes, const World& world, const Account& account);
FeeChange chooseCustomFee(Bytes& bytes, const World& world, const Account& account);
/// One of the two, for one of the focus's accounts.
FeeChange chooseFeeChange(Bytes& bytes, const World& world, Focus focus);

}  // namespace histories

#endif  // TESTS_HISTORIES_FEE_CHANGE_H
