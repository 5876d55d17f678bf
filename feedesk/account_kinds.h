#ifndef FEEDESK_ACCOUNT_KINDS_H
#define FEEDESK_ACCOUNT_KINDS_H

#include <string>

namespace feedesk {

/// What the program says about a kind of account.
struct AccountKind {
    int type = 0;        ///< a qmservice::AccountKind
    std::string name;    ///< as accounts.csv has it
    std::string family;  ///< Market::rateNames of the rates in CInstrumentFee::stkRateLimit
    bool listed = true;  ///< whether a fee center lists the fees of such an account
};

/// The kind with this number; its name is the number when the program knows no better.
AccountKind accountKind(int type);

/// Whether such an account trades through a connect channel.
bool tradesThroughConnect(int type);

}  // namespace feedesk

#endif  // FEEDESK_ACCOUNT_KINDS_H
